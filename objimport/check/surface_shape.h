#pragma once

#include "objimport/check/finding.h"
#include "objreader/freeform.h"
#include "objreader/vertex_lists.h"

#include "host/geokit/nurbs_surface.h"

#include <optional>

/// A surface as its statements leave it.
class SurfaceShape
{
public:
    /// The data must outlive the object.
    SurfaceShape(const SurfaceData& data, const VertexLists& lists);

    /// Returns why a host refuses the surface; nothing when it takes it.
    [[nodiscard]] std::optional<Phrase> WhyUnsound() const;

    /// Returns the directions of which no knots were read: "u", "v", "u, v" or none.
    [[nodiscard]] std::string DirectionsWithoutKnots() const;

    /// Returns the surface, which must be sound.
    [[nodiscard]] GK_NurbsSurface MakeSurface() const;

private:
    void FollowSteps();
    void SetKnots(const SurfaceStep& step, const double* values);
    void TakePoints();

    const SurfaceData& m_data;
    const VertexLists& m_lists;
    std::array<int, 2> m_count{};
    std::array<GK_SimpleArray<double>, 2> m_knots;
    std::array<bool, 2> m_hasKnots{};
    GK_SimpleArray<double> m_points; ///< coordinates, and weights when rational
};
