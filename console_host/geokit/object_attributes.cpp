#include "host/geokit/object_attributes.h"

void GK_MdxObjectAttributes::AddToGroup(int groupIndex)
{
    MakeGroupsChangeable();
    GroupList& groups = *m_groups;
    if (!groups.sorted.insert(groupIndex).second)
        return;
    groups.smallest = *groups.sorted.begin();
    groups.largest = *groups.sorted.rbegin();
    groups.inOrder.push_back(groupIndex);
}

/// Leaves a list that others share to them; the sorted indices move to the copy that is added to.
void GK_MdxObjectAttributes::MakeGroupsChangeable()
{
    if (m_groups == nullptr)
        m_groups = std::make_shared<GroupList>();
    if (m_groups.use_count() > 1) {
        auto own = std::make_shared<GroupList>();
        own->inOrder = m_groups->inOrder;
        own->sorted.swap(m_groups->sorted);
        m_groups = std::move(own);
    }
    if (m_groups->sorted.size() != m_groups->inOrder.size())
        m_groups->sorted = {m_groups->inOrder.begin(), m_groups->inOrder.end()};
}

const std::vector<int>& GK_MdxObjectAttributes::Groups() const
{
    static const std::vector<int> none;
    if (m_groups == nullptr)
        return none;
    return m_groups->inOrder;
}

bool GK_MdxObjectAttributes::GroupsAreBelow(int count) const
{
    return m_groups == nullptr || (m_groups->smallest >= 0 && m_groups->largest < count);
}

bool operator==(const GK_MdxObjectAttributes& a, const GK_MdxObjectAttributes& b)
{
    return a.layerIndex == b.layerIndex && a.materialIndex == b.materialIndex &&
           a.m_materialSource == b.m_materialSource && a.name == b.name &&
           (a.m_groups == b.m_groups || a.Groups() == b.Groups());
}
