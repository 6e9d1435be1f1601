#include "objimport/import_run.h"

#include "console_host/app/answer_source.h"
#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/app/printable.h"
#include "console_host/framework/native_windows.h"
#include "console_host/framework/work_note.h"
#include "objimport/each_table.h"
#include "objimport/file_report.h"
#include "objimport/host_run.h"
#include "objimport/import_session.h"
#include "objimport/json_file.h"
#include "objimport/object_tables.h"
#include "objimport/output_name.h"
#include "objimport/program_texts.h"
#include "objimport/saved_forms.h"
#include "objimport/settings_file.h"
#include "objimport/summary.h"
#include "objimport/text_output.h"

#include "host/framework/wait_cursor.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace {

/// Returns all files that --save asks for.
std::vector<std::string> AllSaved(const CommandLine& commandLine,
                                  const std::vector<InputFile>& files)
{
    if (!commandLine.each)
        return commandLine.saves;
    std::vector<std::string> paths;
    for (const InputFile& file : files)
        for (const std::string& path : commandLine.saves)
            paths.push_back(OutputName(path, file.name));
    return paths;
}

/// The imports of a run, with what is shown and written of them.
class ImportRun
{
public:
    ImportRun(const CommandLine& commandLine, const std::vector<InputFile>& files,
              PlugInModule& module)
        : m_commandLine(commandLine), m_module(module),
          m_user(commandLine.json == "-" ? stderr : stdout),
          m_forms(AllSaved(commandLine, files), commandLine.picture)
    {
    }

    RunOutcome ImportTogether(const std::vector<InputFile>& files);
    RunOutcome ImportEach(const std::vector<InputFile>& files);

    /// Prepares the host.
    void Begin();

private:
    ImportSession SessionFor(ConsoleDoc& doc) const;
    const ImportRecord& Import(ImportSession& session, const InputFile& file, bool isOneOfMany);
    static bool WriteJson(const std::string& path, const ImportSession& session,
                          const ConsoleDoc& doc);
    bool Save(const std::vector<std::string>& paths, const ImportSession& session,
              const ConsoleDoc& doc);
    bool WriteDocument(const std::string& input, const ImportSession& session,
                       const ConsoleDoc& doc);
    RunOutcome ImportAlone(const InputFile& file, EachTable& table, bool isOneOfMany);

    /// Shows something by `write(const Page&)`, unless the run is quiet.
    template <class Write>
    void Show(Write write) const
    {
        if (m_commandLine.quiet)
            return;
        WriteForUser(m_user, [&](TextOutput& output) {
            write(Page::On(output, m_user, m_commandLine.all));
        });
    }

    const CommandLine& m_commandLine;
    PlugInModule& m_module;
    std::FILE* m_user; ///< receives messages and summary
    SavedForms m_forms;
    bool m_accepted = false; ///< the user was asked for options and accepted them
};

void ImportRun::Begin()
{
    PrepareHost(m_commandLine, m_module, m_user);
    if (m_commandLine.asking == Asking::Prompt)
        SetAnswerSource(MakeStandardInputAnswers());
}

ImportSession ImportRun::SessionFor(ConsoleDoc& doc) const
{
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, m_commandLine.asking != Asking::Dialog);
    options.SetMode(ReadModeZoomExtents, m_commandLine.zoom);
    ImportSession session(m_module.PlugIn(), doc, options);
    if (!m_commandLine.quiet)
        session.LookForUnreadLines();
    return session;
}

const ImportRecord& ImportRun::Import(ImportSession& session, const InputFile& file,
                                      bool isOneOfMany)
{
    ConsoleApp::Instance().SetMessageSubject(isOneOfMany ? ShownFileName(file.name) : "");
    if (isOneOfMany)
        Show([&](const Page& page) {
            page.Line(Say(Texts::Importing, {ShownFileName(file.name)}));
        });
    const int shown = Dialogs().shown;
    const ImportRecord& import = session.Import(file);
    CheckDialogsWereShown();
    const bool asked = m_commandLine.asking == Asking::Prompt || Dialogs().shown > shown;
    m_accepted = m_accepted || (asked && !import.journal.cancelled);
    return import;
}

/// Writes the document as JSON, when that is asked for. Returns whether it is written; why not, is
/// told.
bool ImportRun::WriteJson(const std::string& path, const ImportSession& session,
                          const ConsoleDoc& doc)
try {
    if (path.empty())
        return true;
    const WorkStage stage({Say(Texts::Writing, {PrintableLine(path)})});
    const CWaitCursor cursor;
    WriteJsonFile(path, session.Imports(), doc);
    return true;
} catch (const ProgramError& error) {
    TellError(error.what());
    return false;
}

