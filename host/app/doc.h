#pragma once

#include "host/app/objects.h"
#include "host/app/tables.h"
#include "host/geokit/class_array.h"
#include "host/geokit/point.h"

#include <memory>

class CKelvoHistory;
class CKelvoView;

/// A box along the axes. A default-made one is empty: its smallest corner lies beyond its largest.
struct GK_BoundingBox
{
    GK_3dPoint min{1.0, 0.0, 0.0};
    GK_3dPoint max{-1.0, 0.0, 0.0};
};

/// Views of a document; the document owns them.
using CKelvoViewList = GK_ClassArray<CKelvoView*>;

/// An open document: what an import adds to.
class CKelvoDoc
{
public:
    CKelvoDoc() = default;
    CKelvoDoc(const CKelvoDoc&) = delete;
    CKelvoDoc& operator=(const CKelvoDoc&) = delete;
    virtual ~CKelvoDoc() = default;

    /// Two points nearer than this count as one, in the unit of the document.
    [[nodiscard]] virtual double AbsoluteTolerance() const = 0;

    virtual CKelvoLayerTable& LayerTable() = 0;
    virtual CKelvoGroupTable& GroupTable() = 0;
    virtual CKelvoMaterialTable& MaterialTable() = 0;

    /// Adds an object. The document takes it over; one that it refuses it destroys, and notes why.
    /// `reference` marks what belongs to a linked file; `selected` adds it selected. True when the
    /// object was added.
    virtual bool AddObject(std::unique_ptr<CKelvoObject> object, bool reference, bool selected) = 0;

    /// Adds a point. `history` may be null. False when the point was refused.
    virtual bool AddPointObject(const GK_3dPoint& point, const GK_MdxObjectAttributes& attributes,
                                const CKelvoHistory* history, bool reference) = 0;

    /// Fills the list with the document's views: its model views, its page views, or both.
    virtual void GetViewList(CKelvoViewList& views, bool modelViews, bool pageViews) = 0;

    /// Draws all views anew.
    virtual void Redraw() = 0;
};

/// The box that zooming to the extents of the document shows.
GK_BoundingBox KvZoomExtentsBoundingBox(CKelvoDoc& doc);

/// Zooms the listed views to the box.
void KvZoomExtentsHelper(const GK_BoundingBox& box, CKelvoDoc& doc, const CKelvoViewList& views);
