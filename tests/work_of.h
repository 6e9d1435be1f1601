#pragma once

#include <algorithm>
#include <ctime>
#include <limits>

/// Returns the least processor time that a call takes in a few runs, in seconds. Good only to be
/// compared with that of another call in the same test, by a generous factor: what grows with the
/// square of its input shows, however busy the machine is.
template <class Call>
double WorkOf(Call call)
{
    constexpr int Runs = 3;
    constexpr double LeastTime = 0.05; // which coarse clocks can still measure
    double least = std::numeric_limits<double>::infinity();
    for (int i = 0; i < Runs; ++i) {
        const std::clock_t start = std::clock();
        int calls = 0;
        double time = 0.0;
        while (time < LeastTime) {
            call();
            ++calls;
            time = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        }
        least = std::min(least, time / calls);
    }
    return least;
}
