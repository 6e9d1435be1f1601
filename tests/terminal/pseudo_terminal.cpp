#include "tests/terminal/pseudo_terminal.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

PseudoTerminal::PseudoTerminal(std::vector<std::string> command, unsigned short columns)
{
    std::vector<char*> arguments;
    for (std::string& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const winsize size{24, columns, 0, 0};
    m_process = forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_process == 0) {
        execv(arguments.front(), arguments.data());
        _exit(127);
    }
    EXPECT_GT(m_process, 0) << "there is no pseudo-terminal";
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
