#pragma once

#include "host/geokit/group.h"
#include "host/geokit/layer.h"
#include "host/geokit/material.h"

/// The tables of a document. Names are compared exactly, with case, and a look-up gives the lowest
/// index; looking up does not slow down as a table grows. Adding copies the record and gives its
/// index; `reference` marks what belongs to a linked file.

class CKelvoLayerTable
{
public:
    virtual ~CKelvoLayerTable() = default;

    /// The layer on which new objects go.
    [[nodiscard]] virtual int CurrentLayerIndex() const = 0;

    /// The layer of that name under the given parent only (the nil id: a top-level layer), or -1.
    [[nodiscard]] virtual int FindLayer(const GK_UUID& parentId, const GK_wString& name,
                                        bool ignoreDeleted) const = 0;

    /// The layer in the table has an id of its own; the caller's record is not changed.
    virtual int AddLayer(const GK_Layer& layer, bool reference) = 0;
};

class CKelvoGroupTable
{
public:
    virtual ~CKelvoGroupTable() = default;

    /// The group of that name, or -1. Non-zero `ignoreDeleted` passes over deleted groups.
    [[nodiscard]] virtual int FindGroup(const GK_wString& name, int ignoreDeleted) const = 0;

    virtual int AddGroup(const GK_Group& group, bool reference) = 0;
};

class CKelvoMaterialTable
{
public:
    virtual ~CKelvoMaterialTable() = default;

    /// The material of that name, or -1.
    [[nodiscard]] virtual int FindMaterial(const GK_wString& name, bool ignoreDeleted) const = 0;

    virtual int AddMaterial(const GK_Material& material, bool reference) = 0;
};
