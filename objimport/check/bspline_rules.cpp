#include "objimport/check/bspline_rules.h"

#include "objimport/check/check_texts.h"

#include "host/geokit/curve.h"

#include <algorithm>
#include <cmath>

namespace {

Phrase Because(const LocalText& text, std::vector<PhraseArgument> arguments)
{
    return {text, std::move(arguments)};
}

std::string Direction(const BsplineRow& row)
{
    return std::string(row.name);
}

} // namespace

std::optional<Phrase> WhyWrongOrder(const BsplineRow& row)
{
    const std::int64_t degree = std::int64_t{row.order} - 1;
    if (degree < 1)
        return Because(CheckReasons::DegreeTooLow, {Direction(row), std::to_string(degree)});
    if (row.order > GK_MOST_ORDER)
        return Because(CheckReasons::OrderTooHigh,
                       {Direction(row), std::to_string(GK_MOST_ORDER - 1)});
    if (row.pointCount < row.order)
        return Because(CheckReasons::TooFewPoints,
                       {std::to_string(row.pointCount), Direction(row), std::to_string(row.order)});
    return std::nullopt;
}

std::optional<Phrase> WhyWrongKnots(const BsplineRow& row)
{
    const std::span<const double> knots = row.knots;
    const std::int64_t needed = std::int64_t{row.order} + row.pointCount - 2;
    if (knots.empty())
        return Because(CheckReasons::NoKnots, {Direction(row)});
    if (static_cast<std::int64_t>(knots.size()) != needed)
        return Because(CheckReasons::OtherKnotCount,
                       {std::to_string(knots.size()), Direction(row), std::to_string(needed)});
    if (!std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); }))
        return Because(CheckReasons::KnotNotFinite, {Direction(row)});
    const auto drop = std::is_sorted_until(knots.begin(), knots.end());
    if (drop != knots.end())
        return Because(CheckReasons::KnotsDecrease,
                       {Direction(row), ShownNumber(*(drop - 1)), ShownNumber(*drop)});
    const auto order = static_cast<std::size_t>(row.order);
    if (!(knots[order - 2] < knots[static_cast<std::size_t>(row.pointCount) - 1]))
        return Because(CheckReasons::EmptyDomain, {Direction(row)});
    for (std::size_t i = order - 1; i < knots.size(); ++i)
        if (knots[i] == knots[i + 1 - order])
            return Because(CheckReasons::KnotTooOften, {ShownNumber(knots[i]), Direction(row)});
    return std::nullopt;
}

std::optional<Phrase> WhyWrongPoints(std::span<const double> values, std::int64_t count,
                                     int dimension, bool rational)
{
    const auto stride = static_cast<std::size_t>(rational ? dimension + 1 : dimension);
    const std::size_t present = values.size() / stride;
    if (static_cast<std::int64_t>(present) < count)
        return Because(CheckReasons::PointsMissing,
                       {std::to_string(present), std::to_string(count)});
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const std::span<const double> point = values.subspan(i * stride, stride);
        if (!std::all_of(point.begin(), point.end(), [](double x) { return std::isfinite(x); }))
            return Because(CheckReasons::PointNotFinite, {std::to_string(i + 1)});
        if (rational && !(point.back() > 0.0))
            return Because(CheckReasons::WeightNotPositive,
                           {ShownNumber(point.back()), std::to_string(i + 1)});
    }
    return std::nullopt;
}
