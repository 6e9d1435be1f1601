#pragma once

#include "objreader/freeform.h"

#include "host/vxkit/nurbs_curve.h"

#include <memory>

/// Returns the kernel's curve of what a statement held. Control points that could not be read are
/// unset, and nothing is checked. `data` is emptied, unless memory runs out.
std::unique_ptr<VX_NurbsCurve> MakeCurve(CurveData& data);
