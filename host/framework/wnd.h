#pragma once

#include "host/framework/cmd_target.h"

/// The host's own side of a window or control; a module never looks into it.
class NativeControl;

/// A window or a control of a dialog. A CWnd in a dialog class is attached to its control by the
/// dialog's data exchange; until then, and after the dialog was closed, it stands for no window and
/// its operations do nothing.
class CWnd : public CCmdTarget
{
public:
    /// Lets the user operate the control, or not.
    void EnableWindow(bool enable);

    /// False also when no window is attached.
    [[nodiscard]] bool IsWindowEnabled() const;

    /// For the host: which window this is from now on; null for none. The host owns it.
    void Attach(NativeControl* control) { m_control = control; }

protected:
    [[nodiscard]] NativeControl* Control() const { return m_control; }

private:
    NativeControl* m_control = nullptr;
};

/// A check box, radio button or push button.
class CButton : public CWnd
{
public:
    /// Whether the button is checked; false also when no button is attached.
    [[nodiscard]] bool GetCheck() const;

    /// Checks or clears the button; its dialog gets no message. Other radio buttons stay as they
    /// are.
    void SetCheck(bool checked);
};
