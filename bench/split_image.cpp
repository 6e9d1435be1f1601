// Splitting images of 32 bits into colours and alpha, beside a plain copy of the same bytes into
// memory that is already there and into a new image.

#include "materials/texture_splitting.h"

#include "host/app/dib.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <ctime>
#include <memory>

namespace {

/// Every pixel has a value of its own; none is white, some are transparent.
void Fill(CKelvoDib& image)
{
    unsigned char* const bits = image.FindDIBBits();
    for (std::size_t i = 0; i < image.GetStorageSize(); ++i)
        bits[i] = static_cast<unsigned char>(i * 7 % 251);
}

/// Time of the processor, not of the clock on the wall: other programs may run.
double SecondsSince(std::clock_t start)
{
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void CountBytes(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0) * state.range(0) * 4);
}

void PlainCopy(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    CKelvoDib source(side, side, 32, true);
    Fill(source);
    CKelvoDib target(side, side, 32, true);
    for (auto _ : state) {
        std::memcpy(target.FindDIBBits(), source.FindDIBBits(), source.GetStorageSize());
        benchmark::ClobberMemory();
    }
    CountBytes(state);
}

void CopyToNewImage(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    CKelvoDib source(side, side, 32, true);
    Fill(source);
    for (auto _ : state) {
        CKelvoDib target(side, side, 32, true);
        std::memcpy(target.FindDIBBits(), source.FindDIBBits(), source.GetStorageSize());
        benchmark::ClobberMemory();
    }
    CountBytes(state);
}

void Split(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    for (auto _ : state) {
        CKelvoDib image(side, side, 32, true);
        Fill(image);
        CKelvoDib alpha;
        bool white = true;
        const std::clock_t start = std::clock();
        benchmark::DoNotOptimize(SplitImage(image, alpha, white));
        state.SetIterationTime(SecondsSince(start));
    }
    CountBytes(state);
}

BENCHMARK(PlainCopy)->Arg(1024)->Arg(4096);
BENCHMARK(CopyToNewImage)->Arg(1024)->Arg(4096);
BENCHMARK(Split)->Arg(1024)->Arg(4096)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
