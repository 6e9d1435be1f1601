#include "host/framework/wnd.h"

#include "console_host/framework/native_dialog.h"

bool CCmdTarget::Dispatch(WindowMessage message, int controlId)
{
    for (const MessageMapEntry& entry : MessageMap()) {
        if (entry.message == message && entry.controlId == controlId) {
            (this->*entry.handler)();
            return true;
        }
    }
    return false;
}

void CWnd::EnableWindow(bool enable)
{
    if (m_control != nullptr)
        m_control->SetEnabled(enable);
}

bool CWnd::IsWindowEnabled() const
{
    return m_control != nullptr && m_control->Enabled();
}

bool CButton::GetCheck() const
{
    return Control() != nullptr && Control()->Checked();
}

void CButton::SetCheck(bool checked)
{
    if (Control() != nullptr)
        Control()->SetChecked(checked);
}
