// What someone types to the prompt for the import options.

#include "console_host/app/answer_source.h"
#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/app/option_words.h"
#include "fuzz/own_folder.h"
#include "plugin/import_obj_plugin.h"

#include "host/geokit/string.h"

namespace {

void CheckWords(std::string_view line)
{
    const GK_wString wide(line);
    for (const std::wstring& word : SplitWords(wide.View())) {
        Expect(!word.empty());
        const WordMatch match = MatchWord(word, {{L"Yes", L"Ja"}, {L"Yesterday", L"Gestern"}});
        Expect(match.index >= -1 && match.index < 2 &&
               (match.index < 0 || match.couldBe.size() < 2));
        Expect(ShownWord(word).size() <= 100);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    std::string bytes(Text(data, size));
    CheckWords(bytes);
    if (bytes.empty())
        return 0;
    ConsoleApp::Instance().SetPrintStream(nullptr);
    std::FILE* const input = fmemopen(bytes.data(), bytes.size(), "rb");
    SetAnswerSource(std::make_unique<InputAnswers>(input, nowhere, true));
    CImportOBJPlugIn plugIn;
    const bool isCancelled = plugIn.AskImportOptions(false, false) != 0;
    const ObjImportOptions& options = plugIn.Options();
    Expect(options.HowToAddGs >= 0 && options.HowToAddGs <= HowToAddGsLimit);
    Expect(!isCancelled || options.HowToAddGs == ObjImportOptions().HowToAddGs);
    SetAnswerSource(std::make_unique<EnterAtOnce>());
    std::fclose(input);
    ConsoleApp::Instance().TakeJournal();
    return 0;
}
