#include "host/app/message_box.h"

#include "console_host/app/console_app.h"
#include "console_host/app/import_journal.h"
#include "console_host/app/printable.h"
#include "console_host/framework/native_windows.h"

#include "host/app/dialog.h"
#include "host/geokit/string.h"

#include <cstdio>
#include <string>

namespace {

/// Notes a message and shows it: in a window, or on standard error.
void ShowMessage(const wchar_t* text, const wchar_t* caption, unsigned int flags, bool inWindow)
{
    ImportJournal::Box box{GK_wString(text).Utf8(), GK_wString(caption).Utf8(), flags};
    if (inWindow) {
        ShowMessageWindow(text, caption, flags);
    } else {
        const std::string& subject = ConsoleApp::Instance().MessageSubject();
        std::fflush(stdout); // what was printed before stands before
        WriteForPerson(stderr, (subject.empty() ? "" : subject + ": ") + box.caption + ": " +
                                   box.text + "\n");
    }
    CurrentJournal().boxes.push_back(std::move(box));
}

} // namespace

int KelvoMessageBox(const wchar_t* text, const wchar_t* caption, unsigned int flags)
{
    constexpr int Ok = 1;
    ShowMessage(text, caption, flags, Dialogs().open > 0);
    return Ok;
}

void KvPluginOptionIOWarningDialog(const wchar_t* fileType, bool exporting)
{
    const std::wstring type = fileType;
    const std::wstring action = exporting ? L"export" : L"import";
    std::wstring text = L"The options dialog will no longer be shown: from now on every " + type +
                        L" " + action + L" uses these settings.";
    if (const std::wstring& hint = ConsoleApp::Instance().DialogHint(); !exporting && !hint.empty())
        text += L"\n\n" + hint;
    const std::wstring caption = type + L" " + action + L" options";
    ShowMessage(text.c_str(), caption.c_str(), MessageBoxExclamation, Dialogs().shown > 0);
}
