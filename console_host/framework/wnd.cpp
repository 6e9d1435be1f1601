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
    if (m_window != nullptr)
        m_window->SetEnabled(enable);
}

bool CWnd::IsWindowEnabled() const
{
    return m_window != nullptr && m_window->Enabled();
}

bool CButton::GetCheck() const
{
    return Window() != nullptr && Window()->Checked();
}

void CButton::SetCheck(bool checked)
{
    if (Window() != nullptr)
        Window()->SetChecked(checked);
}
