#include "console_host/vxkit/pushup_memory.h"

#include <algorithm>
#include <bit>

namespace {

// The finaliser of the SplitMix64 generator (S. Vigna): every bit depends on every bit.
std::uint64_t Mix(std::uint64_t bits)
{
    bits = (bits ^ (bits >> 30U)) * 0xbf58476d1ce4e5b9U;
    bits = (bits ^ (bits >> 27U)) * 0x94d049bb133111ebU;
    return bits ^ (bits >> 31U);
}

std::uint64_t Bits(double value)
{
    return std::bit_cast<std::uint64_t>(value == 0.0 ? 0.0 : value);
}

} // namespace

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
    return {request.curve.controlPoints, request.curve.knots, request.interval,
            request.tolerance,           request.curve.order, request.curve.rational};
}

bool PushupMemory::Key::operator==(const Key& other) const
{
    return controlPoints.Identity() == other.controlPoints.Identity() &&
           knots.Identity() == other.knots.Identity() && interval == other.interval &&
           tolerance == other.tolerance && order == other.order && rational == other.rational;
}

// Addresses, which no file can foresee, come first.
std::size_t PushupMemory::Hash::operator()(const Key& key) const
{
    std::uint64_t bits = Mix(reinterpret_cast<std::uintptr_t>(key.controlPoints.Identity()));
    bits = Mix(bits ^ reinterpret_cast<std::uintptr_t>(key.knots.Identity()));
    for (const double value : {key.interval[0], key.interval[1], key.tolerance})
        bits = Mix(bits ^ Bits(value));
    return static_cast<std::size_t>(bits);
}

std::optional<std::unique_ptr<GK_NurbsCurve>> PushupMemory::Find(const Request& request) const
{
    const auto found = m_results.find(KeyOf(request));
    if (found == m_results.end())
        return std::nullopt;
    if (!found->second)
        return nullptr;
    return std::make_unique<GK_NurbsCurve>(*found->second);
}

void PushupMemory::Add(const Request& request, const GK_NurbsCurve* result)
{
    m_results.try_emplace(KeyOf(request), result == nullptr
                                              ? std::optional<GK_NurbsCurve>()
                                              : std::optional<GK_NurbsCurve>(*result));
}

const SurfaceClosure& PushupMemory::Closure(const GK_NurbsSurface& surface, double tolerance)
{
    const auto found = std::find_if(m_closures.begin(), m_closures.end(),
                                    [&](const auto& known) { return known.first == tolerance; });
    if (found != m_closures.end())
        return found->second;
    return m_closures.emplace_back(tolerance, ClosureOf(surface, tolerance)).second;
}
