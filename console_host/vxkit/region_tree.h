#pragma once

#include <cstdint>
#include <vector>

/// Keeps numbered items in an order that is given by where each is put, not by a key: a treap whose
/// priorities are scrambled numbers. Putting in, taking out and searching take some log n steps.
class RegionTree
{
public:
    static constexpr int None = -1;

    /// For items numbered 0 to `capacity` - 1, none of them in the tree yet.
    explicit RegionTree(int capacity) : m_nodes(static_cast<std::size_t>(capacity)) {}

    /// Puts an item directly after another one in the tree, or, after None, before all others.
    void InsertAfter(int place, int item);

    void Remove(int item);

    struct Place
    {
        int found;
        int before;
    };

    /// Returns the item at which `side(item)` is 0, where it is negative for the items after that
    /// place and positive for the items before it. When there is none, `found` is None. `before` is
    /// the last item visited with a positive side, or None.
    template <class Side>
    [[nodiscard]] Place Find(const Side& side) const
    {
        int before = None;
        int item = m_root;
        while (item != None) {
            const int where = side(item);
            if (where == 0)
                return {item, before};
            if (where > 0)
                before = item;
            item = where < 0 ? At(item).left : At(item).right;
        }
        return {None, before};
    }

private:
    struct Node
    {
        int parent = None;
        int left = None;
        int right = None;
    };

    static std::uint32_t Priority(int item)
    {
        const std::uint64_t mixed = (static_cast<std::uint64_t>(item) + 1) * 0x9E3779B97F4A7C15U;
        return static_cast<std::uint32_t>((mixed ^ (mixed >> 29)) * 0xBF58476D1CE4E5B9U >> 32);
    }

    Node& At(int item) { return m_nodes[static_cast<std::size_t>(item)]; }
    [[nodiscard]] const Node& At(int item) const { return m_nodes[static_cast<std::size_t>(item)]; }

    void Replace(int holder, int child, int by);
    void RotateUp(int item);

    std::vector<Node> m_nodes;
    int m_root = None;
};
