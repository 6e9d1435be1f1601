#pragma once

#include "tests/trimming/trim_pieces.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

// Surfaces with known areas, over the unit square of parameters.

struct ShapeSurface
{
    std::array<int, 2> degree{1, 1};
    std::array<std::vector<double>, 2> knots;  ///< as the file writes them, ends included
    std::vector<std::array<double, 4>> points; ///< u runs fastest; the last one is the weight
    bool rational = false;
    std::array<bool, 2> closed{};

    /// The area between u = 0 and u from v0 to v1, two lines near each other. u, and v where the
    /// surface is closed, may lie beyond the unit square.
    std::function<double(double u, double v0, double v1)> strip;
};

ShapeSurface PlaneShape(double width, double height);
ShapeSurface CylinderShape(double radius, double height);
ShapeSurface ConeShape(double bottom, double top, double height); ///< a radius of 0 is a pole
ShapeSurface SphereShape(double radius);                          ///< poles at v = 0 and v = 1
ShapeSurface TorusShape(double radius, double tube);

/// Returns a bicubic height field of one patch; `heights` are those of its 16 control points.
ShapeSurface PatchShape(double width, double height, const std::array<double, 16>& heights);

/// Returns the surface with every point multiplied and then moved along the diagonal.
ShapeSurface Placed(ShapeSurface surface, double scale, double offset);

/// Returns the area that a closed loop bounds on the surface, by formulas; positive
/// counter-clockwise.
double AreaWithin(const ShapeSurface& surface, const Pieces& loop);

/// Returns the area between two values of v, all the way across u.
double AreaOfBand(const ShapeSurface& surface, double v0, double v1);

/// A trimmed surface and what an import must make of it.
struct TrimmedShape
{
    ShapeSurface surface;
    std::vector<TrimLoop> loops;
    double area = 0.0; ///< below 0: any
    int faces = 1;     ///< 0: the brep is refused; -1: any number
    int dropped = 0;   ///< loops that `refused` names
    int vertices = -1; ///< -1: any number
    int borders = -1;  ///< edges with one trim
    int seams = -1;    ///< edges with two trims
};

/// How a file is written.
struct Writing
{
    int digits = 17;
    std::array<std::array<double, 2>, 2> domain{{{0, 1}, {0, 1}}}; ///< of u and v
    bool swapped = false;                                          ///< u and v are exchanged
};

/// Returns the text of an OBJ file with shapes. Equal 2D curves are written once.
std::string ObjText(const std::vector<TrimmedShape>& shapes, const Writing& writing);
