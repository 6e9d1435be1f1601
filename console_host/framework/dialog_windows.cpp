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
    void SetEnabled(bool enabled) override { EnableWindow(m_window, enabled ? TRUE : FALSE); }

private:
    HWND m_window;
};

/// Pixels that a check box or radio button needs beside its text.
int MarkWidth()
{
    constexpr int Gap = 8;
    return GetSystemMetrics(SM_CXMENUCHECK) + Gap;
}

int TextWidth(HWND control)
{
    wchar_t text[256];
    const int length = GetWindowTextW(control, text, 256);
    HDC device = GetDC(control);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages answer with integers
    auto* font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
    HGDIOBJ before = SelectObject(device, font);
    SIZE size = {};
    GetTextExtentPoint32W(device, text, length, &size);
    SelectObject(device, before);
    ReleaseDC(control, device);
    return size.cx;
}

/// Widens a check box or radio button, and its dialog, where the system's font replaces the
/// template's and is so wide that the text would be cut.
BOOL CALLBACK MakeRoom(HWND control, LPARAM dialogHandle)
{
    const LONG kind = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    if ((code & DLGC_BUTTON) == 0 || (kind != BS_AUTOCHECKBOX && kind != BS_AUTORADIOBUTTON))
        return TRUE;
    RECT place = {};
    GetWindowRect(control, &place);
    const int missing = TextWidth(control) + MarkWidth() - (place.right - place.left);
    if (missing <= 0)
        return TRUE;
    constexpr UINT onlySize = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(control, nullptr, 0, 0, place.right - place.left + missing,
                 place.bottom - place.top, onlySize);

    constexpr int Margin = 8;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry integers
    HWND dialog = reinterpret_cast<HWND>(dialogHandle);
    RECT frame = {};
    GetWindowRect(dialog, &frame);
    const int beyond = place.right + missing + Margin - frame.right;
    if (beyond > 0)
        SetWindowPos(dialog, nullptr, 0, 0, frame.right - frame.left + beyond,
                     frame.bottom - frame.top, onlySize);
    return TRUE;
}

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
            // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry integers
            reinterpret_cast<ResourceDialog*>(lParam)->Open(window);
            return TRUE;
        }
        // NOLINTNEXTLINE(performance-no-int-to-ptr): kept as one
        auto* dialog = reinterpret_cast<ResourceDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        return dialog != nullptr && dialog->Handle(message, wParam) ? TRUE : FALSE;
    }

    void Open(HWND window)
    {
        m_window = window;
        EnumChildWindows(window, &MakeRoom, reinterpret_cast<LPARAM>(window));
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
