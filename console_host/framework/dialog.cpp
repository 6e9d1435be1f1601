#include "host/framework/dialog.h"

#include "console_host/app/import_journal.h"
#include "console_host/framework/native_windows.h"

#include <algorithm>
#include <vector>

namespace {

const CModuleState*& CurrentState()
{
    static const CModuleState* current = nullptr;
    return current;
}

} // namespace

const CModuleState* CModuleState::Current()
{
    return CurrentState();
}

CModuleStateScope::CModuleStateScope(const CModuleState& state) : m_before(CurrentState())
{
    CurrentState() = &state;
}

CModuleStateScope::~CModuleStateScope()
{
    CurrentState() = m_before;
}

DialogState& Dialogs()
{
    static DialogState state;
    return state;
}

/// One showing of a dialog.
class CDialog::Showing final : public NativeDialogOwner
{
public:
    explicit Showing(CDialog& dialog) : m_dialog(dialog) { dialog.m_showing = this; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    ~Showing() override
    {
        for (CWnd* object : m_attached)
            object->Attach(nullptr);
        m_dialog.m_showing = nullptr;
    }

    int Run()
    {
        if (const CModuleState* module = CModuleState::Current())
            m_native = MakeNativeDialog(*module, m_dialog.m_templateId, *this);
        if (m_native == nullptr)
            return DialogNotShown;
        const int result = m_native->Run();
        if (m_open)
            --Dialogs().open;
        return m_open ? result : DialogNotShown;
    }

    void OnOpen() override
    {
        m_open = true;
        ++Dialogs().open;
        ++Dialogs().shown;
        m_dialog.OnInitDialog();
    }

    void OnMessage(WindowMessage message, int controlId) override
    {
        if (m_dialog.Dispatch(message, controlId) || message != WindowMessage::Click)
            return;
        if (controlId == DialogOK)
            m_dialog.OnOK();
        else if (controlId == DialogCancel)
            m_dialog.OnCancel();
    }

    NativeControl* Find(int controlId) { return m_native->Find(controlId); }
    void End(int result) { m_native->End(result); }

    void Attach(int controlId, CWnd& object)
    {
        object.Attach(Find(controlId));
        m_attached.push_back(&object);
    }

private:
    CDialog& m_dialog;
    std::unique_ptr<NativeDialog> m_native;
    std::vector<CWnd*> m_attached;
    bool m_open = false;
};

CDialog::CDialog(int templateId, CWnd*) : m_templateId(templateId) {}

int CDialog::DoModal()
{
    Showing showing(*this);
    const int result = showing.Run();
    if (result == DialogNotShown)
        ++Dialogs().notShown;
    CurrentJournal().cancelled = result == DialogCancel;
    return result;
}

void CDialog::DoDataExchange(CDataExchange&) {}

bool CDialog::OnInitDialog()
{
    UpdateData(false);
    return true;
}

void CDialog::OnOK()
{
    UpdateData(true);
    EndDialog(DialogOK);
}

void CDialog::OnCancel()
{
    EndDialog(DialogCancel);
}

void CDialog::UpdateData(bool save)
{
    if (m_showing == nullptr)
        return;
    CDataExchange exchange(*this, save);
    DoDataExchange(exchange);
}

void CDialog::EndDialog(int result)
{
    if (m_showing != nullptr)
        m_showing->End(result);
}

void CDataExchange::Control(int controlId, CWnd& object)
{
    if (!m_save)
        m_dialog.m_showing->Attach(controlId, object);
}

void CDataExchange::Check(int controlId, int& value)
{
    NativeControl* control = m_dialog.m_showing->Find(controlId);
    if (control == nullptr)
        return;
    if (m_save)
        value = control->Checked() ? 1 : 0;
    else
        control->SetChecked(value != 0);
}

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

bool CButton::GetCheck() const
{
    return Window() != nullptr && Window()->Checked();
}

void CButton::SetCheck(bool checked)
{
    if (Window() != nullptr)
        Window()->SetChecked(checked);
}
