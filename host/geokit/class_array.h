#pragma once

#include <utility>
#include <vector>

/// A growable array of objects, which it owns. Growing may move them; references into the array do
/// not survive it. Growing throws std::bad_alloc when out of memory and then leaves the array
/// unchanged. An index must be that of an element. Any thread may use an array, one thread at a
/// time while it changes.
template <class T>
class GK_ClassArray
{
public:
    [[nodiscard]] int Count() const { return static_cast<int>(m_elements.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_elements.empty(); }

    [[nodiscard]] T* Array() { return m_elements.data(); }
    [[nodiscard]] const T* Array() const { return m_elements.data(); }

    T& operator[](int index) { return m_elements[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return m_elements[static_cast<std::size_t>(index)]; }

    /// Returns the last element, or null when there is none.
    [[nodiscard]] T* Last() { return m_elements.empty() ? nullptr : &m_elements.back(); }
    [[nodiscard]] const T* Last() const
    {
        return m_elements.empty() ? nullptr : &m_elements.back();
    }

    void Append(T value) { m_elements.push_back(std::move(value)); }

    /// Appends a default-made element and returns it.
    T& AppendNew() { return m_elements.emplace_back(); }

    void Remove(int index) { m_elements.erase(m_elements.begin() + index); }

    void Reserve(int capacity) { m_elements.reserve(static_cast<std::size_t>(capacity)); }

    /// Destroys the elements and keeps the room.
    void Empty() { m_elements.clear(); }

    /// Destroys the elements and releases the room.
    void Destroy() { std::vector<T>().swap(m_elements); }

    auto begin() { return m_elements.begin(); }
    auto end() { return m_elements.end(); }
    [[nodiscard]] auto begin() const { return m_elements.begin(); }
    [[nodiscard]] auto end() const { return m_elements.end(); }

private:
    std::vector<T> m_elements;
};
