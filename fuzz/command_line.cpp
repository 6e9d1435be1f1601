// The arguments of the program, one a line.

#include "objimport/command_line.h"

#include "fuzz/own_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    std::vector<std::string> arguments;
    for (std::string_view rest = Text(data, size); !rest.empty();)
        arguments.emplace_back(TakePart(rest, '\n'));
    CommandLine commandLine;
    const std::optional<int> status = commandLine.Read(arguments);
    Expect(!status || *status == 0 || *status == 2);
    Expect(status || commandLine.tolerance > 0.0);
    return 0;
}
