#pragma once

#include "host/app/objects.h"
#include "host/app/tables.h"
#include "host/geokit/class_array.h"
#include "host/geokit/point.h"

#include <memory>

class CKelvoHistory;
class CKelvoView;

/// A box along the axes, in the unit of the document. A default-made one is empty: its smallest
/// corner lies beyond its largest.
struct GK_BoundingBox
{
    GK_3dPoint min{1.0, 0.0, 0.0};
    GK_3dPoint max{-1.0, 0.0, 0.0};
};

/// Views of a document, which owns them. They are valid until the calling operation of the plug-in
/// returns; a plug-in hands them back to the host and does nothing else with them.
using CKelvoViewList = GK_ClassArray<CKelvoView*>;

/// An open document: what an import adds to. The host owns it and keeps it open for the length of
/// the call that it is handed to. All operations, those of its tables included, are for the
/// user-interface thread, in any order.
class CKelvoDoc
{
public:
    CKelvoDoc() = default;
    CKelvoDoc(const CKelvoDoc&) = delete;
    CKelvoDoc& operator=(const CKelvoDoc&) = delete;
    virtual ~CKelvoDoc() = default;

    /// Returns the distance, in the unit of the document, within which two points count as one;
    /// above 0, and the same for the length of an import.
    [[nodiscard]] virtual double AbsoluteTolerance() const = 0;

    /// Return the tables, which the document owns and which live as long as it.
    virtual CKelvoLayerTable& LayerTable() = 0;
    virtual CKelvoGroupTable& GroupTable() = 0;
    virtual CKelvoMaterialTable& MaterialTable() = 0;

    /// Adds an object, which the document takes over in any case, and returns true. Returns false
    /// when the document refuses the object, as for geometry that is not valid, or when out of
    /// memory; the object is then destroyed, the document is as before, and the host tells the user
    /// why. `reference` marks what belongs to a linked file; `selected` adds it selected.
    virtual bool AddObject(std::unique_ptr<CKelvoObject> object, bool reference, bool selected) = 0;

    /// Adds a point and returns true, or false when the document refuses it, as for one that is not
    /// finite, or when out of memory. The attributes are copied; `history` may be null and stays
    /// the caller's.
    virtual bool AddPointObject(const GK_3dPoint& point, const GK_MdxObjectAttributes& attributes,
                                const CKelvoHistory* history, bool reference) = 0;

    /// Fills the list, in place of what it holds, with the document's views: its model views, its
    /// page views, or both.
    virtual void GetViewList(CKelvoViewList& views, bool modelViews, bool pageViews) = 0;

    /// Draws all views again, now or soon.
    virtual void Redraw() = 0;
};

/// Returns the box that zooming to the extents of the document shows; an empty one for an empty
/// document. User-interface thread only.
GK_BoundingBox KvZoomExtentsBoundingBox(CKelvoDoc& doc);

/// Zooms the listed views of the document to the box; an empty box changes nothing. User-interface
/// thread only.
void KvZoomExtentsHelper(const GK_BoundingBox& box, CKelvoDoc& doc, const CKelvoViewList& views);
