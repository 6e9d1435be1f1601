#include "plugin/dialog_table.h"
#include "tests/dialog/dialog_driver.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Starts a program, with the write end of a pipe as its standard output when one is given. It ends
/// with this one, however that ends.
pid_t StartProgram(const std::vector<std::string>& command, int output = -1)
{
    std::vector<char*> words;
    for (const std::string& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("no process for " + command.front());
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (output >= 0)
            dup2(output, STDOUT_FILENO);
        execvp(words.front(), words.data());
        _exit(127);
    }
    return child;
}

/// Returns the standard output of a command; empty also when the command failed.
std::string Output(const std::string& command)
{
    std::FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::string text;
    std::array<char, 256> part{};
    while (std::fgets(part.data(), static_cast<int>(part.size()), pipe) != nullptr)
        text += part.data();
    pclose(pipe);
    return text;
}

/// For programs that are built with a leak checker.
constexpr const char* LeakOptions =
    "print_suppressions=0:suppressions=" PROJECT_FOLDER "/tests/dialog/library_leaks.txt";

/// A screen of the test's own.
class TestScreen
{
public:
    TestScreen()
    {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            throw std::runtime_error("no pipe");
        m_server = StartProgram({"Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp",
                                 "-screen", "0", "1024x768x24"},
                                ends[1]);
        close(ends[1]);
        std::string number;
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';)
            number += digit;
        close(ends[0]);
        if (number.empty())
            throw std::runtime_error("Xvfb does not start");
        setenv("DISPLAY", (":" + number).c_str(), 1);
        setenv("LSAN_OPTIONS", LeakOptions, 1);
    }
    TestScreen(const TestScreen&) = delete;
    TestScreen& operator=(const TestScreen&) = delete;
    ~TestScreen()
    {
        kill(m_server, SIGTERM);
        waitpid(m_server, nullptr, 0);
    }

private:
    pid_t m_server = -1;
};

const char* KeyName(Key key)
{
    static const std::map<Key, const char*> Names = {
        {Key::Tab, "Tab"},       {Key::ShiftTab, "shift+Tab"},
        {Key::Space, "space"},   {Key::Up, "Up"},
        {Key::Down, "Down"},     {Key::Enter, "Return"},
        {Key::Escape, "Escape"}, {Key::F1, "F1"}};
    return Names.at(key);
}

/// Sends real mouse and key events through the X server.
class XdotoolDriver final : public DialogDriver
{
public:
    explicit XdotoolDriver(const std::vector<std::string>& arguments)
    {
        std::vector<std::string> command = {BUILD_FOLDER "/bin/objimport"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        m_program = StartProgram(command);
    }
    XdotoolDriver(const XdotoolDriver&) = delete;
    XdotoolDriver& operator=(const XdotoolDriver&) = delete;
    ~XdotoolDriver() override
    {
        if (m_program > 0) {
            kill(m_program, SIGKILL);
            waitpid(m_program, nullptr, 0);
        }
    }

    void WaitForWindow(const std::string& title) override
    {
        const std::string search = "xdotool search --onlyvisible --name '^" + title + "$'";
        WaitUntil(
            [&] {
                m_window = Output(search);
                return !m_window.empty();
            },
            "window " + title);
        m_window.resize(m_window.find('\n'));
        Tool("windowfocus " + m_window);
    }

    void Click(int controlId) override
    {
        const DialogTemplate& dialog = ImportOBJDialogs().front();
        const auto control =
            std::find_if(dialog.controls.begin(), dialog.controls.end(),
                         [=](const DialogControl& candidate) { return candidate.id == controlId; });
        if (control == dialog.controls.end())
            throw std::runtime_error("the dialog has no such control");
        const std::string size = Output("xdotool getwindowgeometry --shell " + m_window);
        const auto number = [&size](const char* name) {
            return std::stoi(size.substr(size.find(name) + std::string(name).size()));
        };
        const int x = (control->place.x + 5) * number("WIDTH=") / dialog.width;
        const int y = (2 * control->place.y + control->place.height) * number("HEIGHT=") /
                      (2 * dialog.height);
        Tool("mousemove --window " + m_window + " " + std::to_string(x) + " " + std::to_string(y) +
             " click 1");
    }

    void Press(const std::vector<Key>& keys) override
    {
        for (const Key key : keys)
            Tool(std::string("key ") + KeyName(key));
    }

    void CloseWindow() override
    {
        // What a window manager sends for a click on the close box.
        Display* display = XOpenDisplay(nullptr);
        XEvent event = {};
        event.xclient.type = ClientMessage;
        event.xclient.window = std::stoul(m_window);
        event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        event.xclient.format = 32;
        event.xclient.data.l[0] =
            static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
        XSendEvent(display, event.xclient.window, False, NoEventMask, &event);
        XCloseDisplay(display);
    }

    int Wait() override
    {
        int status = 0;
        WaitUntil([&] { return waitpid(m_program, &status, WNOHANG) != 0; },
                  "the end of the program");
        m_program = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    static void Tool(const std::string& arguments)
    {
        if (std::system(("xdotool " + arguments).c_str()) != 0)
            throw std::runtime_error("xdotool failed: " + arguments);
    }

    pid_t m_program = -1;
    std::string m_window;
};

} // namespace

std::unique_ptr<DialogDriver> DialogDriver::Start(const std::vector<std::string>& arguments)
{
    static const TestScreen TheScreen;
    return std::make_unique<XdotoolDriver>(arguments);
}
