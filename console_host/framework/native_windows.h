#pragma once

#include "host/framework/module_state.h"
#include "host/framework/wnd.h"

#include <memory>
#include <string_view>

// Windows of the host's own, each shown until the user closes it.

/// Returns whether a window can be shown at all: off Windows, whether there is a display.
bool CanShowWindows();

/// Shows a message with an OK button. `flags` are those of KelvoMessageBox.
void ShowMessageWindow(std::wstring_view text, std::wstring_view caption, unsigned int flags);

/// Shows a longer text that can be scrolled.
void ShowTextWindow(std::wstring_view text, std::wstring_view caption);

/// What the host knows of the dialogs of its run.
struct DialogState
{
    int open = 0;     ///< dialogs on the screen now
    int shown = 0;    ///< dialogs shown so far
    int notShown = 0; ///< dialogs that could not be shown
};

/// Returns the one record of this process.
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

/// Receives what happens in a native dialog.
class NativeDialogOwner : public CObject
{
public:
    /// Called when the controls exist and the dialog is not yet visible.
    virtual void OnOpen() = 0;
    virtual void OnMessage(WindowMessage message, int controlId) = 0;
};

/// A modal dialog of the platform's window system.
class NativeDialog : public CObject
{
public:
    /// Shows the dialog, waits until it is closed and returns the result that End was called with,
    /// or DialogNotShown.
    virtual int Run() = 0;

    /// Returns the control of that id, which the dialog owns, or null. May be called from OnOpen
    /// on.
    virtual NativeControl* Find(int controlId) = 0;

    /// Closes the dialog: Run returns the result.
    virtual void End(int result) = 0;
};

/// Returns a dialog made from a module's template; null when the module has no such template or no
/// window can be shown. `owner` must outlive the dialog.
std::unique_ptr<NativeDialog> MakeNativeDialog(const CModuleState& module, int templateId,
                                               NativeDialogOwner& owner);
