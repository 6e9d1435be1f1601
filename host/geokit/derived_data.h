#pragma once

#include <memory>
#include <utility>

/// Something that the host has worked out from an object and keeps with it, to be used again while
/// the object stays as it is. What it is, only the host knows; modules leave it alone.
class GK_DerivedData
{
public:
    GK_DerivedData() = default;
    GK_DerivedData(const GK_DerivedData&) = delete;
    GK_DerivedData& operator=(const GK_DerivedData&) = delete;
    virtual ~GK_DerivedData() = default;
};

/// The place for derived data in the object it belongs to. Copying or assigning the object leaves
/// the place of the copy empty.
class GK_DerivedDataSlot
{
public:
    GK_DerivedDataSlot() = default;
    GK_DerivedDataSlot(const GK_DerivedDataSlot&) {}
    GK_DerivedDataSlot(GK_DerivedDataSlot&&) noexcept {}
    ~GK_DerivedDataSlot() = default;

    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): to lose the data does no harm
    GK_DerivedDataSlot& operator=(const GK_DerivedDataSlot&)
    {
        m_data.reset();
        return *this;
    }
    GK_DerivedDataSlot& operator=(GK_DerivedDataSlot&&) noexcept
    {
        m_data.reset();
        return *this;
    }

    /// Returns the data, which the slot owns, or null while there is none.
    [[nodiscard]] GK_DerivedData* Get() const { return m_data.get(); }

    /// Takes data over in place of what is there; null empties the slot.
    void Set(std::unique_ptr<GK_DerivedData> data) { m_data = std::move(data); }

private:
    std::unique_ptr<GK_DerivedData> m_data;
};
