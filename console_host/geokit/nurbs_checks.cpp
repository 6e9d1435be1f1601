#include "console_host/geokit/nurbs_checks.h"

#include "console_host/geokit/text.h"

#include "host/geokit/curve.h"

#include <algorithm>
#include <cmath>

bool Unsound(std::string* reason, std::string text)
{
    if (reason != nullptr)
        *reason = std::move(text);
    return false;
}

namespace {

std::string Number(double value)
{
    return FormatText("%.6g", value);
}

std::string The(const char* subject)
{
    return std::string("the ") + subject;
}

} // namespace

bool CheckOrder(const BsplineDirection& bspline, const char* subject, std::string* reason)
{
    const std::int64_t degree = std::int64_t{bspline.order} - 1;
    if (degree < 1)
        return Unsound(reason, The(subject) + " has degree " + std::to_string(degree) +
                                   bspline.direction + "; at least 1 is needed");
    if (bspline.order > GK_MOST_ORDER)
        return Unsound(reason, The(subject) + " has order " + std::to_string(bspline.order) +
                                   bspline.direction + "; at most " +
                                   std::to_string(GK_MOST_ORDER) + " is supported");
    if (bspline.count < bspline.order)
        return Unsound(reason, The(subject) + " has " + std::to_string(bspline.count) +
                                   " control points" + bspline.direction + "; degree " +
                                   std::to_string(degree) + " needs at least " +
                                   std::to_string(degree + 1));
    return true;
}

bool CheckKnots(const BsplineDirection& bspline, const char* subject, std::string* reason)
{
    const std::span<const double> knots = bspline.knots;
    const std::int64_t needed = std::int64_t{bspline.order} + bspline.count - 2;
    if (knots.empty())
        return Unsound(reason, The(subject) + " has no knots" + bspline.direction);
    if (static_cast<std::int64_t>(knots.size()) != needed)
        return Unsound(reason, The(subject) + " has " + std::to_string(knots.size()) + " knots" +
                                   bspline.direction + " where " + std::to_string(needed) +
                                   " are needed");
    if (!std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); }))
        return Unsound(reason,
                       The(subject) + " has a knot" + bspline.direction + " that is not finite");
    const auto drop = std::is_sorted_until(knots.begin(), knots.end());
    if (drop != knots.end())
        return Unsound(reason, The(subject) + "'s knots" + bspline.direction + " decrease, from " +
                                   Number(*(drop - 1)) + " to " + Number(*drop));
    const auto order = static_cast<std::size_t>(bspline.order);
    if (!(knots[order - 2] < knots[static_cast<std::size_t>(bspline.count) - 1]))
        return Unsound(reason, The(subject) + "'s domain" + bspline.direction + " is empty");
    for (std::size_t i = order - 1; i < knots.size(); ++i)
        if (knots[i] == knots[i + 1 - order])
            return Unsound(reason, The(subject) + "'s knot " + Number(knots[i]) +
                                       bspline.direction + " stands more than " +
                                       std::to_string(order - 1) + " times, the degree");
    return true;
}

bool CheckControlPoints(std::span<const double> values, std::int64_t count, int dimension,
                        bool rational, const char* subject, std::string* reason,
                        std::int64_t& sound)
{
    const int stride = rational ? dimension + 1 : dimension;
    const std::int64_t present = static_cast<std::int64_t>(values.size()) / stride;
    if (present < count)
        return Unsound(reason, The(subject) + " has " + std::to_string(present) + " of its " +
                                   std::to_string(count) + " control points");
    for (; sound < count; ++sound) {
        const double* point = values.data() + sound * stride;
        const auto unsound = [&](const std::string& what) {
            return Unsound(reason,
                           The(subject) + "'s control point " + std::to_string(sound + 1) + what);
        };
        if (std::find(point, point + stride, GK_UNSET_VALUE) != point + stride)
            return unsound(" was never set");
        if (!std::all_of(point, point + stride, [](double x) { return std::isfinite(x); }))
            return unsound(" is not finite");
        if (rational && !(point[dimension] > 0.0))
            return unsound(" has weight " + Number(point[dimension]) + "; it must be positive");
    }
    return true;
}
