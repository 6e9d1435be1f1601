#include "console_host/vxkit/pushup_memory.h"

#include <algorithm>

PushupMemory& PushupMemory::Of(const GK_NurbsSurface& surface)
{
    GK_DerivedDataSlot& slot = surface.DerivedData();
    if (auto* memory = dynamic_cast<PushupMemory*>(slot.Get()))
        return *memory;
    auto memory = std::make_unique<PushupMemory>();
    PushupMemory& made = *memory;
    slot.Set(std::move(memory));
    return made;
}

PushupMemory::Key PushupMemory::KeyOf(const Request& request)
{
    const GK_NurbsCurve& curve = request.curve;
    return {curve.controlPoints.Identity(),
            curve.knots.Identity(),
            request.interval[0],
            request.interval[1],
            request.tolerance,
            curve.order,
            curve.rational};
}

std::optional<std::unique_ptr<GK_NurbsCurve>> PushupMemory::Find(const Request& request) const
{
    const auto found = m_results.find(KeyOf(request));
    if (found == m_results.end())
        return std::nullopt;
    const std::optional<GK_NurbsCurve>& image = found->second.image;
    return image ? std::make_unique<GK_NurbsCurve>(*image) : nullptr;
}

void PushupMemory::Add(const Request& request, const GK_NurbsCurve* result)
{
    m_results.try_emplace(
        KeyOf(request),
        Result{request.curve, result != nullptr ? std::optional(*result) : std::nullopt});
}

const SurfaceClosure& PushupMemory::Closure(const GK_NurbsSurface& surface, double tolerance)
{
    const auto found = std::find_if(m_closures.begin(), m_closures.end(),
                                    [&](const auto& known) { return known.first == tolerance; });
    if (found != m_closures.end())
        return found->second;
    return m_closures.emplace_back(tolerance, ClosureOf(surface, tolerance)).second;
}
