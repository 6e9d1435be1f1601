#include "console_host/framework/work_note.h"
#include "console_host/runtime/file_replacement.h"
#include "objimport/platform.h"
#include "objimport/program_error.h"

#include <csignal>
#include <dlfcn.h>

namespace {

/// Cleans up; the signal then ends the program, as it would have done.
void CleanUp(int signal)
{
    WorkNote::EraseAtTheEnd();
    RemoveUnfinishedFiles();
    std::raise(signal);
}

} // namespace

std::vector<std::string> ProgramArguments(int count, char** arguments)
{
    return {arguments + (count > 0 ? 1 : 0), arguments + count};
}

void RemoveUnfinishedFilesAtTheEnd()
{
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGABRT, SIGALRM, SIGTERM, SIGUSR1, SIGUSR2,
                             SIGXCPU, SIGVTALRM, SIGPROF}) {
        struct sigaction before
        {
        };
        // A signal that the program was started to ignore stays ignored.
        if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler != SIG_DFL)
            continue;
        struct sigaction action
        {
        };
        action.sa_handler = CleanUp;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigaction(signal, &action, nullptr);
    }
}

std::FILE* BinaryStandardInput()
{
    return stdin;
}

StandardStreams::StandardStreams()
{
    // A closed pipe and a file that may not grow are errors like any other.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

StandardStreams::~StandardStreams() = default;

void WaitInOwnWindow() {}

Library::Library(const std::filesystem::path& path, const std::string& what)
    : m_handle(dlopen(path.c_str(), RTLD_NOW))
{
    if (m_handle != nullptr)
        return;
    std::string reason = dlerror();
    if (const std::string start = path.native() + ": "; reason.rfind(start, 0) == 0)
        reason.erase(0, start.size());
    throw ProgramError("cannot load the " + what + " " + path.native() + ": " + reason);
}

Library::~Library()
{
    dlclose(m_handle);
}

Library::Function Library::Find(const char* name) const
{
    return reinterpret_cast<Function>(dlsym(m_handle, name));
}
