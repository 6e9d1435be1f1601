#include "host/geokit/object_attributes.h"

void GK_MdxObjectAttributes::Default()
{
    *this = GK_MdxObjectAttributes();
}

void GK_MdxObjectAttributes::AddToGroup(int groupIndex)
{
    if (m_groups != nullptr && m_groups->members.contains(groupIndex))
        return;
    if (m_groups == nullptr)
        m_groups = std::make_shared<GroupList>();
    else if (m_groups.use_count() > 1)
        m_groups = std::make_shared<GroupList>(*m_groups);
    m_groups->members.insert(groupIndex);
    m_groups->inOrder.push_back(groupIndex);
}

const std::vector<int>& GK_MdxObjectAttributes::Groups() const
{
    static const std::vector<int> none;
    return m_groups != nullptr ? m_groups->inOrder : none;
}

bool GK_MdxObjectAttributes::GroupsAreBelow(int count) const
{
    return m_groups == nullptr || m_groups->members.empty() ||
           (*m_groups->members.begin() >= 0 && *m_groups->members.rbegin() < count);
}

bool operator==(const GK_MdxObjectAttributes& a, const GK_MdxObjectAttributes& b)
{
    return a.layerIndex == b.layerIndex && a.materialIndex == b.materialIndex &&
           a.m_materialSource == b.m_materialSource && a.name == b.name &&
           (a.m_groups == b.m_groups || a.Groups() == b.Groups());
}
