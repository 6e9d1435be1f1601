#pragma once

#include "host/app/tables.h"
#include "host/geokit/class_array.h"
#include "host/geokit/string.h"

#include <array>
#include <cstdint>
#include <map>

/// Finds the lowest index of a name, compared exactly. The names are sorted: they come from files,
/// which could choose names that collide in any known hash.
class NameIndex
{
public:
    /// Adds a name with this index; a name that is there already keeps its index, which is lower
    /// when indices are ascending.
    void Add(const GK_wString& name, int index) { m_indices.try_emplace(name, index); }

    /// Returns the index of the name, or -1.
    [[nodiscard]] int Find(const GK_wString& name) const
    {
        const auto found = m_indices.find(name);
        return found == m_indices.end() ? -1 : found->second;
    }

private:
    std::map<GK_wString, int> m_indices;
};

/// The layers of a document, in the order of adding; the layer "Default" is there from the start
/// and is the current one.
class LayerTable final : public CKelvoLayerTable
{
public:
    LayerTable();

    [[nodiscard]] int CurrentLayerIndex() const override { return 0; }
    [[nodiscard]] int FindLayer(const GK_UUID& parentId, const GK_wString& name,
                                bool ignoreDeleted) const override;

    /// Adds a record; one with the nil id gets a new id. New ids repeat from one document to the
    /// next, so that the same import always makes the same document.
    int AddLayer(const GK_Layer& layer, bool reference) override;

    [[nodiscard]] const GK_ClassArray<GK_Layer>& Layers() const { return m_layers; }

private:
    GK_ClassArray<GK_Layer> m_layers;
    std::map<std::array<std::uint8_t, 16>, NameIndex> m_namesUnder; ///< by the parent's id
};

/// The groups of a document, in the order of adding.
class GroupTable final : public CKelvoGroupTable
{
public:
    [[nodiscard]] int FindGroup(const GK_wString& name, int ignoreDeleted) const override;
    int AddGroup(const GK_Group& group, bool reference) override;

    [[nodiscard]] const GK_ClassArray<GK_Group>& Groups() const { return m_groups; }

private:
    GK_ClassArray<GK_Group> m_groups;
    NameIndex m_names;
};

/// The materials of a document, in the order of adding.
class MaterialTable final : public CKelvoMaterialTable
{
public:
    [[nodiscard]] int FindMaterial(const GK_wString& name, bool ignoreDeleted) const override;
    int AddMaterial(const GK_Material& material, bool reference) override;

    [[nodiscard]] const GK_ClassArray<GK_Material>& Materials() const { return m_materials; }

private:
    GK_ClassArray<GK_Material> m_materials;
    NameIndex m_names;
};
