#pragma once

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "objreader/group_object.h"
#include "objreader/read_obj.h"
#include "tests/temporary_folder.h"

#include <memory>
#include <vector>

/// An empty document and readers of texts for it.
class ReaderTest : public testing::Test
{
public:
    ReaderTest()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
    }

    ~ReaderTest() override
    {
        ConsoleApp::Instance().SetStrings({});
        ConsoleApp::Instance().TakeJournal();
    }

    ReaderTest(const ReaderTest&) = delete;
    ReaderTest& operator=(const ReaderTest&) = delete;

protected:
    /// A reader of a file of this text, which lives until the next is made.
    CReadOBJ& Open(std::string_view text)
    {
        m_reader.reset();
        std::filesystem::remove(m_path);
        m_folder.Write(m_path, text);
        ConsoleApp::Instance().TakeJournal();
        m_reader = std::make_unique<CReadOBJ>(m_widePath.c_str(), *doc, m_options);
        return *m_reader;
    }

    /// The same, and the file has been read.
    CReadOBJ& Parsed(std::string_view text)
    {
        CReadOBJ& reader = Open(text);
        EXPECT_TRUE(reader.Parse()) << text;
        return reader;
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

    std::unique_ptr<ConsoleDoc> doc = std::make_unique<ConsoleDoc>(0.001);

private:
    TemporaryFolder m_folder;
    std::filesystem::path m_path = m_folder / "scene.obj";
    std::wstring m_widePath = m_path.wstring();
    CKelvoFileReadOptions m_options;
    std::unique_ptr<CReadOBJ> m_reader;
};

/// The elements as a container that matchers know.
template <class T>
std::vector<T> ListOf(const GK_SimpleArray<T>& array)
{
    return {array.begin(), array.end()};
}

/// The corners as "v/vt/vn" with 0-based indices, -1 left out.
inline std::string Shown(std::span<const V_TN_IDX> corners)
{
    const auto index = [](int i) { return i == -1 ? std::string() : std::to_string(i); };
    std::string shown;
    for (const V_TN_IDX& corner : corners)
        shown += index(corner.vi) + '/' + index(corner.ti) + '/' + index(corner.ni) + ' ';
    return shown.substr(0, shown.size() - (shown.empty() ? 0 : 1));
}
