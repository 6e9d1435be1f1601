#include "bench/readers.h"

std::vector<NamedReader> Readers(unsigned threadCount)
{
    std::vector<NamedReader> readers{
        {BytesReader, ReaderKind::Floor, MakeBytesReader},
        {NumbersReader, ReaderKind::Floor, MakeNumbersReader},
        {ParseReader, ReaderKind::Own, MakeParseReader},
        {ImportReader, ReaderKind::Own, [] { return MakeImportReader(1); }},
    };
    if (threadCount > 1)
        readers.push_back({ThreadedImportReader, ReaderKind::Own,
                           [threadCount] { return MakeImportReader(threadCount); }});
#ifdef BENCH_TINYOBJLOADER
    readers.push_back({"tinyobjloader", ReaderKind::Other, MakeTinyObjLoaderReader});
#endif
#ifdef BENCH_ASSIMP
    readers.push_back({"assimp", ReaderKind::Other, MakeAssimpReader});
#endif
    return readers;
}
