#pragma once

#include "console_host/geokit/surface_closure.h"

#include "host/geokit/derived_data.h"
#include "host/geokit/nurbs_curve.h"

#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

/// What was pushed up onto a surface, and how its sides meet, until the surface changes. A curve is
/// known by the storage that its copies share, so that a curve named by many trims takes no time to
/// find.
class PushupMemory final : public GK_DerivedData
{
public:
    /// What a push-up depends on.
    struct Request
    {
        const GK_NurbsCurve& curve;
        GK_Interval interval;
        double tolerance;
    };

    /// Returns the memory of a surface, made when there is none yet.
    static PushupMemory& Of(const GK_NurbsSurface& surface);

    /// Returns the result of an equal request: a copy of the curve, or null when it failed. No
    /// value when there was no equal request.
    [[nodiscard]] std::optional<std::unique_ptr<GK_NurbsCurve>> Find(const Request& request) const;

    /// Remembers the result of a request; null: it failed.
    void Add(const Request& request, const GK_NurbsCurve* result);

    /// Returns how the sides of the surface, which must be valid, meet within a tolerance.
    const SurfaceClosure& Closure(const GK_NurbsSurface& surface, double tolerance);

private:
    /// Storages of control points and knots, interval, tolerance, order, rational.
    using Key = std::tuple<const void*, const void*, double, double, double, int, bool>;

    struct Result
    {
        GK_NurbsCurve asked; ///< keeps the storages alive, which thus stay what they were
        std::optional<GK_NurbsCurve> image;
    };

    static Key KeyOf(const Request& request);

    std::map<Key, Result> m_results;
    std::vector<std::pair<double, SurfaceClosure>> m_closures; // by tolerance
};
