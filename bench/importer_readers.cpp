#include "bench/readers.h"
#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "plugin/import_obj_plugin.h"
#include "plugin/read_obj.h"

#include <stdexcept>

namespace {

constexpr double Tolerance = 0.001;

std::wstring Wide(const std::string& path)
{
    return {path.begin(), path.end()};
}

/// The parse alone: nothing reaches the document.
class ParseReader : public Reader
{
public:
    void Read(const std::string& path) override
    {
        m_path = Wide(path);
        m_doc.emplace(Tolerance);
        m_reader.emplace(m_path.c_str(), *m_doc, m_options);
        if (!m_reader->Parse())
            throw std::runtime_error("the parse failed: " + path);
    }

    void Forget() override
    {
        m_reader.reset();
        m_doc.reset();
    }

private:
    std::wstring m_path;
    CKelvoFileReadOptions m_options;
    std::optional<ConsoleDoc> m_doc;
    std::optional<CReadOBJ> m_reader;
};

/// All that an import does, from the plug-in's entry until the objects stand in the document and
/// the reader is gone.
class ImportReader : public Reader
{
public:
    ImportReader()
    {
        ConsoleApp::Instance().SetPrintStream(stderr);
        m_options.SetMode(ReadModeAskOnCommandLine, true);
    }

    void Read(const std::string& path) override
    {
        m_doc.emplace(Tolerance);
        if (!m_plugIn.ReadFile(Wide(path).c_str(), 0, *m_doc, m_options))
            throw std::runtime_error("the import failed: " + path);
    }

    void Forget() override { m_doc.reset(); }

private:
    CImportOBJPlugIn m_plugIn;
    CKelvoFileReadOptions m_options;
    std::optional<ConsoleDoc> m_doc;
};

} // namespace

std::unique_ptr<Reader> MakeParseReader()
{
    return std::make_unique<ParseReader>();
}

std::unique_ptr<Reader> MakeImportReader()
{
    return std::make_unique<ImportReader>();
}
