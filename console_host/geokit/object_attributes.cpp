#include "host/geokit/object_attributes.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int FewGroups = 32;
constexpr int NoGroup = std::numeric_limits<int>::min();

/// The place of a group in a hash table whose size is a power of two: where it stands, or the free
/// place where it belongs.
int PlaceOf(const GK_SimpleArray<int>& table, int groupIndex)
{
    const auto last = static_cast<unsigned int>(table.Count() - 1);
    constexpr unsigned int Spread = 2654435769U;
    auto place = static_cast<unsigned int>(groupIndex) * Spread & last;
    while (table[static_cast<int>(place)] != NoGroup &&
           table[static_cast<int>(place)] != groupIndex)
        place = (place + 1) & last;
    return static_cast<int>(place);
}

} // namespace

void GK_MdxObjectAttributes::Default()
{
    *this = GK_MdxObjectAttributes();
}

void GK_MdxObjectAttributes::RemoveFromAllGroups()
{
    m_groups.Empty();
    m_groupIndex.Empty();
}

void GK_MdxObjectAttributes::AddToGroup(int groupIndex)
{
    if (IsInGroup(groupIndex))
        return;
    m_groups.Append(groupIndex);
    if (m_groups.Count() > FewGroups && m_groups.Count() * 2 > m_groupIndex.Count())
        IndexGroups(m_groups.Count() * 4);
    else if (!m_groupIndex.IsEmpty())
        m_groupIndex[PlaceOf(m_groupIndex, groupIndex)] = groupIndex;
}

bool GK_MdxObjectAttributes::IsInGroup(int groupIndex) const
{
    if (m_groupIndex.IsEmpty())
        return std::find(m_groups.begin(), m_groups.end(), groupIndex) != m_groups.end();
    return m_groupIndex[PlaceOf(m_groupIndex, groupIndex)] == groupIndex;
}

void GK_MdxObjectAttributes::IndexGroups(int capacity)
{
    int size = FewGroups;
    while (size < capacity)
        size *= 2;
    GK_SimpleArray<int> table;
    table.SetCount(size);
    std::fill(table.begin(), table.end(), NoGroup);
    for (const int group : m_groups)
        table[PlaceOf(table, group)] = group;
    m_groupIndex = std::move(table);
}

bool operator==(const GK_MdxObjectAttributes& a, const GK_MdxObjectAttributes& b)
{
    return a.layerIndex == b.layerIndex && a.materialIndex == b.materialIndex &&
           a.m_materialSource == b.m_materialSource && a.name == b.name &&
           std::equal(a.m_groups.begin(), a.m_groups.end(), b.m_groups.begin(), b.m_groups.end());
}
