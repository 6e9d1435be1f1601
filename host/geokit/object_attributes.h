#pragma once

#include "host/geokit/simple_array.h"
#include "host/geokit/string.h"

namespace GK {

/// Where an object's material comes from.
enum object_material_source
{
    material_from_layer = 0,
    material_from_object = 1
};

} // namespace GK

/// What an object carries beside its geometry. Indices are those of the document's tables; -1 is
/// none.
class GK_MdxObjectAttributes
{
public:
    int layerIndex = 0;
    int materialIndex = -1;
    GK_wString name; ///< empty: no name

    /// Back to the defaults: layer 0, no name, no groups, no material of its own.
    void Default();

    void RemoveFromAllGroups();

    /// Adds the object to a group once; a second time changes nothing.
    void AddToGroup(int groupIndex);

    /// The groups in the order of adding.
    [[nodiscard]] const GK_SimpleArray<int>& Groups() const { return m_groups; }

    void SetMaterialSource(GK::object_material_source source) { m_materialSource = source; }
    [[nodiscard]] GK::object_material_source MaterialSource() const { return m_materialSource; }

    friend bool operator==(const GK_MdxObjectAttributes& a, const GK_MdxObjectAttributes& b);

private:
    [[nodiscard]] bool IsInGroup(int groupIndex) const;
    void IndexGroups(int capacity);

    GK_SimpleArray<int> m_groups;
    GK_SimpleArray<int> m_groupIndex; ///< hash table of m_groups; empty while those are few
    GK::object_material_source m_materialSource = GK::material_from_layer;
};
