#pragma once

#include "host/geokit/simple_array.h"

#include <array>
#include <cstdint>

/// Forms of curves and surfaces, as "cstype" names them.
enum CurveForm : int
{
    FormNone = 0,
    FormBasisMatrix = 1,
    FormBezier = 2,
    FormBSpline = 3,
    FormCardinal = 4,
    FormTaylor = 5
};

/// The free-form element begun last, which "parm", "trim" and "hole" apply to.
enum FreeformKind : int
{
    FreeformNone = 0,
    FreeformCurve = 4,
    FreeformParamCurve = 5,
    FreeformSurface = 6
};

/// What the free-form statements have set for those that follow.
struct FreeformAttributes
{
    int cstype = FormNone; ///< set by "cstype", as is the next
    bool rational = false; ///< control points carry weights
    int degreeU = -1;      ///< set by "deg"; -1: not given
    int degreeV = -1;
    int freeformKind = FreeformNone;
    bool parmUSet = false; ///< knots in u were given since the last "surf"
    bool parmVSet = false;
};

/// A "curv" or "curv2" curve as far as its statements could be read; nothing is checked.
struct CurveData
{
    int dimension =
        0; ///< 3, or 2 in parameter space; 0 when the statement failed before its points
    bool rational = false;
    int order = 0;                        ///< degree + 1
    int controlPointCount = 0;            ///< as named by the statement
    GK_SimpleArray<double> controlPoints; ///< of those that could be read: coordinates, and the
                                          ///< weight when rational
    GK_SimpleArray<double> knots;         ///< without superfluous ends

    /// The number of knots that a complete curve has; may be negative.
    [[nodiscard]] std::int64_t KnotCount() const
    {
        return std::int64_t{order} + controlPointCount - 2;
    }
};

/// One triple of a "trim" or "hole" statement: a piece of a "curv2" curve.
struct TrimData
{
    int curve = 0;     ///< into the file's trim curves
    double from = 0.0; ///< the parameters between which the piece lies, in the order given
    double to = 0.0;
};

/// One statement that followed a "surf" and applies to it.
struct SurfaceStep
{
    enum Kind : int
    {
        Knots,      ///< "parm" of a B-spline
        PatchKnots, ///< "parm" of a Bezier patch: two values, each a knot as often as the degree
                    ///< says
        OuterLoop,  ///< "trim"
        InnerLoop   ///< "hole"
    };

    /// Instead of a control-point count: the knots could not be read, and the old count stays.
    static constexpr int CountStays = -1;

    Kind kind = Knots;
    int direction = 0;         ///< of knots
    int valueCount = 0;        ///< how many values, or trims, follow in the surface's list
    int controlPointCount = 0; ///< that the knots claim, or CountStays
    bool completes = false; ///< with these knots the surface has both directions, and gets a face
};

/// A surface as far as its statements could be read; nothing is checked. What followed "surf" is
/// kept in the order of the file, since knots may be given again between two loops.
struct SurfaceData
{
    bool rational = false;
    std::array<int, 2> order{};     ///< degree + 1, in u and v
    GK_SimpleArray<int> surfaceCVs; ///< the positions that the statement names, u running fastest
    GK_SimpleArray<SurfaceStep> steps; ///< which take their values from the next two, in order
    GK_SimpleArray<double> values;     ///< of knots
    GK_SimpleArray<TrimData> trims;
    int faceCount = 0; ///< how many steps complete it
};
