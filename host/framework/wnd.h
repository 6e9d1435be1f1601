#pragma once

#include "host/framework/cmd_target.h"

/// A window or a control of a dialog. A CWnd in a dialog class is attached to its control by the
/// dialog's data exchange; until then, and after the dialog was closed, it has no window and its
/// operations do nothing. Nothing here fails.
class CWnd : public CCmdTarget
{
public:
    /// The host's own side of a window or control, which only a host defines.
    class Native;

    /// Sets whether the user can operate the control.
    void EnableWindow(bool enable);

    /// For the host: sets which window this is from now on; null for none. The host owns it, and
    /// sets null before it destroys it.
    void Attach(Native* window) { m_window = window; }

protected:
    /// For the host: the window that is attached, or null.
    [[nodiscard]] Native* Window() const { return m_window; }

private:
    Native* m_window = nullptr;
};

/// A check box, radio button or push button.
class CButton : public CWnd
{
public:
    /// Returns whether the button is checked; false also when no button is attached.
    [[nodiscard]] bool GetCheck() const;

    /// Checks or clears the button; its dialog gets no message. Other radio buttons stay as they
    /// are.
    void SetCheck(bool checked);
};
