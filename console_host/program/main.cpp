#include "console_host/program/platform.h"
#include "console_host/program/program.h"
#include "console_host/program/program_error.h"

#include <exception>

int main(int count, char** arguments)
{
    try {
        const StandardStreams streams;
        RemoveUnfinishedFilesAtTheEnd();
        return RunProgram(ProgramArguments(count, arguments));
    } catch (const std::exception& failure) {
        TellError(failure.what());
        return 2;
    }
}
