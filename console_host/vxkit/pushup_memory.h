#pragma once

#include "console_host/geokit/surface_closure.h"

#include "host/geokit/derived_data.h"
#include "host/geokit/nurbs_curve.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
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

    /// The memory of a surface, made when there is none yet.
    static PushupMemory& Of(const GK_NurbsSurface& surface);

    /// Returns what an equal request came to: a copy of the curve, or null when it failed. No value
    /// when there was no equal request.
    [[nodiscard]] std::optional<std::unique_ptr<GK_NurbsCurve>> Find(const Request& request) const;

    /// Remembers what a request came to; null: it failed.
    void Add(const Request& request, const GK_NurbsCurve* result);

    /// Returns how the sides of the surface, which must be valid, meet within a tolerance.
    const SurfaceClosure& Closure(const GK_NurbsSurface& surface, double tolerance);

private:
    // The arrays keep the storages alive, which thus stay what they were.
    struct Key
    {
        GK_SharedArray<double> controlPoints;
        GK_SharedArray<double> knots;
        GK_Interval interval;
        double tolerance;
        int order;
        bool rational;

        bool operator==(const Key& other) const;
    };

    struct Hash
    {
        std::size_t operator()(const Key& key) const;
    };

    static Key KeyOf(const Request& request);

    std::unordered_map<Key, std::optional<GK_NurbsCurve>, Hash> m_results;
    std::vector<std::pair<double, SurfaceClosure>> m_closures; // by tolerance
};
