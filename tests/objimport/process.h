#pragma once

#include <string>
#include <vector>

/// How a program ended and what it wrote.
struct ProcessResult
{
    int status = -1;
    std::string output;
    std::string errors;
};

/// Runs objimport with arguments in UTF-8, without input. Output goes to `outputFile` when one is
/// given; `before` precedes the program on the shell's line.
ProcessResult RunObjimport(const std::vector<std::string>& arguments,
                           const std::string& outputFile = "", const std::string& before = "");
