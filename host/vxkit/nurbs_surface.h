#pragma once

#include "host/geokit/nurbs_surface.h"

/// The toolkit's B-spline surface; all is as for the kernel's.
class VX_NurbsSurface : public GK_NurbsSurface
{
public:
    /// Returns the image of a 2D curve: a 3D B-spline whose domain is the sub-domain (the curve's
    /// domain when null; a decreasing one is taken over the same interval; an end that reaches
    /// beyond the curve's domain by less than a ten-thousandth of it is moved to the domain's end).
    /// At each parameter it lies within `tolerance`, and within a ten-thousandth of the image's
    /// size where that is less, of the surface at the 2D curve's point there, or as close as double
    /// precision allows where that is coarser. It has 200,000 control points at most. Where the
    /// surface is closed, a 2D curve that leaves the domain comes in again on the other side.
    ///
    /// Returns null when the 2D curve or the surface is not valid, the sub-domain is empty or
    /// reaches farther out of the curve's domain, the image is not finite, or staying within the
    /// tolerance takes too much: for one curve, or for all curves of an import together. Then the
    /// reason goes to GK_Error with the source "pushup", each once in an import. User-interface
    /// thread only. Throws std::bad_alloc when out of memory.
    ///
    /// Equal calls are remembered until the surface changes: they cost little, and what they return
    /// shares its storage.
    [[nodiscard]] virtual std::unique_ptr<GK_Curve>
    Pushup(const GK_Curve& curve2d, double tolerance, const GK_Interval* subdomain) const;

    /// Return the object as a surface of the toolkit, or null when it is none.
    static VX_NurbsSurface* Cast(GK_Object* object)
    {
        return dynamic_cast<VX_NurbsSurface*>(object);
    }
    static const VX_NurbsSurface* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_NurbsSurface*>(object);
    }
};
