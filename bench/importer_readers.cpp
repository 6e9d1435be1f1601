#include "bench/readers.h"
#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "plugin/read_obj.h"

#include <stdexcept>

namespace {

constexpr double Tolerance = 0.001;

std::wstring Wide(const std::string& path)
{
    return {path.begin(), path.end()};
}

class ParseOnly : public Reader
{
public:
    void Read(const std::string& path) override
    {
        m_path = Wide(path);
        m_doc.emplace(Tolerance);
        m_reader.emplace(m_path.c_str(), *m_doc, m_options);
        m_reader->SetThreadCount(1);
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

class WholeImport : public Reader
{
public:
    explicit WholeImport(unsigned threadCount) : m_threadCount(threadCount)
    {
        ConsoleApp::Instance().SetPrintStream(stderr);
    }

    void Read(const std::string& path) override
    {
        m_doc.emplace(Tolerance);
        const std::wstring widePath = Wide(path);
        CReadOBJ reader(widePath.c_str(), *m_doc, m_options);
        reader.SetThreadCount(m_threadCount);
        if (!reader.Parse() || !reader.Build())
            throw std::runtime_error("the import failed: " + path);
        m_stages = reader.Times();
    }

    void Forget() override { m_doc.reset(); }

    [[nodiscard]] StageTimes Stages() const override { return m_stages; }

private:
    unsigned m_threadCount;
    CKelvoFileReadOptions m_options;
    std::optional<ConsoleDoc> m_doc;
    StageTimes m_stages;
};

} // namespace

std::unique_ptr<Reader> MakeParseReader()
{
    return std::make_unique<ParseOnly>();
}

std::unique_ptr<Reader> MakeImportReader(unsigned threadCount)
{
    return std::make_unique<WholeImport>(threadCount);
}
