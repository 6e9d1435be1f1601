#include "console_host/vxkit/pushup_allowance.h"

#include "host/geokit/error.h"

#include <utility>

PushupAllowance& PushupAllowance::Current()
{
    static PushupAllowance allowance;
    return allowance;
}

void PushupAllowance::Restart()
{
    *this = PushupAllowance();
}

void PushupAllowance::AddCall(const GK_NurbsCurve& curve)
{
    constexpr double ForEachCall = 2500.0; // about 1,000 control points
    constexpr double ForEachPoint = 200.0; // of a curve that the file brings
    m_left += ForEachCall;
    if (m_seen.try_emplace(curve.controlPoints.Identity(), curve.controlPoints).second)
        m_left += ForEachPoint * curve.controlPointCount;
}

void PushupAllowance::Say(Cause cause, const std::string& text)
{
    if (std::exchange(m_said[cause], true))
        return;
    GK_Error("pushup", 0, (text + "\n").c_str());
}
