#pragma once

#include "host/app/objects.h"
#include "host/geokit/brep.h"
#include "host/geokit/curve.h"

#include <variant>

/// The geometry of something in a document, by its kind; nothing when there is none.
using AnyGeometry = std::variant<std::monostate, const GK_Mesh*, const GK_Curve*, const GK_3dPoint*,
                                 const GK_PointCloud*, const GK_Brep*>;

/// A look at something in a document; good until the document changes.
struct DocumentObject
{
    const GK_MdxObjectAttributes* attributes;
    AnyGeometry geometry;
};

/// The geometry of an object; nothing while it has none.
AnyGeometry GeometryOf(const CKelvoObject& object);

/// The kind of an object in one word, whether it has geometry or not: "mesh", "curve",
/// "point_cloud", "brep".
const char* KindOf(const CKelvoObject& object);
