#include "objreader/group_object.h"
#include "objreader/read_obj.h"

bool CReadOBJ::ReadGroupName()
{
    // A record that was made under the last "g" keeps its names.
    if (groupNames.use_count() > 1)
        groupNames = std::make_shared<GroupNames>();
    GK_SimpleArray<const GK_String*>& names = groupNames->names;
    names.Empty();
    for (int i = 1; i < tokenizer.TokenCount(); ++i)
        names.Append(m_names.Intern(tokenizer.Token(i)));

    if (names.IsEmpty())
        groupName = m_names.Intern({});
    else
        groupName = ReverseGroupOrder ? *names.Last() : names[0];
    return SelectGroupObject();
}

bool CReadOBJ::ReadObjectName()
{
    return !ReadJoinedName(objectName) || SelectGroupObject();
}

bool CReadOBJ::ReadMaterialUse()
{
    return IgnoreTextures || !ReadJoinedName(materialName) || SelectGroupObject();
}

/// Reads the words behind the keyword as one name, joined with single spaces. False, and `name`
/// unchanged, when there are none.
bool CReadOBJ::ReadJoinedName(const GK_String*& name)
{
    if (tokenizer.TokenCount() < 2)
        return false;
    m_joinedName = tokenizer.Token(1);
    for (int i = 2; i < tokenizer.TokenCount(); ++i) {
        m_joinedName += ' ';
        m_joinedName += tokenizer.Token(i);
    }
    name = m_names.Intern(m_joinedName);
    return true;
}

/// Makes the record of the names in force current. A morph target has one record only.
bool CReadOBJ::SelectGroupObject()
{
    if (ImportAsMorphTarget)
        return true;
    if (!FindOrAddGroupObject(groupName, objectName, materialName))
        return false;
    const bool hasNames = currentGroup->groupNames && !currentGroup->groupNames->names.IsEmpty();
    if (!hasNames)
        currentGroup->groupNames = groupNames;
    return true;
}

int CReadOBJ::CompareGroupObjects(const Group_Object& a, const Group_Object& b)
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

bool CReadOBJ::FindOrAddGroupObject(const GK_String* group, const GK_String* object,
                                    const GK_String* material)
{
    Group_Object key{group, object, material, {}, {}};
    auto place = groupObjects.lower_bound(key);
    if (place == groupObjects.end() || CompareGroupObjects(**place, key) != 0)
        place = groupObjects.insert(place, std::make_unique<Group_Object>(std::move(key)));
    currentGroup = place->get();
    return true;
}
