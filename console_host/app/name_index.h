#pragma once

#include "host/geokit/string.h"

#include <string_view>
#include <unordered_map>

/// Finds the lowest index of a name, compared exactly, in a time that does not grow with the
/// number of names.
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
    struct Hash
    {
        std::size_t operator()(const GK_wString& name) const
        {
            return std::hash<std::wstring_view>()(name.View());
        }
    };

    std::unordered_map<GK_wString, int, Hash> m_indices;
};
