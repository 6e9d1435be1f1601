#pragma once

/// Points and vectors are plain values: `d` types hold doubles, `f` types single precision. Lengths
/// are in the unit of the document. A default-made one is zero. Nothing here fails.

struct GK_2dPoint
{
    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const GK_2dPoint&, const GK_2dPoint&) = default;
};

struct GK_2fPoint
{
    float x = 0.0F;
    float y = 0.0F;

    friend bool operator==(const GK_2fPoint&, const GK_2fPoint&) = default;
};

struct GK_3dVector
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(const GK_3dVector&, const GK_3dVector&) = default;

    [[nodiscard]] double Length() const;
};

struct GK_3dPoint
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend bool operator==(const GK_3dPoint&, const GK_3dPoint&) = default;

    [[nodiscard]] double DistanceTo(const GK_3dPoint& other) const;
};

struct GK_3fPoint
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    GK_3fPoint() = default;
    GK_3fPoint(float px, float py, float pz) : x(px), y(py), z(pz) {}

    /// Rounds each coordinate to the nearest single-precision value; one too large becomes
    /// infinite.
    explicit GK_3fPoint(const GK_3dPoint& point)
        : x(static_cast<float>(point.x)), y(static_cast<float>(point.y)),
          z(static_cast<float>(point.z))
    {
    }

    friend bool operator==(const GK_3fPoint&, const GK_3fPoint&) = default;
};

struct GK_3fVector
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;

    friend bool operator==(const GK_3fVector&, const GK_3fVector&) = default;

    /// Returns true when exactly zero in all three; -0 counts as 0.
    [[nodiscard]] bool IsZero() const { return x == 0.0F && y == 0.0F && z == 0.0F; }

    /// Returns true when the length differs from 1 by no more than single precision explains.
    [[nodiscard]] bool IsUnitVector() const;

    /// Makes the length 1 and returns true. Returns false, with the vector unchanged, when it is
    /// zero or not finite.
    bool Unitize();

    GK_3fVector& operator+=(const GK_3fVector& other)
    {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }
};

inline GK_3dVector operator-(const GK_3dPoint& a, const GK_3dPoint& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline GK_3dPoint operator+(const GK_3dPoint& point, const GK_3dVector& vector)
{
    return {point.x + vector.x, point.y + vector.y, point.z + vector.z};
}

inline GK_3dVector operator+(const GK_3dVector& a, const GK_3dVector& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline GK_3dVector operator*(double factor, const GK_3dVector& vector)
{
    return {factor * vector.x, factor * vector.y, factor * vector.z};
}

inline double GK_DotProduct(const GK_3dVector& a, const GK_3dVector& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline GK_3dVector GK_CrossProduct(const GK_3dVector& a, const GK_3dVector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline GK_3fVector operator+(GK_3fVector a, const GK_3fVector& b)
{
    return a += b;
}

inline constexpr GK_3dPoint GK_origin{};

/// Marks a double that was never given a value.
inline constexpr double GK_UNSET_VALUE = -1.0e308;
