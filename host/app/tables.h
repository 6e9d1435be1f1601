#pragma once

#include "host/geokit/group.h"
#include "host/geokit/layer.h"
#include "host/geokit/material.h"

/// The tables of a document, which owns them. Names are compared exactly, with case, and a look-up
/// returns the lowest index; looking up does not slow down as a table grows. Adding copies the
/// record and returns its index, which stays valid for the length of the import; `reference` marks
/// what belongs to a linked file. User-interface thread only. Adding throws std::bad_alloc when out
/// of memory; the table is then unchanged.

class CKelvoLayerTable
{
public:
    virtual ~CKelvoLayerTable() = default;

    /// Returns the layer on which new objects go; there is always one.
    [[nodiscard]] virtual int CurrentLayerIndex() const = 0;

    /// Returns the layer of that name under the given parent only (the nil id: a top-level layer),
    /// or -1. With `ignoreDeleted` deleted layers are skipped.
    [[nodiscard]] virtual int FindLayer(const GK_UUID& parentId, const GK_wString& name,
                                        bool ignoreDeleted) const = 0;

    /// Adds a layer. A record with the nil id has an id of its own in the table; the caller's
    /// record is not changed.
    virtual int AddLayer(const GK_Layer& layer, bool reference) = 0;
};

class CKelvoGroupTable
{
public:
    virtual ~CKelvoGroupTable() = default;

    /// Returns the group of that name, or -1. With a non-zero `ignoreDeleted` deleted groups are
    /// skipped.
    [[nodiscard]] virtual int FindGroup(const GK_wString& name, int ignoreDeleted) const = 0;

    /// Adds a group; one of the same name may be there already.
    virtual int AddGroup(const GK_Group& group, bool reference) = 0;
};

class CKelvoMaterialTable
{
public:
    virtual ~CKelvoMaterialTable() = default;

    /// Returns the material of that name, or -1. With `ignoreDeleted` deleted materials are
    /// skipped.
    [[nodiscard]] virtual int FindMaterial(const GK_wString& name, bool ignoreDeleted) const = 0;

    /// Adds a material; one of the same name may be there already.
    virtual int AddMaterial(const GK_Material& material, bool reference) = 0;
};
