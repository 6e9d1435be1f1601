#include "console_host/geokit/nurbs_checks.h"

#include "console_host/runtime/text.h"

#include "host/geokit/curve.h"

#include <algorithm>
#include <cmath>

bool Unsound(std::string* reason, std::string text)
{
    if (reason != nullptr)
        *reason = std::move(text);
    return false;
}

bool CheckOrder(const BsplineDirection& bspline, const char* subject, std::string* reason)
{
    const std::int64_t degree = std::int64_t{bspline.order} - 1;
    if (degree < 1)
        return Unsound(reason, FormatText("the %s has degree %lld%s; at least 1 is needed", subject,
                                          static_cast<long long>(degree), bspline.direction));
    if (bspline.order > GK_MOST_ORDER)
        return Unsound(reason, FormatText("the %s has order %d%s; at most %d is supported", subject,
                                          bspline.order, bspline.direction, GK_MOST_ORDER));
    if (bspline.count < bspline.order)
        return Unsound(reason,
                       FormatText("the %s has %d control points%s; degree %d needs at least %d",
                                  subject, bspline.count, bspline.direction, bspline.order - 1,
                                  bspline.order));
    return true;
}

bool CheckKnots(const BsplineDirection& bspline, const char* subject, std::string* reason)
{
    const std::span<const double> knots = bspline.knots;
    const char* direction = bspline.direction;
    const std::int64_t needed = std::int64_t{bspline.order} + bspline.count - 2;
    if (knots.empty())
        return Unsound(reason, FormatText("the %s has no knots%s", subject, direction));
    if (static_cast<std::int64_t>(knots.size()) != needed)
        return Unsound(reason, FormatText("the %s has %zu knots%s where %lld are needed", subject,
                                          knots.size(), direction, static_cast<long long>(needed)));
    if (!std::all_of(knots.begin(), knots.end(), [](double knot) { return std::isfinite(knot); }))
        return Unsound(reason,
                       FormatText("the %s has a knot%s that is not finite", subject, direction));
    const auto drop = std::is_sorted_until(knots.begin(), knots.end());
    if (drop != knots.end())
        return Unsound(reason, FormatText("the %s's knots%s decrease, from %.6g to %.6g", subject,
                                          direction, *(drop - 1), *drop));
    const auto order = static_cast<std::size_t>(bspline.order);
    if (!(knots[order - 2] < knots[static_cast<std::size_t>(bspline.count) - 1]))
        return Unsound(reason, FormatText("the %s's domain%s is empty", subject, direction));
    for (std::size_t i = order - 1; i < knots.size(); ++i)
        if (knots[i] == knots[i + 1 - order])
            return Unsound(reason,
                           FormatText("the %s's knot %.6g%s stands more than %d times, the degree",
                                      subject, knots[i], direction, bspline.order - 1));
    return true;
}

bool CheckControlPoints(std::span<const double> values, std::int64_t count, int dimension,
                        bool rational, const char* subject, std::string* reason,
                        std::int64_t& sound)
{
    const int stride = rational ? dimension + 1 : dimension;
    const std::int64_t present = static_cast<std::int64_t>(values.size()) / stride;
    if (present < count)
        return Unsound(reason,
                       FormatText("the %s has %lld of its %lld control points", subject,
                                  static_cast<long long>(present), static_cast<long long>(count)));
    for (; sound < count; ++sound) {
        const double* point = values.data() + sound * stride;
        const auto unsound = [&](const std::string& what) {
            return Unsound(reason, FormatText("the %s's control point %lld", subject,
                                              static_cast<long long>(sound + 1)) +
                                       what);
        };
        if (std::find(point, point + stride, GK_UNSET_VALUE) != point + stride)
            return unsound(" was never set");
        if (!std::all_of(point, point + stride, [](double x) { return std::isfinite(x); }))
            return unsound(" is not finite");
        if (rational && !(point[dimension] > 0.0))
            return unsound(FormatText(" has weight %.6g; it must be positive", point[dimension]));
    }
    return true;
}
