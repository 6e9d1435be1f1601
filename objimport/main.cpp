#include "objimport/platform.h"
#include "objimport/program.h"
#include "objimport/program_error.h"

#include <exception>

namespace {

int RunAndTellErrors(int count, char** arguments)
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

} // namespace

int main(int count, char** arguments)
{
    const int status = RunAndTellErrors(count, arguments);
    WaitInOwnWindow();
    return status;
}
