#pragma once

#include <array>
#include <vector>

// Trimming curves and loops as modellers write them, in the unit square of a surface's parameters.

struct UV
{
    double u = 0.0;
    double v = 0.0;
};

/// A 2D curve of a file and the part of it that a loop takes. A part from its end to its start runs
/// backwards along the curve.
struct TrimPiece
{
    int degree = 1;
    std::vector<std::array<double, 3>> points; ///< u, v and weight
    std::vector<double> knots;                 ///< as the file writes them, ends included
    double from = 0.0;
    double to = 1.0;

    [[nodiscard]] bool IsRational() const { return degree > 1; }

    /// Returns the place at a share (0 to 1) of the way along the part.
    [[nodiscard]] UV At(double share) const;
};

using Pieces = std::vector<TrimPiece>;

struct TrimLoop
{
    bool isHole = false;
    Pieces pieces;
};

TrimPiece LinePiece(UV a, UV b);

/// Returns one curve of several straight spans.
TrimPiece PolylinePiece(const std::vector<UV>& points);

/// Returns a quarter or more of an ellipse, counter-clockwise from an angle in quarters of a turn.
TrimPiece ArcPiece(UV center, double radiusU, double radiusV, int firstQuarter, int quarters);

/// Returns a closed loop of lines through corners.
Pieces PolygonOf(const std::vector<UV>& corners);

/// Returns the corners of a rectangle, counter-clockwise.
std::vector<UV> Rectangle(double u0, double v0, double u1, double v1);

/// Returns a full ellipse in one, two or four pieces, counter-clockwise.
Pieces EllipseOf(UV center, double radiusU, double radiusV, int count);

/// Returns one closed curve, named once for each of its spans.
Pieces SpansOf(const TrimPiece& curve);

/// Returns the same curve reversed: the piece then runs against its loop.
TrimPiece Turned(TrimPiece piece);

/// Returns the same part by a reversed curve and a decreasing interval.
TrimPiece Decreasing(TrimPiece piece);

/// Returns the loop in the other direction.
Pieces Backwards(Pieces pieces);

/// Returns the loop, begun at another piece.
Pieces Rotated(Pieces pieces, int first);

/// Returns the loop with the pieces of a bit mask turned, and those of another one written
/// decreasing.
Pieces Styled(Pieces pieces, unsigned int turned, unsigned int decreasing);

Pieces Moved(Pieces pieces, double u, double v);
