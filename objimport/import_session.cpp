#include "objimport/import_session.h"

#include "console_host/app/console_app.h"
#include "console_host/app/printable.h"
#include "console_host/framework/work_note.h"
#include "console_host/runtime/allocation_failures.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "console_host/runtime/terminal.h"
#include "objimport/check/file_sort.h"
#include "objimport/page.h"
#include "objimport/program_texts.h"
#include "objimport/text_table.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <system_error>

namespace {

/// Returns whether the module said of the file that its reading ended early.
bool EndedEarly(const ImportJournal& journal)
{
    const auto& prints = journal.prints;
    return std::find(prints.begin(), prints.end(), Say(Texts::ReadingErrors)) != prints.end();
}

/// Returns why a file that begins with these bytes is not text; none when it may be.
std::optional<Finding> WhyNotText(std::string_view firstBytes)
{
    Findings findings(1);
    if (!ReportNoText({findings}, firstBytes))
        return std::nullopt;
    return findings.Kept().front();
}

/// Returns what an import ignores in a file; nothing when it does not open, or when out of memory.
UnreadLines UnreadLinesOf(const InputFile& file, const ImportJournal& journal)
try {
    if (UnreadLines found; (found.notText = WhyNotText(FirstBytes(file))))
        return found;
    EarlyEnd end;
    if (EndedEarly(journal))
        if (KelvoFile whole(OpenNative(file.path, "rb")); whole != nullptr)
            end = FindEarlyEnd(whole.release());
    KelvoFile stream(OpenNative(file.path, "rb"));
    return stream != nullptr ? FindUnreadLines(stream.release(), end) : UnreadLines();
} catch (const std::bad_alloc&) {
    return {};
}

/// Returns what the note shows while a file is imported.
WorkNote::Subject NoteOf(const InputFile& file)
{
    if (!IsTerminal(stderr))
        return {};
    constexpr int RoomForText = 40;
    constexpr int ShortestName = 10;
    const int terminal = TerminalWidth(stderr);
    const int room = (terminal > 0 ? terminal : Page::UsualWidth) - RoomForText;
    const std::string name =
        ShortenedInMiddle(ShownFileName(file.name), std::max(room, ShortestName));
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file.path, error);
    return {Say(Texts::Building, {name}), Say(Texts::Reading, {name, "%s"}), error ? 0 : size};
}

} // namespace

bool ImportSession::ReadFile(const InputFile& file)
{
    try {
        const std::wstring path = WidePath(AbsolutePath(file.path));
        return m_plugIn.ReadFile(path.c_str(), 0, m_doc, m_options);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::exception& failure) {
        NoteGuestFault("ReadFile", std::string("it threw an exception: ") + failure.what());
        return false;
    }
}

const ImportRecord& ImportSession::Import(const InputFile& file)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.TakeJournal();
    ImportRecord& import = m_imports.emplace_back(ImportRecord{.file = file.name});
    import.firstObject = m_doc.ObjectCount();
    const long failuresBefore = AllocationFailures();
    {
        const WorkStage stage(NoteOf(file));
        import.result = ReadFile(file);
    }
    WorkNote& note = WorkNote::Instance();
    if (note.Depth() > 0)
        NoteGuestFault("ReadFile", "it did not end its wait cursor");
    while (note.End()) {
    }
    import.journal = app.TakeJournal();
    import.journal.outOfMemory = AllocationFailures() > failuresBefore;
    import.objectCount = m_doc.ObjectCount() - import.firstObject;
    if (import.journal.outOfMemory)
        WriteForPerson(stderr, "objimport: " + ShownFileName(file.name) + ": out of memory; " +
                                   (import.result ? "something of it is missing\n"
                                                  : "the reading ended before its end\n"));
    if (m_looksForUnreadLines && !import.journal.cancelled)
        import.unread = UnreadLinesOf(file, import.journal);
    return import;
}

bool ImportSession::AllSucceeded() const
{
    return std::all_of(m_imports.begin(), m_imports.end(), [](const ImportRecord& import) {
        return import.result && !import.journal.outOfMemory;
    });
}
