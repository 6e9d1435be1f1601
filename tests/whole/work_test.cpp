// The work of an import grows with its file, and with its folder, but not with their square.

#include "tests/temporary_folder.h"
#include "tests/whole/session.h"
#include "tests/work_of.h"

#include <gtest/gtest.h>

namespace {

std::string Counted(const std::string& begin, int count, const std::string& end)
{
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines.append(begin).append(std::to_string(i)).append(end);
    return lines;
}

struct Kind
{
    const char* what;
    int count; ///< of lines, in the smaller file
    std::string (*scene)(int count);
    int files = 0; ///< beside the scene, for each line
};

// Windows looks names up itself, without regard to case; wine searches the folder each time.
#ifdef _WIN32
constexpr int FilesBeside = 0;
#else
constexpr int FilesBeside = 2;
#endif

const Kind Kinds[] = {
    {"the file as its own library", 500,
     [](int count) { return Counted("mtllib scene.obj\n#", count, "\n"); }},
    {"libraries that are missing", 100,
     [](int count) { return Counted("mtllib missing", count, ".mtl\n"); }, FilesBeside},
    {"one missing library", 2'000,
     [](int count) { return Counted("mtllib missing.mtl\n#", count, "\n"); }},
    {"groups of all objects", 700,
     [](int count) {
         return "v 0 0 0\ng" + Counted(" ", count, "") + "\n" + Counted("o ", count, "\np 1 1\n");
     }},
    {"materials of all objects", 700,
     [](int count) {
         return "mtllib scene.obj\nv 0 0 0\n" + Counted("newmtl ", count, "\n") +
                Counted("usemtl ", count, "\np 1\n");
     }},
    {"small surfaces", 100,
     [](int count) {
         return "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\ncstype bezier\ndeg 1 1\n" +
                Counted("surf 0 1 0 1 1 2 3 4\nparm u 0 1\nparm v 0 1\n#", count, "\n");
     }},
};

TEST(Work, GrowsWithTheFile)
{
    constexpr int Times = 16;
    for (const Kind& kind : Kinds) {
        const auto workOf = [&](int count) {
            const TemporaryFolder folder;
            const auto path = Utf8(folder.Write("scene.obj", kind.scene(count)));
            for (int i = 0; i < kind.files * count; ++i)
                folder.Write("file" + std::to_string(i), "");
            return WorkOf([&] {
                Session session;
                session.Import(path);
            });
        };
        EXPECT_LT(workOf(Times * kind.count), 4 * Times * workOf(kind.count)) << kind.what;
    }
}

} // namespace
