#include "console_host/app/console_app.h"

#include "console_host/app/format_text.h"
#include "console_host/app/help.h"
#include "console_host/app/printable.h"
#include "console_host/runtime/allocation_failures.h"
#include "console_host/vxkit/pushup_allowance.h"

#include "host/app/localize.h"
#include "host/geokit/error.h"
#include "host/geokit/string.h"
#include "host/runtime/file.h"

#include <cstdarg>
#include <exception>
#include <new>
#include <utility>

ConsoleApp& ConsoleApp::Instance()
{
    static ConsoleApp app;
    return app;
}

ConsoleApp::ConsoleApp() : m_profile(std::make_unique<ProfileStore>())
{
    std::set_new_handler(NoteAllocationFailureAndThrow);
}

ConsoleApp::~ConsoleApp()
{
    std::set_new_handler(nullptr);
}

void ConsoleApp::Print(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::string text;
    try {
        text = GK_wString(FormatText(format, arguments)).Utf8();
    } catch (...) {
        va_end(arguments);
        throw;
    }
    va_end(arguments);
    if (m_printStream != nullptr)
        WriteForPerson(m_printStream, text);
    m_journal.prints.push_back(std::move(text));
}

bool ConsoleApp::DoHelp(int topicId)
{
    return ShowHelpTopic(topicId);
}

ImportJournal ConsoleApp::TakeJournal()
{
    PushupAllowance::Current().Restart();
    return std::exchange(m_journal, {});
}

CKelvoApp& KelvoApp()
{
    return ConsoleApp::Instance();
}

const wchar_t* KvLocalizeString(const wchar_t* text, int id)
{
    return ConsoleApp::Instance().Strings().Localize(text, id);
}

void KelvoNoteFileRead(std::FILE* stream)
{
    if (const std::optional<FileIdentity> identity = IdentityOf(stream))
        ConsoleApp::Instance().FilesRead().insert(*identity);
}

void GK_Error(const char* source, int, const char* text, int times) noexcept
try {
    std::vector<ImportJournal::KernelError>& errors = CurrentJournal().kernelErrors;
    ImportJournal::KernelError error{source != nullptr ? source : "", text != nullptr ? text : "",
                                     times};
    if (!errors.empty() && errors.back().source == error.source && errors.back().text == error.text)
        errors.back().times += times;
    else
        errors.push_back(std::move(error));
} catch (const std::exception&) {
    // A report for which there is no memory is lost; the import goes on.
    return;
}

ImportJournal& CurrentJournal()
{
    return ConsoleApp::Instance().Journal();
}

void NoteRefused(std::string_view type, std::string reason, int number, std::string name)
{
    constexpr std::size_t MostNames = 1000;
    ImportJournal& journal = CurrentJournal();
    journal.refused.push_back({std::string(type), std::move(reason), number});
    if (!name.empty() && journal.refusedNames.size() < MostNames)
        journal.refusedNames.emplace(journal.refused.size() - 1, std::move(name));
}

void NoteGuestFault(std::string_view call, std::string_view fault)
{
    const std::string text = std::string(call).append(": ").append(fault) + "\n";
    WriteForPerson(stderr, "plug-in fault: " + text);
    CurrentJournal().kernelErrors.push_back({"host", text});
}
