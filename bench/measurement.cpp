#include "bench/measurement.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace {

/// Seconds that this process has used of all processors.
double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

Result TimeOnce(const NamedReader& named, const std::string& path)
{
    const auto reader = named.make();
    reader->Prepare(path);
    const double processorStart = ProcessorSeconds();
    const auto start = std::chrono::steady_clock::now();
    reader->Read(path);
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    const double processor = ProcessorSeconds() - processorStart;
    reader->Forget();
    return {named.name, time.count(), processor, 0.0, reader->Stages()};
}

void KeepBest(Result& best, const Result& result)
{
    if (result.seconds < best.seconds) {
        best.seconds = result.seconds;
        best.stages = result.stages;
    }
    best.processor = std::min(best.processor, result.processor);
}

} // namespace

std::vector<Result> TimeReaders(const std::vector<NamedReader>& readers, const std::string& path,
                                int repetitions)
{
    std::vector<Result> best;
    for (const NamedReader& reader : readers)
        best.push_back(TimeOnce(reader, path));
    for (int repetition = 1; repetition < repetitions; ++repetition)
        for (std::size_t i = 0; i < readers.size(); ++i)
            if (readers[i].kind != ReaderKind::Other)
                KeepBest(best[i], TimeOnce(readers[i], path));
    return best;
}
