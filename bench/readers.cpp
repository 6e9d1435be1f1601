#include "bench/readers.h"

std::vector<NamedReader> Readers()
{
    std::vector<NamedReader> readers{
        {"parse", MakeParseReader},
        {"import", MakeImportReader},
    };
#ifdef BENCH_TINYOBJLOADER
    readers.push_back({"tinyobjloader", MakeTinyObjLoaderReader});
#endif
#ifdef BENCH_ASSIMP
    readers.push_back({"assimp", MakeAssimpReader});
#endif
    return readers;
}
