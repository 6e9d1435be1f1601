#pragma once

#include <string>
#include <vector>

/// A program that runs in a terminal of its own, with the test in place of its user.
class PseudoTerminal
{
public:
    /// Starts a program with its arguments, in a terminal with so many columns.
    explicit PseudoTerminal(std::vector<std::string> command, unsigned short columns = 80);
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal();

    /// Returns what the program shows up to and with the text, from where the last call stopped.
    /// Fails the test when the text does not come within a minute; without a text waits for the
    /// end.
    std::string ShownUpTo(const std::string& text);

    /// Types as a person does; "\n" is Enter.
    void Type(const std::string& keys) const;

    /// Waits for the program's end and returns its exit status, or -1.
    int ExitStatus();

private:
    bool ReadMore();

    int m_terminal = -1;
    int m_process = -1;
    std::string m_shown;
};
