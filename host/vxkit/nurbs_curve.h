#pragma once

#include "host/geokit/nurbs_curve.h"

/// The toolkit's B-spline curve; all is as for the kernel's.
class VX_NurbsCurve : public GK_NurbsCurve
{
public:
    /// Return the object as a curve of the toolkit, or null when it is none.
    static VX_NurbsCurve* Cast(GK_Object* object) { return dynamic_cast<VX_NurbsCurve*>(object); }
    static const VX_NurbsCurve* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_NurbsCurve*>(object);
    }
};
