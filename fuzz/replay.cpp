// Runs a fuzz program without the fuzzer: over its seeds, and over texts that are made from them by
// cutting, repeating and overwriting, the same in every run.
//   PROGRAM RUNS FOLDER...

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace {

void RunOne(const std::string& bytes)
{
    // In memory of its exact size, so that reading beyond its end is found.
    const std::vector<unsigned char> exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

std::vector<std::string> ReadSeeds(const std::vector<std::string>& folders)
{
    std::vector<std::string> seeds;
    for (const std::string& folder : folders)
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (!entry.is_regular_file())
                continue;
            std::ifstream stream(entry.path(), std::ios::binary);
            seeds.emplace_back(std::istreambuf_iterator<char>(stream),
                               std::istreambuf_iterator<char>());
        }
    std::sort(seeds.begin(), seeds.end());
    return seeds;
}

class Mutator
{
public:
    void Change(std::string& bytes)
    {
        const std::size_t at = Below(bytes.size() + 1);
        const std::size_t length = Below(std::min<std::size_t>(bytes.size() - at, 64) + 1);
        switch (Below(5)) {
        case 0:
            bytes.resize(at);
            break;
        case 1:
            bytes.erase(at, length);
            break;
        case 2:
            bytes.insert(Below(bytes.size() + 1), bytes.substr(at, length));
            break;
        case 3:
            bytes.insert(at, 1, static_cast<char>(Below(256)));
            break;
        default:
            if (at < bytes.size())
                bytes[at] = static_cast<char>(Below(256));
        }
    }

    std::size_t Below(std::size_t limit) { return m_random() % limit; }

private:
    std::mt19937 m_random{1};
};

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 2)
        return 2;
    const std::vector<std::string> seeds = ReadSeeds({arguments.begin() + 1, arguments.end()});
    if (seeds.empty())
        return 2;
    std::for_each(seeds.begin(), seeds.end(), RunOne);
    Mutator mutator;
    for (long run = std::atol(arguments[0].c_str()); run > 0; --run) {
        std::string bytes = seeds[mutator.Below(seeds.size())];
        for (std::size_t changes = 1 + mutator.Below(4); changes > 0; --changes)
            mutator.Change(bytes);
        RunOne(bytes);
    }
    std::printf("%zu seeds and what was made from them\n", seeds.size());
    return 0;
}
