#include "geometry/inconsistencies.h"

#include "host/geokit/error.h"

void Inconsistencies::Add(const char* text, int times)
{
    if (times == 0)
        return;
    if (!m_entries.empty() && m_entries.back().text == text)
        m_entries.back().times += times;
    else
        m_entries.push_back({text, times});
}

void Inconsistencies::Add(const Inconsistencies& others)
{
    for (const Entry& entry : others.m_entries)
        Add(entry.text, entry.times);
}

void Inconsistencies::Report() const noexcept
{
    for (const Entry& entry : m_entries)
        GK_Error("mesh", 0, entry.text, entry.times);
}
