#include "console_host/framework/native_dialog.h"
#include "console_host/framework/native_windows.h"

#include "host/framework/dialog.h"

#include <map>
#include <string>
#include <windows.h>

namespace {

class ControlWindow final : public NativeControl
{
public:
    explicit ControlWindow(HWND window) : m_window(window) {}

    [[nodiscard]] bool Checked() const override
    {
        return SendMessageW(m_window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void SetChecked(bool checked) override
    {
        SendMessageW(m_window, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    [[nodiscard]] bool Enabled() const override { return IsWindowEnabled(m_window) != FALSE; }
    void SetEnabled(bool enabled) override { EnableWindow(m_window, enabled ? TRUE : FALSE); }

private:
    HWND m_window;
};

/// A dialog from the resources of a module.
class ResourceDialog final : public NativeDialog
{
public:
    ResourceDialog(HMODULE module, int templateId, NativeDialogOwner& owner)
        : m_module(module), m_templateId(templateId), m_owner(owner)
    {
    }

    int Run() override
    {
        const INT_PTR result =
            DialogBoxParamW(m_module, MAKEINTRESOURCEW(m_templateId), GetActiveWindow(),
                            &ResourceDialog::Procedure, reinterpret_cast<LPARAM>(this));
        return m_window != nullptr ? static_cast<int>(result) : DialogNotShown;
    }

    NativeControl* Find(int controlId) override
    {
        const auto known = m_controls.find(controlId);
        if (known != m_controls.end())
            return &known->second;
        HWND window = GetDlgItem(m_window, controlId);
        return window != nullptr ? &m_controls.try_emplace(controlId, window).first->second
                                 : nullptr;
    }

    void End(int result) override { ::EndDialog(m_window, result); }

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, GWLP_USERDATA, lParam);
            reinterpret_cast<ResourceDialog*>(lParam)->Open(window);
            return TRUE;
        }
        auto* dialog = reinterpret_cast<ResourceDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return dialog != nullptr && dialog->Handle(message, wParam) ? TRUE : FALSE;
    }

    void Open(HWND window)
    {
        m_window = window;
        Center();
        m_owner.OnOpen();
        SetForegroundWindow(window);
    }

    bool Handle(UINT message, WPARAM wParam)
    {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
            m_owner.OnMessage(WindowMessage::Click, LOWORD(wParam));
            return true;
        }
        if (message == WM_HELP) {
            m_owner.OnMessage(WindowMessage::HelpRequest, 0);
            return true;
        }
        return false;
    }

    void Center()
    {
        RECT area = {};
        RECT place = {};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
        GetWindowRect(m_window, &place);
        const int x = (area.left + area.right - (place.right - place.left)) / 2;
        const int y = (area.top + area.bottom - (place.bottom - place.top)) / 2;
        SetWindowPos(m_window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    HMODULE m_module;
    int m_templateId;
    NativeDialogOwner& m_owner;
    HWND m_window = nullptr;
    std::map<int, ControlWindow> m_controls;
};

} // namespace

std::unique_ptr<NativeDialog> MakeNativeDialog(const CModuleState& module, int templateId,
                                               NativeDialogOwner& owner)
{
    HMODULE handle = nullptr;
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    const auto* address = static_cast<const wchar_t*>(module.AddressInModule());
    if (GetModuleHandleExW(flags, address, &handle) == FALSE)
        return nullptr;
    return std::make_unique<ResourceDialog>(handle, templateId, owner);
}
