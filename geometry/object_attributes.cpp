#include "objreader/group_object.h"
#include "objreader/read_obj.h"

namespace {

/// What group names become in the document.
enum GroupChoice : int
{
    DoNotImportOBJGroups = 0,
    AsGroups = 1,
    AsLayers = 2,
    AsObjectNames = 3
};

} // namespace

bool CReadOBJ::MakeAttributes(Group_Object& record, GK_MdxObjectAttributes& attributes)
{
    attributes.RemoveFromAllGroups();
    attributes.layerIndex = doc.LayerTable().CurrentLayerIndex();
    if (HowToAddGs < DoNotImportOBJGroups || HowToAddGs > AsObjectNames)
        return false;

    GroupNames* const names = record.groupNames.get();
    const bool hasNames = names != nullptr && !names->names.IsEmpty();
    if (HowToAddGs == AsObjectNames) {
        const bool sameNames = record.groupName == record.objectName;
        SetName(attributes, sameNames && hasNames ? names->names[0] : record.groupName);
        return true;
    }
    if (hasNames) {
        EnterGroupNames(names);
        attributes = names->attributes;
    }
    if (UseONames)
        SetName(attributes, record.objectName);
    return true;
}

/// Sets the name of objects, which records that follow each other often share.
void CReadOBJ::SetName(GK_MdxObjectAttributes& attributes, const GK_String* name)
{
    if (m_wideNameOf != name)
        m_wideName = GK_wString(*name);
    m_wideNameOf = name;
    attributes.name = m_wideName;
}

/// Finds or adds the groups or layers of the names, once for all records that share them.
void CReadOBJ::EnterGroupNames(GroupNames* names)
{
    if (names == nullptr || names->entered)
        return;
    names->attributes.layerIndex = doc.LayerTable().CurrentLayerIndex();
    GK_UUID parentId = GK_nil_uuid;
    for (const GK_String* const name : names->names) {
        const GK_wString wideName(*name);
        if (HowToAddGs == AsGroups)
            names->attributes.AddToGroup(FindOrAddGroup(wideName));
        else if (HowToAddGs == AsLayers)
            names->attributes.layerIndex = FindOrAddLayer(wideName, parentId);
    }
    names->entered = true;
}

int CReadOBJ::FindOrAddGroup(const GK_wString& name)
{
    const int found = doc.GroupTable().FindGroup(name, 1);
    return found != -1 ? found : doc.GroupTable().AddGroup({name}, AddAsReference);
}

/// A layer that is added hangs below `parentId`, which becomes the id of the new layer's record.
int CReadOBJ::FindOrAddLayer(const GK_wString& name, GK_UUID& parentId)
{
    const int found = doc.LayerTable().FindLayer(GK_nil_uuid, name, true);
    if (found != -1)
        return found;
    GK_Layer layer;
    layer.name = name;
    layer.parentId = parentId;
    parentId = layer.id;
    return doc.LayerTable().AddLayer(layer, AddAsReference);
}
