#include "console_host/framework/native_windows.h"

#include <string>
#include <windows.h>

namespace {

constexpr int TextControlId = 100;
constexpr int Margin = 8;
constexpr SIZE ButtonSize = {88, 26};

/// A dialog template without controls: they are made when it opens, to fill the window.
struct alignas(4) EmptyTemplate
{
    DLGTEMPLATE dialog = {
        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_SETFONT, 0, 0, 0, 0, 300, 220};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD caption = 0;
    WORD pointSize = 9;
    wchar_t font[13] = L"MS Shell Dlg";
};

struct TextWindow
{
    std::wstring text;
    std::wstring caption;
};

void Arrange(HWND window)
{
    RECT area = {};
    GetClientRect(window, &area);
    const int textHeight = area.bottom - ButtonSize.cy - 3 * Margin;
    MoveWindow(GetDlgItem(window, TextControlId), Margin, Margin, area.right - 2 * Margin,
               textHeight, TRUE);
    MoveWindow(GetDlgItem(window, IDOK), (area.right - ButtonSize.cx) / 2, textHeight + 2 * Margin,
               ButtonSize.cx, ButtonSize.cy, TRUE);
}

HWND AddControl(HWND window, const wchar_t* className, const wchar_t* text, DWORD style, int id)
{
    HWND control = CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style,
                                   0, 0, 0, 0, window, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(control, GWLP_ID, id);
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window, WM_GETFONT, 0, 0)),
                 TRUE);
    return control;
}

void Open(HWND window, const TextWindow& content)
{
    SetWindowTextW(window, content.caption.c_str());
    constexpr DWORD textStyle =
        WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;
    AddControl(window, L"EDIT", content.text.c_str(), textStyle, TextControlId);
    HWND button = AddControl(window, L"BUTTON", L"Close", BS_DEFPUSHBUTTON, IDOK);
    Arrange(window);
    SetFocus(button);
}

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry integers
        Open(window, *reinterpret_cast<const TextWindow*>(lParam));
        return FALSE;
    case WM_SIZE:
        Arrange(window);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
            EndDialog(window, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

std::wstring WithPlatformLineEnds(std::wstring_view text)
{
    std::wstring result;
    for (const wchar_t character : text) {
        if (character == L'\n')
            result += L'\r';
        result += character;
    }
    return result;
}

} // namespace

bool CanShowWindows()
{
    return true;
}

void ShowMessageWindow(std::wstring_view text, std::wstring_view caption, unsigned int flags)
{
    MessageBoxW(GetActiveWindow(), std::wstring(text).c_str(), std::wstring(caption).c_str(),
                flags);
}

void ShowTextWindow(std::wstring_view text, std::wstring_view caption)
{
    const TextWindow content = {WithPlatformLineEnds(text), std::wstring(caption)};
    const EmptyTemplate empty;
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &empty.dialog, GetActiveWindow(), &Procedure,
                            reinterpret_cast<LPARAM>(&content));
}
