#pragma once

#include "host/geokit/simple_array.h"

#include <atomic>
#include <cstdint>
#include <initializer_list>
#include <utility>

/// An array of plain values whose copies share one storage until one of them is written: copying
/// takes neither time nor room, however many values there are. A copy behaves as a deep one.
/// Writing throws std::bad_alloc when out of memory and then leaves the array as it was.
///
/// Whatever can change values (every operation that is not const, the non-const `Array`, `begin`,
/// `end` and operators included) first gives the array a storage of its own when others share it.
/// Read through a const array: that never copies and is fast. A pointer or reference is valid until
/// the array is written, or copied and then written.
///
/// Copies may be used by several threads, as copies of a std::shared_ptr may: each copy by one
/// thread at a time.
template <class T>
class GK_SharedArray
{
public:
    GK_SharedArray() = default;

    GK_SharedArray(std::initializer_list<T> values) : GK_SharedArray(GK_SimpleArray<T>(values)) {}

    /// Takes the values over. Implicit: arrays are built as simple ones and then handed over.
    // NOLINTNEXTLINE(google-explicit-constructor)
    GK_SharedArray(GK_SimpleArray<T> values)
    {
        if (!values.IsEmpty())
            m_storage = new Storage(std::move(values));
    }

    GK_SharedArray(const GK_SharedArray& other) noexcept : m_storage(other.m_storage)
    {
        if (m_storage != nullptr)
            m_storage->owners.fetch_add(1, std::memory_order_relaxed);
    }

    GK_SharedArray(GK_SharedArray&& other) noexcept
        : m_storage(std::exchange(other.m_storage, nullptr))
    {
    }

    GK_SharedArray& operator=(GK_SharedArray other) noexcept
    {
        std::swap(m_storage, other.m_storage);
        return *this;
    }

    ~GK_SharedArray() { Destroy(); }

    [[nodiscard]] int Count() const { return m_storage == nullptr ? 0 : m_storage->values.Count(); }
    [[nodiscard]] bool IsEmpty() const { return Count() == 0; }

    /// Returns the first value's address; null when there is none.
    [[nodiscard]] const T* Array() const
    {
        return m_storage == nullptr ? nullptr : std::as_const(m_storage->values).Array();
    }
    [[nodiscard]] T* Array() { return m_storage == nullptr ? nullptr : Own().Array(); }

    const T& operator[](int index) const { return Array()[index]; }
    T& operator[](int index) { return Own()[index]; }

    [[nodiscard]] const T* begin() const { return Array(); }
    [[nodiscard]] const T* end() const { return Array() + Count(); }
    T* begin() { return Array(); }
    T* end() { return Array() + Count(); }

    void Append(T value) { Own().Append(value); }

    /// Appends `count` values, which must not lie in this array.
    void Append(int count, const T* values)
    {
        if (count > 0)
            Own().Append(count, values);
    }

    /// Makes room for `capacity` values in all; never shrinks.
    void Reserve(int capacity) { Own().Reserve(capacity); }

    /// Changes the count. New values are value-initialised.
    void SetCount(int count) { Own().SetCount(count); }

    /// Removes the values, and releases the storage unless others share it.
    void Destroy()
    {
        Storage* storage = std::exchange(m_storage, nullptr);
        if (storage != nullptr && storage->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete storage;
    }

    /// Returns what two arrays have in common when they share one storage; null when there is none.
    /// It identifies the values as long as an array that nobody writes keeps the storage alive.
    [[nodiscard]] const void* Identity() const { return m_storage; }

    /// A mark that a reader may leave with the values, to find there for example that it has
    /// checked them; 0 at first. Copies share it, and every access that can change values removes
    /// it.
    [[nodiscard]] std::uint64_t Mark() const
    {
        return m_storage == nullptr ? 0 : m_storage->mark.load(std::memory_order_relaxed);
    }
    void SetMark(std::uint64_t mark) const
    {
        if (m_storage != nullptr)
            m_storage->mark.store(mark, std::memory_order_relaxed);
    }

private:
    struct Storage
    {
        explicit Storage(GK_SimpleArray<T> taken) : values(std::move(taken)) {}

        std::atomic<int> owners{1};
        std::atomic<std::uint64_t> mark{0};
        GK_SimpleArray<T> values;
    };

    // The values, in a storage that no other array shares and that carries no mark.
    GK_SimpleArray<T>& Own()
    {
        if (m_storage == nullptr) {
            m_storage = new Storage({});
        } else if (m_storage->owners.load(std::memory_order_acquire) > 1) {
            auto* own = new Storage(m_storage->values);
            Destroy();
            m_storage = own;
        }
        m_storage->mark.store(0, std::memory_order_relaxed);
        return m_storage->values;
    }

    Storage* m_storage = nullptr;
};
