#include "console_host/program/platform.h"

#include <csignal>

std::vector<std::string> ProgramArguments(int count, char** arguments)
{
    return {arguments + (count > 0 ? 1 : 0), arguments + count};
}

StandardStreams::StandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
}

StandardStreams::~StandardStreams() = default;
