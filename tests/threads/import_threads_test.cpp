// Whatever the number of threads and the size of the blocks that they read, an import makes the
// same document and reports the same.

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "objimport/document_json.h"
#include "plugin/read_obj.h"
#include "tests/temporary_folder.h"
#include "tests/threads/random_obj.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <regex>

namespace {

struct Use
{
    unsigned threads;
    std::size_t blockSize;
};

/// Returns how many random files are imported, and from which seed on.
unsigned FromEnvironment(const char* name, unsigned otherwise)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

class ImportThreads : public testing::Test
{
protected:
    ImportThreads()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
    }
    ImportThreads(const ImportThreads&) = delete;
    ImportThreads& operator=(const ImportThreads&) = delete;
    ~ImportThreads() override { ConsoleApp::Instance().TakeJournal(); }

    /// Returns the document that an import makes, and all that it reports, as JSON.
    std::string Import(const std::filesystem::path& path, const ImportChoices& choices,
                       const Use& use)
    {
        ConsoleApp::Instance().TakeJournal();
        ConsoleDoc doc(0.001);
        const CKelvoFileReadOptions options;
        ImportRecord record{"file.obj", false, {}};
        int bogusIndices = 0;
        {
            CReadOBJ reader(path.wstring().c_str(), doc, options);
            reader.choices = choices;
            reader.SetThreadCount(use.threads);
            reader.Threads().startAfter = 0;
            reader.Threads().blockSize = use.blockSize;
            reader.Threads().manyCorners = use.threads % 2 == 0 ? 1 : 40;
            const bool parsed = reader.Parse();
            record.result = reader.Build() && parsed;
            bogusIndices = reader.BogusIndexCount();
        }
        record.journal = ConsoleApp::Instance().TakeJournal();
        return std::to_string(bogusIndices) + Json(doc, record);
    }

    /// Imports a file in all ways, which must have the same result as one thread.
    void Compare(const std::filesystem::path& path, const ImportChoices& choices = {})
    {
        const std::string expected = Import(path, choices, {1, 65536});
        for (const Use& use : {Use{2, 64}, Use{2, 4096}, Use{3, 97}, Use{3, 700}, Use{7, 64}})
            ASSERT_EQ(Import(path, choices, use), expected)
                << path << ", " << use.threads << " threads, blocks of " << use.blockSize;
    }

    TemporaryFolder m_folder;

private:
    std::string Json(const ConsoleDoc& doc, const ImportRecord& record) const
    {
        const std::filesystem::path path = m_folder / "document.json";
        std::FILE* const stream = std::fopen(path.string().c_str(), "wb");
        {
            TextOutput output(stream);
            WriteDocumentJson(output, {&record, 1}, doc);
            EXPECT_EQ(output.Finish(), "");
        }
        std::fclose(stream);
        // Layers get an id of their own each time.
        static const std::regex Id("\"id\": \"[^\"]*\"");
        return std::regex_replace(ReadBytes(path), Id, "");
    }
};

ImportChoices RandomChoices(std::mt19937& random)
{
    ImportChoices choices;
    choices.HowToAddGs = static_cast<int>(random() % 4);
    choices.UseONames = random() % 2 == 0;
    choices.ImportAsMorphTarget = random() % 6 == 0;
    choices.ZUp = random() % 4 == 0;
    return choices;
}

TEST_F(ImportThreads, RandomFiles)
{
    const unsigned seed = FromEnvironment("THREADED_SEED", 1);
    for (unsigned i = 0; i < FromEnvironment("THREADED_FILES", 60); ++i) {
        std::mt19937 random(seed + i);
        const std::filesystem::path path = m_folder.Write("random.obj", RandomObj(random));
        SCOPED_TRACE("seed " + std::to_string(seed + i));
        Compare(path, RandomChoices(random));
        if (HasFatalFailure())
            return;
    }
}

/// Also of another folder, when THREADED_MODELS names one.
TEST_F(ImportThreads, ExamplesAndCases)
{
    std::vector<std::filesystem::path> folders{PROJECT_FOLDER "/examples",
                                               PROJECT_FOLDER "/tests/whole/cases"};
    if (const char* const models = std::getenv("THREADED_MODELS"))
        folders.emplace_back(models);
    for (const std::filesystem::path& folder : folders)
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            if (entry.path().extension() == ".obj")
                Compare(entry.path());
}

/// A ball whose mesh is large enough for every step of its construction to be shared.
TEST_F(ImportThreads, AMeshThatIsMadeByRanges)
{
    constexpr int Side = 100;
    std::string text;
    for (int i = 0; i < Side; ++i)
        for (int k = 0; k < Side; ++k) {
            const double u = 6.283185307179586 * k / Side;
            const double v = 3.141592653589793 * (i + 0.5) / Side;
            text += "v " + std::to_string(std::sin(v) * std::cos(u)) + ' ' +
                    std::to_string(std::sin(v) * std::sin(u)) + ' ' + std::to_string(std::cos(v)) +
                    "\nvt " + std::to_string(k) + ' ' + std::to_string(i) + '\n';
        }
    const auto corner = [](int i, int k) {
        const std::string vertex = std::to_string(i * Side + k % Side + 1);
        return ' ' + vertex + '/' + (k == Side ? "1" : vertex);
    };
    for (int i = 0; i + 1 < Side; ++i)
        for (int k = 0; k < Side; ++k)
            text += 'f' + corner(i, k) + corner(i + 1, k) + corner(i + 1, k + 1) +
                    corner(i, k + 1) + '\n';
    for (const int i : {0, Side - 1}) {
        text += 'f';
        for (int k = 0; k < Side; ++k)
            text += corner(i, i == 0 ? k : Side - 1 - k);
        text += '\n';
    }
    const std::filesystem::path path = m_folder.Write("ball.obj", text);
    const std::string expected = Import(path, {}, {1, 65536});
    EXPECT_NE(expected.find("\"closed\": true"), std::string::npos);
    for (const unsigned threads : {2U, 3U, 7U})
        ASSERT_EQ(Import(path, {}, {threads, 10000}), expected) << threads;
}

} // namespace