/// Writes the document to the files of --save. Returns whether all are written; why one is not, is
/// told.
bool ImportRun::Save(const std::vector<std::string>& paths, const ImportSession& session,
                     const ConsoleDoc& doc)
{
    if (paths.empty())
        return true;
    DocumentOrigin origin;
    for (const ImportRecord& import : session.Imports())
        origin.sources.push_back({import.file, static_cast<std::size_t>(import.firstObject)});
    origin.isZUp = OptionSwitches::IsOn(ConsoleApp::Instance().Profile(),
                                        m_module.PlugIn().PlugInId(), L"ZUp");
    bool allWritten = true;
    const auto write = [&](TextOutput* output) {
        for (const std::string& failure : m_forms.Write(paths, doc, origin, output)) {
            TellError(failure);
            allWritten = false;
        }
    };
    if (m_commandLine.quiet)
        write(nullptr);
    else
        WriteForUser(m_user, [&](TextOutput& output) { write(&output); });
    return allWritten;
}

/// Writes a document in all forms that are asked for, after the unload hook, which tells the
/// options of the import. Returns whether all are written; the others are written all the same.
bool ImportRun::WriteDocument(const std::string& input, const ImportSession& session,
                              const ConsoleDoc& doc)
{
    const auto pathOf = [&](const std::string& path) {
        return m_commandLine.each ? OutputName(path, input) : path;
    };
    std::vector<std::string> paths;
    for (const std::string& path : m_commandLine.saves)
        paths.push_back(pathOf(path));
    const bool isJsonWritten = WriteJson(pathOf(m_commandLine.json), session, doc);
    return Save(paths, session, doc) && isJsonWritten;
}

RunOutcome ImportRun::ImportTogether(const std::vector<InputFile>& files)
{
    // The document is destroyed before the module, whose code its objects may need.
    ConsoleDoc doc(m_commandLine.tolerance);
    ImportSession session = SessionFor(doc);
    m_module.RunLoadHook();
    for (const InputFile& file : files) {
        const ImportRecord& import = Import(session, file, files.size() > 1);
        Show([&](const Page& page) { WriteFileReport(page, import, doc); });
    }
    m_module.RunUnloadHook();
    SaveSettings(m_commandLine, m_accepted);
    Show([&](const Page& page) {
        if (files.size() > 1)
            page.Output().Write('\n');
        WriteSummary(page, doc);
    });
    if (!WriteDocument({}, session, doc))
        return RunOutcome::NotDone;
    return session.AllSucceeded() ? RunOutcome::Succeeded : RunOutcome::ImportFailed;
}

/// Imports a file into a document of its own and writes that; reports what cannot be written.
RunOutcome ImportRun::ImportAlone(const InputFile& file, EachTable& table, bool isOneOfMany)
{
    ConsoleDoc doc(m_commandLine.tolerance);
    ImportSession session = SessionFor(doc);
    m_module.RunLoadHook();
    const ImportRecord& import = Import(session, file, isOneOfMany);
    m_module.RunUnloadHook();
    Show([&](const Page& page) {
        WriteFileReport(page, import, doc);
        if (m_commandLine.all)
            WriteSummary(page, doc);
        else
            WriteTotals(page, doc);
    });
    const bool isWritten = WriteDocument(file.name, session, doc);
    Show([](const Page& page) { page.Output().Write('\n'); });
    table.AddImport(import, doc, isWritten);
    if (!isWritten)
        return RunOutcome::NotDone;
    return session.AllSucceeded() ? RunOutcome::Succeeded : RunOutcome::ImportFailed;
}

RunOutcome ImportRun::ImportEach(const std::vector<InputFile>& files)
{
    EachTable table;
    RunOutcome worst = RunOutcome::Succeeded;
    for (const InputFile& file : files) {
        RunOutcome outcome = RunOutcome::NotDone;
        if (file.whyUnreadable.empty()) {
            outcome = ImportAlone(file, table, files.size() > 1);
        } else {
            TellError("cannot read " + ShownFileName(file.name) + ": " + file.whyUnreadable);
            table.AddUnreadable(file);
        }
        worst = std::max(worst, outcome);
    }
    SaveSettings(m_commandLine, m_accepted);
    Show([&](const Page& page) { table.Write(page); });
    return worst;
}

} // namespace

RunOutcome ImportFiles(const CommandLine& commandLine, const std::vector<InputFile>& files,
                       PlugInModule& module)
{
    ImportRun run(commandLine, files, module);
    run.Begin();
    return commandLine.each ? run.ImportEach(files) : run.ImportTogether(files);
}
