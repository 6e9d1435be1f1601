#include "console_host/app/document_tables.h"

namespace {

/// Returns an id of the form of a random one, all zero except for the number at its end.
GK_UUID NumberedId(unsigned int number)
{
    GK_UUID id;
    id.bytes[6] = 0x40;
    id.bytes[8] = 0x80;
    for (std::size_t i = 0; i < sizeof number; ++i)
        id.bytes[id.bytes.size() - 1 - i] = static_cast<std::uint8_t>(number >> (8 * i));
    return id;
}

/// Appends a record and notes its name; a failure leaves both as they were.
template <class Record>
int AppendNamed(GK_ClassArray<Record>& records, NameIndex& names, const GK_wString& name,
                Record record)
{
    const int index = records.Count();
    records.Append(std::move(record));
    try {
        names.Add(name, index);
    } catch (...) {
        records.Remove(index);
        throw;
    }
    return index;
}

} // namespace

LayerTable::LayerTable()
{
    GK_Layer layer;
    layer.name = L"Default";
    AddLayer(layer, false);
}

int LayerTable::FindLayer(const GK_UUID& parentId, const GK_wString& name, bool) const
{
    const auto under = m_namesUnder.find(parentId.bytes);
    return under == m_namesUnder.end() ? -1 : under->second.Find(name);
}

int LayerTable::AddLayer(const GK_Layer& layer, bool)
{
    GK_Layer added = layer;
    if (added.id == GK_nil_uuid)
        added.id = NumberedId(static_cast<unsigned int>(m_layers.Count()) + 1);
    return AppendNamed(m_layers, m_namesUnder[layer.parentId.bytes], layer.name, std::move(added));
}

int GroupTable::FindGroup(const GK_wString& name, int) const
{
    return m_names.Find(name);
}

int GroupTable::AddGroup(const GK_Group& group, bool)
{
    return AppendNamed(m_groups, m_names, group.name, GK_Group(group));
}

int MaterialTable::FindMaterial(const GK_wString& name, bool) const
{
    return m_names.Find(name);
}

int MaterialTable::AddMaterial(const GK_Material& material, bool)
{
    return AppendNamed(m_materials, m_names, material.Name(), GK_Material(material));
}
