#pragma once

#include "console_host/app/import_journal.h"
#include "console_host/app/profile_store.h"
#include "console_host/app/string_table.h"
#include "console_host/runtime/files.h"

#include "host/app/app.h"

#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <utility>

/// The console host's application object: all that the host keeps between imports.
class ConsoleApp final : public CKelvoApp
{
public:
    static ConsoleApp& Instance();

    ~ConsoleApp() override;

    void Print(const wchar_t* format, ...) override;
    CKelvoProfileContext& ProfileContext() override { return *m_profile; }
    CWnd* MainWnd() override { return nullptr; }
    bool DoHelp(int topicId) override;

    /// Sets where Print writes to, standard output at first; null: only to the journal.
    void SetPrintStream(std::FILE* stream) { m_printStream = stream; }

    /// What messages that go to standard error are about, which stands in front of each; empty, as
    /// at first: nothing.
    void SetMessageSubject(std::string subject) { m_messageSubject = std::move(subject); }
    [[nodiscard]] const std::string& MessageSubject() const { return m_messageSubject; }

    /// Sets the settings store; without one, settings live as long as the program.
    void SetProfile(std::unique_ptr<ProfileStore> profile) { m_profile = std::move(profile); }
    ProfileStore& Profile() { return *m_profile; }

    /// Returns the files that imports have read, except the imported ones.
    std::set<FileIdentity>& FilesRead() { return m_filesRead; }

    void SetStrings(StringTable strings) { m_strings = std::move(strings); }
    StringTable& Strings() { return m_strings; }

    /// Sets the sentence that tells the user how to get back an import's options dialog that was
    /// switched off, which only the program knows. Empty, as at first: the user is not told.
    void SetDialogHint(std::wstring hint) { m_dialogHint = std::move(hint); }
    [[nodiscard]] const std::wstring& DialogHint() const { return m_dialogHint; }

    ImportJournal& Journal() { return m_journal; }

    /// Returns what was noted since the last call and begins a new journal and a new allowance for
    /// trims: to be called between imports.
    ImportJournal TakeJournal();

private:
    ConsoleApp();

    std::FILE* m_printStream = stdout;
    std::string m_messageSubject;
    std::unique_ptr<ProfileStore> m_profile;
    StringTable m_strings;
    std::wstring m_dialogHint;
    ImportJournal m_journal;
    std::set<FileIdentity> m_filesRead;
};
