#include "tests/program/process.h"

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

ProcessResult RunObjimport(const std::vector<std::string>& arguments, const std::string& outputFile)
{
    const TemporaryFolder folder;
    const std::string output = Utf8(folder.Path() / "output");
    const std::string errors = Utf8(folder.Path() / "errors");
    std::string line = Quoted(OBJIMPORT);
    for (const std::string& argument : arguments)
        line += ' ' + Quoted(argument);
    line += " >" + Quoted(outputFile.empty() ? output : outputFile) + " 2>" + Quoted(errors);

    ProcessResult result;
    result.status = RunLine(line);
    result.output = outputFile.empty() ? folder.Read("output") : "";
    result.errors = folder.Read("errors");
    return result;
}
