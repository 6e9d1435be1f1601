#include "tests/objimport/process.h"

#include "tests/temporary_folder.h"

#include <cstdlib>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace {

std::string Quoted(const std::string& argument)
{
#ifdef _WIN32
    return '"' + argument + '"';
#else
    std::string quoted = "'";
    for (const char character : argument)
        quoted += character == '\'' ? "'\\''" : std::string(1, character);
    return quoted + "'";
#endif
}

int RunLine(const std::string& line)
{
#ifdef _WIN32
    // The command interpreter takes the outermost quotes off.
    const std::filesystem::path quoted(std::u8string(line.begin(), line.end()));
    return _wsystem((L'"' + quoted.wstring() + L'"').c_str());
#else
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

} // namespace

ProcessResult RunObjimport(const std::vector<std::string>& arguments, const std::string& outputFile,
                           const std::string& before)
{
    const TemporaryFolder folder;
    const bool toResult = outputFile.empty();
    std::string line = before + Quoted(OBJIMPORT);
    for (const std::string& argument : arguments)
        line += ' ' + Quoted(argument);
    line += " >" + Quoted(toResult ? Utf8(folder.Path() / "output") : outputFile);
    line += " 2>" + Quoted(Utf8(folder.Path() / "errors"));

    const int status = RunLine(line);
    return {status, toResult ? folder.Read("output") : "", folder.Read("errors")};
}
