// Names chosen to fall on one place of the standard library's hash table cost no more than others.

#include "tests/temporary_folder.h"
#include "tests/whole/session.h"
#include "tests/work_of.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <random>

#ifdef __GLIBCXX__
namespace {

// The hash of libstdc++, MurmurHash64A, mixes 8 bytes after the other into its state; each step can
// be undone. So for any 8 bytes others can be found that lead to a state that was chosen before.

constexpr std::uint64_t Factor = 0xC6A4A7935BD1E995;
constexpr std::uint64_t Inverse = 0x5F7A0EA7E59B19BD; // of the factor
static_assert(Factor * Inverse == 1);

std::uint64_t Shifted(std::uint64_t value)
{
    return value ^ (value >> 47);
}

std::uint64_t Mixed(std::uint64_t bytes)
{
    return Shifted(bytes * Factor) * Factor;
}

std::uint64_t Unmixed(std::uint64_t mixed)
{
    return Shifted(mixed * Inverse) * Inverse;
}

using Eight = std::array<char, 8>;

Eight Text(std::uint64_t bytes)
{
    Eight text{};
    std::memcpy(text.data(), &bytes, sizeof bytes);
    return text;
}

bool IsPlain(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           (c > '#' && c < '/') || c == '_';
}

std::string RandomName(std::size_t size, std::mt19937_64& random)
{
    std::string name;
    while (name.size() < size)
        if (const char c = static_cast<char>(random() % 128); IsPlain(c))
            name += c;
    return name;
}

// Texts of 16 characters that all turn one state into another, `target` times the factor.
std::vector<std::string> Steps(std::uint64_t state, std::uint64_t target, std::size_t count,
                               std::mt19937_64& random)
{
    std::vector<std::string> steps;
    while (steps.size() < count) {
        const std::string first = RandomName(8, random);
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, first.data(), sizeof bytes);
        const Eight second = Text(Unmixed(((state ^ Mixed(bytes)) * Factor) ^ target));
        if (std::all_of(second.begin(), second.end(), IsPlain))
            steps.push_back(first + std::string(second.begin(), second.end()));
    }
    return steps;
}

constexpr std::size_t NameSize = 32;
constexpr std::size_t StepCount = 80;
constexpr std::size_t NameCount = StepCount * StepCount;

std::vector<std::string> CollidingNames()
{
    constexpr std::uint64_t Seed = 0xC70F6907;
    constexpr std::uint64_t Target = 1; // any
    std::mt19937_64 random(1);
    const auto first = Steps(Seed ^ (NameSize * Factor), Target, StepCount, random);
    const auto second = Steps(Target * Factor, Target, StepCount, random);
    std::vector<std::string> names;
    for (const std::string& begin : first)
        for (const std::string& end : second)
            names.push_back(begin + end);
    return names;
}

std::vector<std::string> RandomNames()
{
    std::mt19937_64 random(2);
    std::vector<std::string> names(NameCount);
    for (std::string& name : names)
        name = RandomName(NameSize, random);
    return names;
}

std::string Lines(const std::string& begin, const std::vector<std::string>& names, const char* end)
{
    std::string lines;
    for (const std::string& name : names)
        lines.append(begin).append(name).append(end);
    return lines;
}

TEST(NameCollisions, CostNoMoreThanOtherNames)
{
    const std::vector<std::string> colliding = CollidingNames();
    const std::vector<std::string> random = RandomNames();
    const std::hash<std::string> hash;
    for (const std::string& name : colliding)
        ASSERT_EQ(hash(name), hash(colliding[0]));
    const struct
    {
        const char* statement;
        const char* switches;
        int (*count)(const ConsoleDoc&);
    } kinds[] = {
        {"g ", "--groups groups", [](const ConsoleDoc& doc) { return doc.Groups().Count(); }},
        {"g ", "--groups layers", [](const ConsoleDoc& doc) { return doc.Layers().Count() - 1; }},
        {"g ", "--groups names", [](const ConsoleDoc& doc) { return doc.ObjectCount() / 2; }},
        {"o ", "--object-names", [](const ConsoleDoc& doc) { return doc.ObjectCount() / 2; }},
        {"usemtl ", "", [](const ConsoleDoc& doc) { return doc.Materials().Count(); }},
    };
    for (const auto& kind : kinds) {
        const auto workOf = [&](const std::vector<std::string>& names) {
            const TemporaryFolder folder;
            folder.Write("names.mtl", Lines("newmtl ", names, "\n"));
            const std::string lines = Lines(kind.statement, names, "\np 1\n");
            const auto scene =
                Utf8(folder.Write("scene.obj", "mtllib names.mtl\nv 0 0 0\n" + lines + lines));
            return WorkOf([&] {
                Session session;
                session.SetOptions(kind.switches);
                session.Import(scene);
                EXPECT_EQ(kind.count(session.Doc()), static_cast<int>(NameCount))
                    << kind.statement << kind.switches;
            });
        };
        EXPECT_LT(workOf(colliding), 5.0 * workOf(random)) << kind.statement << kind.switches;
    }
}

} // namespace
#endif
