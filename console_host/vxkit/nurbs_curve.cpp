#include "host/vxkit/nurbs_curve.h"

std::unique_ptr<GK_Curve> VX_NurbsCurve::Duplicate() const
{
    return std::make_unique<VX_NurbsCurve>(*this);
}
