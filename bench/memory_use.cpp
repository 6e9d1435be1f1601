#include "bench/memory_use.h"

#include <cstdio>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

/// A figure of /proc/self/status, in bytes.
double StatusBytes(std::string_view field)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.starts_with(field))
            return std::stod(line.substr(field.size() + 1)) * 1024.0;
    throw std::runtime_error("/proc/self/status does not tell " + std::string(field));
}

} // namespace

void PrintGrowth(std::string_view readerName, unsigned threadCount, const std::string& path)
{
    for (const NamedReader& candidate : Readers(threadCount)) {
        if (candidate.name != readerName)
            continue;
        const auto reader = candidate.make();
        reader->Prepare(path);
        const double before = StatusBytes("VmRSS");
        reader->Read(path);
        std::cout << StatusBytes("VmHWM") - before << "\n";
        return;
    }
    throw std::runtime_error("no such reader: " + std::string(readerName));
}

double MeasureGrowth(std::string_view reader, unsigned threadCount, const std::string& path)
{
    const std::string command = "/proc/$PPID/exe " + std::string(GrowthOption) + " " +
                                std::string(reader) + " " + std::to_string(threadCount) + " '" +
                                path + "'";
    std::FILE* output = popen(command.c_str(), "r");
    double growth = -1.0;
    const bool read = output != nullptr && std::fscanf(output, "%lf", &growth) == 1;
    if (output == nullptr || pclose(output) != 0 || !read)
        throw std::runtime_error("the memory of " + std::string(reader) + " cannot be measured");
    return growth;
}
