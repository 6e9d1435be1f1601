#pragma once

#include "host/framework/wnd.h"

/// How a dialog ended, beside the ids of buttons of its own.
enum DialogResult : int
{
    DialogOK = 1,
    DialogCancel = 2,
    DialogNotShown = -1 ///< there is no such template, or nowhere to show a window
};

class CDataExchange;

/// A modal dialog, made from a dialog template of the module whose state is current while DoModal
/// runs. The module owns the object, one for one showing at a time. DoModal calls the operations
/// below on the user-interface thread: OnInitDialog first, then handlers of the message map, OnOK
/// or OnCancel as the user goes. They should not throw: between them and DoModal is the platform's
/// window system, which need not let exceptions pass.
class CDialog : public CWnd
{
public:
    /// `parent` is the window over which the dialog appears, which must outlive it; null for none.
    CDialog(int templateId, CWnd* parent);

    /// Shows the dialog, waits until it is closed and returns the id with which it was closed
    /// (DialogOK for OK; DialogCancel for Cancel, the Escape key and the close box). Returns
    /// DialogNotShown at once, without calling anything, when there is no such template, no
    /// module's state is current, or no window can be shown. Throws std::bad_alloc when out of
    /// memory.
    virtual int DoModal();

protected:
    /// Moves values between fields and controls, in the direction the exchange has, and attaches
    /// control objects.
    virtual void DoDataExchange(CDataExchange& exchange);

    /// Called before the dialog appears; fills the controls. Returns true when the first control in
    /// tab order is to have the focus.
    virtual bool OnInitDialog();

    /// Called for OK; moves the controls' values into the fields and closes the dialog with
    /// DialogOK.
    virtual void OnOK();

    /// Called for Cancel; closes the dialog with DialogCancel.
    virtual void OnCancel();

    /// Runs the data exchange: into the fields when `save` is true, otherwise into the controls.
    /// Does nothing while the dialog is not shown.
    void UpdateData(bool save);

    /// Closes the dialog with the given result; does nothing while the dialog is not shown.
    void EndDialog(int result);

private:
    class Showing; // the host's own
    friend class CDataExchange;

    int m_templateId;
    Showing* m_showing = nullptr; ///< for the host alone
};

/// One exchange of values between a dialog's fields and its controls. The host makes it for one
/// call of DoDataExchange. A control that the dialog's template lacks is ignored.
class CDataExchange
{
public:
    CDataExchange(CDialog& dialog, bool save) : m_dialog(dialog), m_save(save) {}

    /// Attaches a control object, which must live until the dialog is closed, to the dialog's
    /// control of that id.
    void Control(int controlId, CWnd& object);

    /// Moves the value of a check box: 1 checked, 0 clear. Into the control, any value but 0 checks
    /// it.
    void Check(int controlId, int& value);

private:
    CDialog& m_dialog;
    bool m_save;
};
