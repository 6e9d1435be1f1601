#pragma once

#include "host/geokit/nurbs_curve.h"

/// The toolkit's B-spline curve. Copies are independent, and share storage until one is changed.
class VX_NurbsCurve : public GK_NurbsCurve
{
public:
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;

    /// Return the object as a curve of the toolkit, or null when it is none.
    static VX_NurbsCurve* Cast(GK_Object* object) { return dynamic_cast<VX_NurbsCurve*>(object); }
    static const VX_NurbsCurve* Cast(const GK_Object* object)
    {
        return dynamic_cast<const VX_NurbsCurve*>(object);
    }
};
