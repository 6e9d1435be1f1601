#pragma once

#include "host/geokit/string.h"

#include <memory>
#include <set>
#include <vector>

namespace GK {

/// Where an object's material comes from.
enum object_material_source
{
    material_from_layer = 0,
    material_from_object = 1
};

} // namespace GK

/// What an object carries beside its geometry. Indices are those of the document's tables; -1 is
/// none. Copies share the name and the groups until one of them changes; a copy behaves as a deep
/// one, and each copy may be used by a thread of its own. Operations that add throw std::bad_alloc
/// when out of memory and leave the attributes as they were.
class GK_MdxObjectAttributes
{
public:
    int layerIndex = 0;
    int materialIndex = -1;
    GK_wString name; ///< empty: no name

    /// Sets the defaults: layer 0, no name, no groups, no material of its own.
    void Default() { *this = GK_MdxObjectAttributes(); }

    void RemoveFromAllGroups() { m_groups.reset(); }

    /// Adds the object to a group once; a second time changes nothing.
    void AddToGroup(int groupIndex);

    /// Returns the groups in the order of adding; valid until the attributes change.
    [[nodiscard]] const std::vector<int>& Groups() const;

    /// Returns true when every group is one of the first `count`.
    [[nodiscard]] bool GroupsAreBelow(int count) const;

    void SetMaterialSource(GK::object_material_source source) { m_materialSource = source; }
    [[nodiscard]] GK::object_material_source MaterialSource() const { return m_materialSource; }

    friend bool operator==(const GK_MdxObjectAttributes& a, const GK_MdxObjectAttributes& b);

private:
    struct GroupList
    {
        std::vector<int> inOrder;
        std::set<int> sorted; ///< empty until, and after, this is the list that is added to
        int smallest = 0;
        int largest = -1;
    };

    void MakeGroupsChangeable();

    std::shared_ptr<GroupList> m_groups; ///< null: none
    GK::object_material_source m_materialSource = GK::material_from_layer;
};
