// A library and the images of its textures, in one input with 0x1C between them: the library
// "l.mtl", then "a.png" and "a.tga", which are split into the same files.

#include "fuzz/import_check.h"
#include "fuzz/own_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr char Separator = '\x1C';
    const OwnFolder& folder = OwnFolder::OfTheRun();
    std::string_view rest = Text(data, size);
    static_cast<void>(folder.Write("l.mtl", TakePart(rest, Separator)));
    // The first image may hold any byte; what follows its end mark, or all of it, is the second.
    const std::size_t end = rest.find("IEND");
    constexpr std::size_t MarkAndChecksum = 8;
    const std::size_t first =
        end == std::string_view::npos ? rest.size() : std::min(end + MarkAndChecksum, rest.size());
    static_cast<void>(folder.Write("a.png", rest.substr(0, first)));
    static_cast<void>(folder.Write("a.tga", rest.substr(first)));
    constexpr std::string_view Scene = "mtllib l.mtl\nmtllib L.mtl\nmtllib missing.mtl\n"
                                       "v 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl a\nf 1 2 3\n";
    ImportAndCheck(folder.Write("scene.obj", Scene).wstring().c_str(), 0);
    return 0;
}
