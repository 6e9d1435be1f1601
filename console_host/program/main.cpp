#include "console_host/program/platform.h"
#include "console_host/program/program.h"

#include <cstdio>
#include <exception>

int main(int count, char** arguments)
{
    try {
        const StandardStreams streams;
        return RunProgram(ProgramArguments(count, arguments));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "objimport: %s\n", failure.what());
        return 2;
    }
}
