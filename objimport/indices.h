#pragma once

/// The numbers from 0 to `count` - 1, for a loop or a list. (Clang 14 does not take
/// std::views::iota of this compiler's library.)
class Indices
{
public:
    explicit Indices(int count) : m_count(count) {}

    class Iterator
    {
    public:
        explicit Iterator(int index) : m_index(index) {}
        int operator*() const { return m_index; }
        Iterator& operator++()
        {
            ++m_index;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        int m_index;
    };

    [[nodiscard]] Iterator begin() const { return Iterator(0); }
    [[nodiscard]] Iterator end() const { return Iterator(m_count); }

private:
    int m_count;
};
