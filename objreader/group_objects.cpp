#include "objreader/group_objects.h"

int GroupObjects::CompareGroupObjects(const Group_Object& a, const Group_Object& b)
{
    const auto compare = [](const GK_String* x, const GK_String* y) {
        return x == y ? 0 : (*x < *y ? -1 : 1);
    };
    if (const int order = compare(a.groupName, b.groupName))
        return order;
    if (const int order = compare(a.objectName, b.objectName))
        return order;
    return compare(a.materialName, b.materialName);
}

Group_Object& GroupObjects::FindOrAddGroupObject(const GK_String* group, const GK_String* object,
                                                 const GK_String* material)
{
    Group_Object key{group, object, material, -1, nullptr};
    auto place = m_records.lower_bound(key);
    if (place == m_records.end() || CompareGroupObjects(**place, key) != 0)
        place = m_records.insert(place, std::make_unique<Group_Object>(std::move(key)));
    return **place;
}
