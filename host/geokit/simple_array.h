#pragma once

#include "host/geokit/allocation.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <new>
#include <type_traits>
#include <utility>

/// A growable array of plain values, kept in one block of the kernel's allocator. Elements are
/// moved as bytes when the array grows. Growing throws std::bad_alloc when out of memory, or when
/// more elements than an int can count would be needed, and then leaves the array unchanged. The
/// array owns its elements; an address is valid until it grows or shrinks. An index must be that of
/// an element. Any thread may use an array, one thread at a time while it changes.
template <class T>
class GK_SimpleArray
{
    static_assert(std::is_trivially_copyable_v<T>);

public:
    GK_SimpleArray() = default;

    GK_SimpleArray(std::initializer_list<T> values)
    {
        Reserve(static_cast<int>(values.size()));
        for (const T& value : values)
            Append(value);
    }

    GK_SimpleArray(const GK_SimpleArray& other)
    {
        Reserve(other.m_count);
        Append(other.m_count, other.m_elements);
    }

    GK_SimpleArray(GK_SimpleArray&& other) noexcept { Swap(other); }

    GK_SimpleArray& operator=(const GK_SimpleArray& other)
    {
        GK_SimpleArray copy(other);
        Swap(copy);
        return *this;
    }

    GK_SimpleArray& operator=(GK_SimpleArray&& other) noexcept
    {
        GK_SimpleArray taken(std::move(other));
        Swap(taken);
        return *this;
    }

    ~GK_SimpleArray() { GK_Free(m_elements); }

    void Swap(GK_SimpleArray& other) noexcept
    {
        std::swap(m_elements, other.m_elements);
        std::swap(m_count, other.m_count);
        std::swap(m_capacity, other.m_capacity);
    }

    [[nodiscard]] int Count() const { return m_count; }
    [[nodiscard]] int Capacity() const { return m_capacity; }
    [[nodiscard]] bool IsEmpty() const { return m_count == 0; }

    /// Returns the first element's address; null while nothing was ever reserved.
    [[nodiscard]] T* Array() { return m_elements; }
    [[nodiscard]] const T* Array() const { return m_elements; }

    T& operator[](int index) { return m_elements[index]; }
    const T& operator[](int index) const { return m_elements[index]; }

    /// Returns the last element, or null when there is none.
    [[nodiscard]] T* Last() { return m_count > 0 ? m_elements + m_count - 1 : nullptr; }
    [[nodiscard]] const T* Last() const { return m_count > 0 ? m_elements + m_count - 1 : nullptr; }

    void Append(T value)
    {
        if (m_count == m_capacity)
            Grow();
        ::new (static_cast<void*>(m_elements + m_count)) T(value);
        ++m_count;
    }

    /// Appends `count` values, which must not lie in this array.
    void Append(int count, const T* values)
    {
        if (count > 0)
            std::memcpy(static_cast<void*>(AppendUnset(count)), values,
                        sizeof(T) * static_cast<std::size_t>(count));
    }

    /// Appends `count` (0 or more) elements whose values are yet to be set; returns the address of
    /// the first.
    T* AppendUnset(int count)
    {
        if (count > std::numeric_limits<int>::max() - m_count)
            throw std::bad_alloc();
        if (m_count + count > m_capacity)
            Reallocate(std::max(GrownCapacity(), m_count + count));
        m_count += count;
        return m_elements + m_count - count;
    }

    /// Makes room for `capacity` elements in all; never shrinks.
    void Reserve(int capacity)
    {
        if (capacity > m_capacity)
            Reallocate(capacity);
    }

    /// Changes the count. Elements that come in are value-initialised.
    void SetCount(int count)
    {
        Reserve(count);
        for (int i = m_count; i < count; ++i)
            ::new (static_cast<void*>(m_elements + i)) T();
        m_count = count;
    }

    /// Releases the room that no element uses.
    void Shrink()
    {
        if (m_count == 0)
            Destroy();
        else if (m_count < m_capacity)
            Reallocate(m_count);
    }

    /// Removes the elements and keeps the room.
    void Empty() { m_count = 0; }

    /// Removes the elements and releases the room.
    void Destroy()
    {
        GK_Free(m_elements);
        m_elements = nullptr;
        m_count = m_capacity = 0;
    }

    T* begin() { return m_elements; }
    T* end() { return m_elements + m_count; }
    [[nodiscard]] const T* begin() const { return m_elements; }
    [[nodiscard]] const T* end() const { return m_elements + m_count; }

private:
    [[nodiscard]] int GrownCapacity() const
    {
        constexpr int Smallest = 16;
        constexpr int Largest = std::numeric_limits<int>::max();
        return m_capacity > Largest / 2 ? Largest : std::max(Smallest, m_capacity * 2);
    }

    void Grow()
    {
        if (m_capacity == std::numeric_limits<int>::max())
            throw std::bad_alloc();
        Reallocate(GrownCapacity());
    }

    void Reallocate(int capacity)
    {
        // NOLINTNEXTLINE(*-sizeof-*): elements may be pointers
        const std::size_t size = sizeof(T) * static_cast<std::size_t>(capacity);
        m_elements = static_cast<T*>(GK_Reallocate(m_elements, size));
        m_capacity = capacity;
    }

    T* m_elements = nullptr;
    int m_count = 0;
    int m_capacity = 0;
};
