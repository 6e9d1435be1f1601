#include "tests/terminal/pseudo_terminal.h"

#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

[[noreturn]] void RunIn(const char* terminalName, std::vector<char*>& arguments)
{
    setsid();
    // The first terminal that a new session opens becomes its own.
    const int terminal = open(terminalName, O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(terminal, stream);
    execv(arguments.front(), arguments.data());
    _exit(127);
}

} // namespace

PseudoTerminal::PseudoTerminal(std::vector<std::string> command)
    : m_terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
{
    if (m_terminal < 0 || grantpt(m_terminal) != 0 || unlockpt(m_terminal) != 0) {
        ADD_FAILURE() << "there is no pseudo-terminal";
        return;
    }
    const std::string name = ptsname(m_terminal);
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    m_process = fork();
    if (m_process == 0)
        RunIn(name.c_str(), arguments);
}

PseudoTerminal::~PseudoTerminal()
{
    close(m_terminal); // hangs up, which ends a program that still runs
    ExitStatus();
}

bool PseudoTerminal::ReadMore()
{
    constexpr int Patience = 60000;
    pollfd readable{m_terminal, POLLIN, 0};
    if (poll(&readable, 1, Patience) <= 0)
        return false;
    char bytes[4096];
    const ssize_t count = read(m_terminal, bytes, sizeof bytes);
    if (count <= 0)
        return false; // the program has ended
    m_shown.append(bytes, static_cast<std::size_t>(count));
    return true;
}

std::string PseudoTerminal::ShownUpTo(const std::string& text)
{
    std::size_t at = std::string::npos;
    while (text.empty() || (at = m_shown.find(text)) == std::string::npos) {
        if (ReadMore())
            continue;
        EXPECT_TRUE(text.empty()) << "not shown: " << text << "\nbut:\n" << m_shown;
        return std::exchange(m_shown, {});
    }
    std::string shown = m_shown.substr(0, at + text.size());
    m_shown.erase(0, shown.size());
    return shown;
}

void PseudoTerminal::Type(const std::string& keys) const
{
    EXPECT_EQ(write(m_terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

int PseudoTerminal::ExitStatus()
{
    if (m_process <= 0)
        return -1;
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
