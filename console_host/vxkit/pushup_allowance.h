#pragma once

#include "host/geokit/nurbs_curve.h"

#include <array>
#include <string>
#include <unordered_map>

/// What pushing curves up onto surfaces may take in all while one file is imported. A few bytes of
/// a file can ask for another part of a long curve, so the work is bounded by what the file brings:
/// far above what the trims of a model need, which are made in full however many they are.
class PushupAllowance
{
public:
    /// Why a push-up fails.
    enum Cause
    {
        UnsoundCurve,
        OutsideDomain,
        NotFinite,
        TooManyPoints,
        UsedUp,
        CauseCount
    };

    /// Returns the one of the running import.
    static PushupAllowance& Current();

    /// Begins again, for another import.
    void Restart();

    /// Adds what one more push-up of a curve allows: something for each, and more for a curve that
    /// was not seen before.
    void AddCall(const GK_NurbsCurve& curve);

    /// Returns how many points of images may still be computed, counted at usual degrees.
    [[nodiscard]] double Left() const { return m_left; }
    void Spend(double work) { m_left -= work; }

    /// Reports to the kernel's error service why a trim was left out; each cause once in an import.
    void Say(Cause cause, const std::string& text);

private:
    static constexpr double ForAnyImport = 1e7;

    double m_left = ForAnyImport;
    std::array<bool, CauseCount> m_said{};
    std::unordered_map<const void*, GK_SharedArray<double>> m_seen; // keeps what it knows alive
};
