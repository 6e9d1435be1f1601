#include "console_host/geokit/line_curve.h"

#include "host/geokit/nurbs_curve.h"

std::unique_ptr<GK_Curve> MakeLineCurve(const GK_3dPoint& from, const GK_3dPoint& to,
                                        const GK_Interval& domain)
{
    auto line = std::make_unique<GK_NurbsCurve>();
    line->Create(2, false, 2, 2);
    line->knots = {domain[0], domain[1]};
    const double start[2] = {from.x, from.y};
    const double end[2] = {to.x, to.y};
    line->SetCV(0, GK::not_rational, start);
    line->SetCV(1, GK::not_rational, end);
    return line;
}
