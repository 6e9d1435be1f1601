#include "host/framework/wnd.h"

#include "console_host/framework/native_dialog.h"

#include <algorithm>
#include <span>

bool CCmdTarget::Dispatch(WindowMessage message, int controlId)
{
    const std::span<const MessageMapEntry> map = MessageMap();
    const auto entry = std::find_if(map.begin(), map.end(), [&](const MessageMapEntry& line) {
        return line.message == message && line.controlId == controlId;
    });
    if (entry == map.end())
        return false;
    (this->*entry->handler)();
    return true;
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
