#pragma once

#include "console_host/geokit/parameter_plane.h"

#include <cmath>
#include <vector>

/// A loop as a polygon, or what is left of one as chains of straight lines, in shares of the
/// domain.
class LoopPolygon
{
public:
    /// How another polygon lies to this one.
    enum class Relation
    {
        Outside,
        Inside,
        OnBoundary, ///< along this one all the way
        Around,     ///< it holds this one
        Crossing    ///< partly inside and partly outside
    };

    /// Appends a corner; a chain that is not joined begins there.
    void Append(const Uv& corner, bool joined);

    /// Ends with a line from the last corner to the first.
    void Close();

    [[nodiscard]] const UvBox& Box() const { return m_box; }

    /// Moves all corners.
    void Move(const Uv& way);

    [[nodiscard]] double Area() const { return std::abs(m_area); }

    /// Returns the area, positive when a closed polygon runs counter-clockwise.
    [[nodiscard]] double SignedArea() const { return m_area; }

    /// Returns how another closed polygon lies to this one, which is closed. What is nearer than
    /// `near` to a line counts as on it. Work grows with the corners of both and with how many of
    /// them stand side by side.
    [[nodiscard]] Relation RelationOf(const LoopPolygon& other, double near) const;

    /// Returns whether lines of the two cross, their ends more than `near` away.
    [[nodiscard]] bool Crosses(const LoopPolygon& other, double near) const;

private:
    struct Line
    {
        Uv from;
        Uv to;
    };

    struct Place
    {
        bool inside;
        bool onLine;
    };

    /// Returns whether `isMeant` returns true for a line of the rows between two values of v.
    template <class IsMeant>
    [[nodiscard]] bool AnyLine(double fromV, double toV, const IsMeant& isMeant) const;
    [[nodiscard]] bool HasLineNear(const UvBox& box) const;
    [[nodiscard]] std::size_t RowOf(double v) const;
    void FillRows() const;
    [[nodiscard]] Place PlaceOf(const Uv& place, double near) const;
    [[nodiscard]] bool Crosses(const Line& line, double near) const;

    std::vector<Line> m_lines;
    Uv m_first{};
    Uv m_last{};
    UvBox m_box;
    double m_area = 0.0;

    // The lines that reach into each of equal strips of v, filled when first asked for: most
    // polygons meet no other one.
    mutable std::vector<std::size_t> m_rowStarts;
    mutable std::vector<std::size_t> m_rowLines;
};
