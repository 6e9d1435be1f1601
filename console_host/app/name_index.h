#pragma once

#include "host/geokit/string.h"

#include <map>

/// Finds the lowest index of a name, compared exactly. The names are kept in their order: names
/// come from files, which could hold such that collide in any hash that is known.
class NameIndex
{
public:
    /// Notes that a name has this index; a name that is noted already keeps its index, which is
    /// lower when indices come ascending.
    void Add(const GK_wString& name, int index) { m_indices.try_emplace(name, index); }

    /// The index of the name, or -1.
    [[nodiscard]] int Find(const GK_wString& name) const
    {
        const auto found = m_indices.find(name);
        return found == m_indices.end() ? -1 : found->second;
    }

private:
    struct ByText
    {
        bool operator()(const GK_wString& a, const GK_wString& b) const
        {
            return a.View() < b.View();
        }
    };

    std::map<GK_wString, int, ByText> m_indices;
};
