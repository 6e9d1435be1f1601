#pragma once

#include <vector>

/// What does not fit together in the lists that a mesh is made of: the texts to report, each with
/// how often in a row. Threads gather them; the host learns them on the calling thread.
class Inconsistencies
{
public:
    /// Notes a text, which is not copied.
    void Add(const char* text, int times = 1);

    void Add(const Inconsistencies& others);

    /// Reports everything to the kernel, in its order.
    void Report() const noexcept;

private:
    struct Entry
    {
        const char* text;
        int times;
    };

    std::vector<Entry> m_entries;
};
