#include "console_host/framework/resource_compiler/script.h"
#include "console_host/framework/resource_compiler/writer.h"

#include <exception>
#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::cerr << "usage: resource_compiler SCRIPT FUNCTION OUTPUT\n";
        return 2;
    }
    try {
        const std::vector<ScriptDialog> dialogs = ReadResourceScript(argv[1]);
        std::ofstream out(argv[3]);
        WriteDialogTable(out, dialogs, argv[2]);
        out.close();
        if (out)
            return 0;
        std::cerr << argv[3] << ": cannot be written\n";
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 1;
}
