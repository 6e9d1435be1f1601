#include "tests/trimming/import_text.h"

#include "console_host/app/console_app.h"
#include "plugin/read_obj.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

/// A file that goes when it is no longer read.
class TextFile
{
public:
    explicit TextFile(const std::string& text)
        : m_path(std::filesystem::temp_directory_path() /
                 ("trimmed." + std::to_string(std::random_device()()) + ".obj"))
    {
        std::ofstream(m_path, std::ios::binary) << text;
    }
    TextFile(const TextFile&) = delete;
    TextFile& operator=(const TextFile&) = delete;
    ~TextFile()
    {
        std::error_code error;
        std::filesystem::remove(m_path, error);
    }

    [[nodiscard]] std::wstring Path() const { return m_path.wstring(); }

private:
    std::filesystem::path m_path;
};

} // namespace

ImportedText::ImportedText(const std::string& text, double tolerance) : m_doc(tolerance)
{
    ConsoleApp::Instance().SetPrintStream(nullptr);
    ConsoleApp::Instance().TakeJournal();
    const TextFile file(text);
    const std::wstring path = file.Path();
    const CKelvoFileReadOptions options;
    CReadOBJ reader(path.c_str(), m_doc, options);
    m_parsed = reader.Parse();
    reader.Build();
    m_journal = ConsoleApp::Instance().TakeJournal();
}

std::vector<const GK_Brep*> ImportedText::Breps() const
{
    std::vector<const GK_Brep*> breps;
    for (int i = 0; i < m_doc.ObjectCount(); ++i) {
        const DocumentObject object = m_doc.Object(i);
        if (const auto* brep = std::get_if<const GK_Brep*>(&object.geometry))
            breps.push_back(*brep);
    }
    return breps;
}

int ImportedText::Refusals(const std::string& type) const
{
    const auto& refused = m_journal.refused;
    return static_cast<int>(std::count_if(refused.begin(), refused.end(), [&](const auto& refusal) {
        return refusal.type == type && !refusal.reason.empty();
    }));
}

std::string ImportedText::Refused() const
{
    std::string text;
    for (const ImportJournal::Refusal& refusal : m_journal.refused)
        text += refusal.type + ": " + refusal.reason + "\n";
    return text;
}
