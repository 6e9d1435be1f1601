#pragma once

#include "host/framework/module_state.h"
#include "host/framework/wnd.h"

#include <memory>
#include <string_view>

// Windows of the host's own, each shown until the user closes it.

/// Whether a window can be shown at all: false off Windows without a display.
bool CanShowWindows();

/// A message with an OK button. `flags` are those of KelvoMessageBox.
void ShowMessageWindow(std::wstring_view text, std::wstring_view caption, unsigned int flags);

/// A longer text that can be scrolled.
void ShowTextWindow(std::wstring_view text, std::wstring_view caption);

/// What the host knows of the dialogs of its run.
struct DialogState
{
    int open = 0;     ///< dialogs on the screen now
    int shown = 0;    ///< dialogs shown so far
    int notShown = 0; ///< dialogs that could not be shown
};

/// The one record of this process.
DialogState& Dialogs();

// Dialogs of modules.

/// A control of a shown dialog, as the platform's window system has it.
class CWnd::Native : public CObject
{
public:
    [[nodiscard]] virtual bool Checked() const = 0;
    virtual void SetChecked(bool checked) = 0;
    virtual void SetEnabled(bool enabled) = 0;
};

using NativeControl = CWnd::Native;

/// Whoever hears of what happens in a native dialog.
class NativeDialogOwner : public CObject
{
public:
    /// The controls are there, the dialog is not yet visible.
    virtual void OnOpen() = 0;
    virtual void OnMessage(WindowMessage message, int controlId) = 0;
};

/// A modal dialog of the platform's window system.
class NativeDialog : public CObject
{
public:
    /// Shows the dialog and waits for its end. The result given to End, or DialogNotShown.
    virtual int Run() = 0;

    /// The control of that id, or null; the dialog owns it. From OnOpen on.
    virtual NativeControl* Find(int controlId) = 0;

    /// Closes the dialog: Run returns the result.
    virtual void End(int result) = 0;
};

/// Makes a dialog from a module's template. Null when the module has no such template or no window
/// can be shown. `owner` must outlive the dialog.
std::unique_ptr<NativeDialog> MakeNativeDialog(const CModuleState& module, int templateId,
                                               NativeDialogOwner& owner);
