#pragma once

/// A directed interval of parameters, from its first to its second end, which may be the smaller. A
/// plain value; nothing here fails.
class GK_Interval
{
public:
    GK_Interval() = default;
    GK_Interval(double t0, double t1) : m_t{t0, t1} {}

    [[nodiscard]] double operator[](int end) const { return m_t[end]; }
    [[nodiscard]] double Min() const { return m_t[0] < m_t[1] ? m_t[0] : m_t[1]; }
    [[nodiscard]] double Max() const { return m_t[0] < m_t[1] ? m_t[1] : m_t[0]; }
    [[nodiscard]] double Length() const { return m_t[1] - m_t[0]; }
    [[nodiscard]] bool IsIncreasing() const { return m_t[0] < m_t[1]; }
    [[nodiscard]] bool IsDecreasing() const { return m_t[0] > m_t[1]; }

    /// Returns the parameter at a fraction 0 to 1 of the way from the first end to the second.
    [[nodiscard]] double ParameterAt(double fraction) const
    {
        return (1.0 - fraction) * m_t[0] + fraction * m_t[1];
    }

    friend bool operator==(const GK_Interval&, const GK_Interval&) = default;

private:
    double m_t[2] = {0.0, 0.0};
};
