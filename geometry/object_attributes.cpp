#include "geometry/object_attributes.h"

ObjectAttributes::ObjectAttributes(const ObjFile& file, const ImportChoices& choices,
                                   CKelvoDoc& doc)
    : m_file(file), m_choices(choices), m_doc(doc)
{
}

bool ObjectAttributes::MakeAttributes(const Group_Object& record,
                                      GK_MdxObjectAttributes& attributes)
{
    attributes.RemoveFromAllGroups();
    attributes.layerIndex = m_doc.LayerTable().CurrentLayerIndex();
    if (m_choices.HowToAddGs < DoNotImportOBJGroups || m_choices.HowToAddGs > AsObjectNames)
        return false;

    const bool hasNames = record.groupNames >= 0;
    const auto names = static_cast<std::size_t>(record.groupNames);
    if (m_choices.HowToAddGs == AsObjectNames) {
        const bool sameNames = record.groupName == record.objectName;
        SetName(attributes, sameNames && hasNames ? m_file.groupNames[names][0] : record.groupName);
        return true;
    }
    if (hasNames && GroupNamesMatter()) {
        EnterGroupNames(record);
        attributes = m_entered[names].attributes;
    }
    if (m_choices.UseONames)
        SetName(attributes, record.objectName);
    return true;
}

bool ObjectAttributes::GroupNamesMatter() const
{
    return m_choices.HowToAddGs == AsGroups || m_choices.HowToAddGs == AsLayers;
}

/// Sets the name of objects, which records that follow each other often share.
void ObjectAttributes::SetName(GK_MdxObjectAttributes& attributes, const GK_String* name)
{
    if (m_wideNameOf != name)
        m_wideName = GK_wString(*name);
    m_wideNameOf = name;
    attributes.name = m_wideName;
}

void ObjectAttributes::EnterGroupNames(const Group_Object& record)
{
    if (record.groupNames < 0 || !GroupNamesMatter())
        return;
    m_entered.resize(m_file.groupNames.size());
    EnteredNames& names = m_entered[static_cast<std::size_t>(record.groupNames)];
    if (names.entered)
        return;
    names.attributes.layerIndex = m_doc.LayerTable().CurrentLayerIndex();
    GK_UUID parentId = GK_nil_uuid;
    for (const GK_String* const name :
         m_file.groupNames[static_cast<std::size_t>(record.groupNames)]) {
        const GK_wString wideName(*name);
        if (m_choices.HowToAddGs == AsGroups)
            names.attributes.AddToGroup(FindOrAddGroup(wideName));
        else if (m_choices.HowToAddGs == AsLayers)
            names.attributes.layerIndex = FindOrAddLayer(wideName, parentId);
    }
    names.entered = true;
}

void ObjectAttributes::SetMaterial(const Group_Object& record,
                                   GK_MdxObjectAttributes& attributes) const
{
    const int material = m_doc.MaterialTable().FindMaterial(GK_wString(*record.materialName), true);
    if (material == -1)
        return;
    attributes.materialIndex = material;
    attributes.SetMaterialSource(GK::material_from_object);
}

int ObjectAttributes::FindOrAddGroup(const GK_wString& name)
{
    const int found = m_doc.GroupTable().FindGroup(name, 1);
    return found != -1 ? found : m_doc.GroupTable().AddGroup({name}, AddAsReference);
}

/// A layer that is added hangs below `parentId`, which becomes the id of the new layer's record.
int ObjectAttributes::FindOrAddLayer(const GK_wString& name, GK_UUID& parentId)
{
    const int found = m_doc.LayerTable().FindLayer(GK_nil_uuid, name, true);
    if (found != -1)
        return found;
    GK_Layer layer;
    layer.name = name;
    layer.parentId = parentId;
    parentId = layer.id;
    return m_doc.LayerTable().AddLayer(layer, AddAsReference);
}
