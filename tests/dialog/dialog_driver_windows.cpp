#include "tests/dialog/dialog_driver.h"

#include "host/geokit/string.h"

#include <map>
#include <stdexcept>
#include <windows.h>

namespace {

std::wstring CommandText(const std::vector<std::string>& arguments)
{
    const GK_wString folder(std::string_view(BUILD_FOLDER));
    std::wstring text = L"\"" + std::wstring(folder.View()) + L"/bin/objimport.exe\"";
    for (const std::string& argument : arguments)
        text += L" \"" + std::wstring(GK_wString(std::string_view(argument)).View()) + L"\"";
    return text;
}

WORD VirtualKey(Key key)
{
    static const std::map<Key, WORD> Keys = {
        {Key::Tab, VK_TAB},   {Key::ShiftTab, VK_TAB}, {Key::Space, VK_SPACE},   {Key::Up, VK_UP},
        {Key::Down, VK_DOWN}, {Key::Enter, VK_RETURN}, {Key::Escape, VK_ESCAPE}, {Key::F1, VK_F1}};
    return Keys.at(key);
}

void SendKey(WORD code, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

/// Presses a key while another one (0: none) is held down.
void PressKey(WORD code, WORD held = 0)
{
    if (held != 0)
        SendKey(held, 0);
    SendKey(code, 0);
    SendKey(code, KEYEVENTF_KEYUP);
    if (held != 0)
        SendKey(held, KEYEVENTF_KEYUP);
}

/// Clicks at a place of the screen. Press and release state the place again: a pointer that the
/// system itself moves meanwhile, as when a window opens below it, does not take the click
/// elsewhere.
void ClickAt(POINT place)
{
    constexpr LONG Whole = 65536; // an absolute place is a fraction of the screen
    INPUT input = {};
    input.type = INPUT_MOUSE;
    const LONG width = GetSystemMetrics(SM_CXSCREEN);
    const LONG height = GetSystemMetrics(SM_CYSCREEN);
    input.mi.dx = (place.x * Whole + Whole / 2) / width;
    input.mi.dy = (place.y * Whole + Whole / 2) / height;
    for (const DWORD action : {DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
        input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | action;
        SendInput(1, &input, sizeof(input));
    }
}

/// A dialog or message box of that title.
struct WindowSearch
{
    std::wstring title;
    HWND found = nullptr;
};

/// Titles are compared with case, unlike FindWindow does.
BOOL CALLBACK IsTheWindow(HWND window, LPARAM searchAddress)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry integers
    auto& search = *reinterpret_cast<WindowSearch*>(searchAddress);
    wchar_t title[256];
    const int length = GetWindowTextW(window, title, 256);
    if (search.title != std::wstring_view(title, static_cast<std::size_t>(length)))
        return TRUE;
    search.found = window;
    return FALSE;
}

/// Sends the input of mouse and keyboard, of which the system makes the messages to the controls.
class InputDriver final : public DialogDriver
{
public:
    explicit InputDriver(const std::vector<std::string>& arguments)
    {
        std::wstring command = CommandText(arguments);
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &startup, &m_process) == FALSE)
            throw std::runtime_error("objimport does not start");
    }
    InputDriver(const InputDriver&) = delete;
    InputDriver& operator=(const InputDriver&) = delete;
    ~InputDriver() override
    {
        TerminateProcess(m_process.hProcess, 1);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }

    void WaitForWindow(const std::string& title) override
    {
        const GK_wString name{std::string_view(title)};
        WaitUntil(
            [&] {
                WindowSearch search{std::wstring(name.View())};
                EnumWindows(&IsTheWindow, reinterpret_cast<LPARAM>(&search));
                m_window = search.found;
                return m_window != nullptr && IsWindowVisible(m_window) != FALSE &&
                       IsWindowEnabled(m_window) != FALSE && GetForegroundWindow() == m_window &&
                       HasKeyboard();
            },
            "window " + title);
    }

    void Click(int controlId) override
    {
        HWND control = GetDlgItem(m_window, controlId);
        RECT area = {};
        if (control == nullptr || GetWindowRect(control, &area) == FALSE)
            throw std::runtime_error("the dialog has no such control");
        ClickAt({area.left + 5, (area.top + area.bottom) / 2});
    }

    void Press(const std::vector<Key>& keys) override
    {
        for (const Key key : keys)
            PressKey(VirtualKey(key), key == Key::ShiftTab ? VK_SHIFT : 0);
    }

    void CloseWindow() override { PressKey(VK_F4, VK_MENU); }

    int Wait() override
    {
        WaitUntil([&] { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; },
                  "the end of the program");
        DWORD status = 0;
        GetExitCodeProcess(m_process.hProcess, &status);
        return static_cast<int>(status);
    }

private:
    /// Returns whether a control of the window turned to has the keyboard.
    [[nodiscard]] bool HasKeyboard() const
    {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(m_window, nullptr), &info);
        return info.hwndFocus != nullptr && GetAncestor(info.hwndFocus, GA_ROOT) == m_window;
    }

    PROCESS_INFORMATION m_process = {};
    HWND m_window = nullptr;
};

} // namespace

std::unique_ptr<DialogDriver> DialogDriver::Start(const std::vector<std::string>& arguments)
{
    return std::make_unique<InputDriver>(arguments);
}
