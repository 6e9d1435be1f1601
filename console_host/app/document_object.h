#pragma once

#include "host/app/objects.h"
#include "host/geokit/brep.h"
#include "host/geokit/curve.h"

#include <variant>

/// The geometry of something in a document, by its kind; null when there is none.
using AnyGeometry = std::variant<const GK_Mesh*, const GK_Curve*, const GK_3dPoint*,
                                 const GK_PointCloud*, const GK_Brep*>;

/// A view of something in a document; good until the document changes.
struct DocumentObject
{
    const GK_MdxObjectAttributes* attributes;
    AnyGeometry geometry;
};

/// Returns the geometry of an object, null while it has none.
AnyGeometry GeometryOf(const CKelvoObject& object);

/// Returns the kind of geometry in one word: "mesh", "curve", "point", "point_cloud", "brep".
const char* KindOf(const AnyGeometry& geometry);
