#pragma once

#include "host/geokit/nurbs_surface.h"

/// The toolkit's B-spline surface.
class VX_NurbsSurface : public GK_NurbsSurface
{
public:
    /// A 3D B-spline whose domain is the sub-domain (the curve's domain when null; a decreasing one
    /// is taken over the same interval) and which at each parameter lies within `tolerance` of the
    /// surface at the 2D curve's point there, or as close as double precision allows where that is
    /// coarser. It has 200,000 control points at most.
    ///
    /// Null when the 2D curve or the surface is not valid, the sub-domain is empty or reaches out
    /// of the curve's domain by more than a millionth of its length, the image is not finite, or
    /// the tolerance would take more control points or (degrees in the hundreds) too much work.
    [[nodiscard]] virtual std::unique_ptr<GK_Curve>
    Pushup(const GK_Curve& curve2d, double tolerance, const GK_Interval* subdomain) const;

    static VX_NurbsSurface* Cast(GK_Object* object)
    {
        return dynamic_cast<VX_NurbsSurface*>(object);
    }
    static const VX_NurbsSurface* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_NurbsSurface*>(object);
    }
};
