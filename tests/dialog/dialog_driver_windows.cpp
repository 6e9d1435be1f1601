#include "tests/dialog/dialog_driver.h"

#include "host/geokit/string.h"

#include <chrono>
#include <functional>
#include <map>
#include <stdexcept>
#include <thread>
#include <windows.h>

namespace {

constexpr auto Patience = std::chrono::seconds(60);
constexpr auto Step = std::chrono::milliseconds(20);

void WaitUntil(const std::function<bool()>& condition, const std::string& what)
{
    const auto end = std::chrono::steady_clock::now() + Patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("this does not come about: " + what);
        std::this_thread::sleep_for(Step);
    }
}

std::wstring CommandText(const std::vector<std::string>& arguments)
{
    std::wstring text = L"\"" + GK_wString(std::string_view(BUILD_FOLDER)).Array() +
                        std::wstring(L"/bin/objimport.exe\"");
    for (const std::string& argument : arguments)
        text += L" \"" + std::wstring(GK_wString(std::string_view(argument)).View()) + L"\"";
    return text;
}

WPARAM VirtualKey(Key key)
{
    static const std::map<Key, WPARAM> Keys = {
        {Key::Tab, VK_TAB},   {Key::ShiftTab, VK_TAB}, {Key::Space, VK_SPACE},   {Key::Up, VK_UP},
        {Key::Down, VK_DOWN}, {Key::Enter, VK_RETURN}, {Key::Escape, VK_ESCAPE}, {Key::F1, VK_F1}};
    return Keys.at(key);
}

/// Sends the messages of mouse and keyboard to the controls.
class MessageDriver final : public DialogDriver
{
public:
    explicit MessageDriver(const std::vector<std::string>& arguments)
    {
        std::wstring command = CommandText(arguments);
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &startup, &m_process) == FALSE)
            throw std::runtime_error("objimport does not start");
    }
    MessageDriver(const MessageDriver&) = delete;
    MessageDriver& operator=(const MessageDriver&) = delete;
    ~MessageDriver() override
    {
        TerminateProcess(m_process.hProcess, 1);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }

    void WaitForWindow(const std::string& title) override
    {
        const std::wstring name(GK_wString(std::string_view(title)).View());
        WaitUntil(
            [&] {
                m_window = FindWindowW(L"#32770", name.c_str());
                return m_window != nullptr && IsWindowVisible(m_window) != FALSE &&
                       IsWindowEnabled(m_window) != FALSE && Focused() != nullptr;
            },
            "window " + title);
    }

    void Click(int controlId) override
    {
        HWND control = GetDlgItem(m_window, controlId);
        if (control == nullptr)
            throw std::runtime_error("the dialog has no such control");
        Settle();
        // The system gives no mouse messages to a control that is disabled.
        if (IsWindowEnabled(control) == FALSE)
            return;
        const LPARAM place = MAKELPARAM(5, 5);
        PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place);
        PostMessageW(control, WM_LBUTTONUP, 0, place);
        Settle();
    }

    void Press(const std::vector<Key>& keys) override
    {
        for (const Key key : keys) {
            if (key == Key::ShiftTab)
                throw std::runtime_error("posted messages have no Shift key");
            const WPARAM code = VirtualKey(key);
            PostMessageW(Focused(), WM_KEYDOWN, code, 1);
            PostMessageW(Focused(), WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
            Settle();
        }
    }

    void CloseWindow() override { PostMessageW(m_window, WM_SYSCOMMAND, SC_CLOSE, 0); }

    int Wait() override
    {
        WaitUntil([&] { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; },
                  "the end of the program");
        DWORD status = 0;
        GetExitCodeProcess(m_process.hProcess, &status);
        return static_cast<int>(status);
    }

private:
    /// The control with the keyboard, in the thread of the window turned to.
    [[nodiscard]] HWND Focused() const
    {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(m_window, nullptr), &info);
        return info.hwndFocus;
    }

    /// Lets the program take what was posted.
    static void Settle() { std::this_thread::sleep_for(std::chrono::milliseconds(150)); }

    PROCESS_INFORMATION m_process = {};
    HWND m_window = nullptr;
};

} // namespace

std::unique_ptr<DialogDriver> DialogDriver::Start(const std::vector<std::string>& arguments)
{
    return std::make_unique<MessageDriver>(arguments);
}
