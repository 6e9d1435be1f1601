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

/// A modal dialog, made from a dialog template of the module whose state is current. One object is
/// for one showing at a time.
class CDialog : public CWnd
{
public:
    /// `parent` may be null: the dialog then belongs to no window.
    CDialog(int templateId, CWnd* parent);

    /// Shows the dialog and waits until it is closed. The id with which it was closed (DialogOK for
    /// OK; DialogCancel for Cancel, the Escape key and the close box), or DialogNotShown.
    virtual int DoModal();

protected:
    /// Moves values between fields and controls, in the direction the exchange has, and attaches
    /// control objects.
    virtual void DoDataExchange(CDataExchange& exchange);

    /// Called before the dialog appears; fills the controls. True: the first control in tab order
    /// gets the focus.
    virtual bool OnInitDialog();

    /// OK: moves the controls' values into the fields and closes the dialog with DialogOK.
    virtual void OnOK();

    /// Cancel: closes the dialog with DialogCancel.
    virtual void OnCancel();

    /// Runs the data exchange: into the fields when `save` is true, otherwise into the controls.
    void UpdateData(bool save);

    /// Closes the dialog with the given result.
    void EndDialog(int result);

private:
    class Session;
    friend class CDataExchange;

    int m_templateId;
    Session* m_session = nullptr; ///< while the dialog is shown
};

/// One exchange of values between a dialog's fields and its controls.
class CDataExchange
{
public:
    CDataExchange(CDialog& dialog, bool save) : m_dialog(dialog), m_save(save) {}

    /// Attaches a control object to the dialog's control of that id.
    void Control(int controlId, CWnd& object);

    /// A check box and its field: 1 checked, 0 clear. Into the control, any value but 0 checks it.
    void Check(int controlId, int& value);

private:
    CDialog& m_dialog;
    bool m_save;
};
