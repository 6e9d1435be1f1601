#include "console_host/vxkit/region_tree.h"
#include "console_host/vxkit/sweep_polygon.h"
#include "console_host/vxkit/triangulate_planar.h"

#include <algorithm>

namespace {

constexpr int None = -1;

/// The sweeping line crosses the polygon's inside in regions, each between a left and a right side.
/// What lies above the line in a region and is not cut into triangles yet is bounded by one chain
/// of corners, or by two that end in the same corner, where two regions met. A chain runs down one
/// side; only its top corner belongs to the other side.
class Sweep
{
public:
    Sweep(const SweepPolygon& polygon, int capacity, TriangleWriter& triangles)
        : m_polygon(polygon), m_triangles(triangles), m_tree(capacity),
          m_regionOfSide(static_cast<std::size_t>(capacity), None)
    {
        m_regions.reserve(static_cast<std::size_t>(capacity));
        m_links.reserve(static_cast<std::size_t>(capacity) * 3);
    }

    bool Meet(int corner);

private:
    enum class Bank : unsigned char
    {
        Left,
        Right
    };

    struct Chain
    {
        int bottom = None;
        Bank bank = Bank::Left;
    };

    struct Link
    {
        int corner;
        int above;
    };

    struct Region
    {
        int leftSide;
        int rightSide;
        Chain left;
        Chain right;
    };

    bool Begin(int corner);
    bool Split(int corner);
    bool Join(int corner);
    bool End(int corner);
    bool Continue(int corner, Bank bank);

    Chain NewChain(int corner);
    void Append(Chain& chain, int corner, Bank bank);
    void CutAll(const Chain& chain, int corner);
    void Pass(Region& region, int corner, Bank bank);
    int AddRegion(int leftSide, int rightSide, const Chain& chain);
    [[nodiscard]] RegionTree::Place Find(int corner) const;

    int& RegionOfSide(int side) { return m_regionOfSide[static_cast<std::size_t>(side)]; }
    Region& At(int region) { return m_regions[static_cast<std::size_t>(region)]; }
    [[nodiscard]] const Region& At(int region) const
    {
        return m_regions[static_cast<std::size_t>(region)];
    }
    [[nodiscard]] const Link& LinkAt(int link) const
    {
        return m_links[static_cast<std::size_t>(link)];
    }

    const SweepPolygon& m_polygon;
    TriangleWriter& m_triangles;
    RegionTree m_tree;
    std::vector<int> m_regionOfSide;
    std::vector<Region> m_regions;
    std::vector<Link> m_links;
};

Sweep::Chain Sweep::NewChain(int corner)
{
    m_links.push_back({corner, None});
    return {static_cast<int>(m_links.size()) - 1, Bank::Left};
}

/// Cuts all that a chain bounds into triangles with a corner below it.
void Sweep::CutAll(const Chain& chain, int corner)
{
    for (int link = chain.bottom; LinkAt(link).above != None; link = LinkAt(link).above) {
        const int lower = LinkAt(link).corner;
        const int upper = LinkAt(LinkAt(link).above).corner;
        if (chain.bank == Bank::Left)
            m_triangles.Add(upper, lower, corner);
        else
            m_triangles.Add(lower, upper, corner);
    }
}

/// Continues a chain with the next corner on either side and cuts what triangles that allows.
void Sweep::Append(Chain& chain, int corner, Bank bank)
{
    const bool isSingle = LinkAt(chain.bottom).above == None;
    if (!isSingle && bank != chain.bank) {
        CutAll(chain, corner);
        m_links.push_back({LinkAt(chain.bottom).corner, None});
        chain.bottom = static_cast<int>(m_links.size()) - 1;
    }
    chain.bank = bank;
    for (int above = LinkAt(chain.bottom).above; above != None;
         above = LinkAt(chain.bottom).above) {
        int first = LinkAt(above).corner;
        const int second = LinkAt(chain.bottom).corner;
        int third = corner;
        if (bank == Bank::Right)
            std::swap(first, third);
        if (Orientation(m_polygon.Point(first), m_polygon.Point(second), m_polygon.Point(third)) <=
            0.0)
            break;
        m_triangles.Add(first, second, third);
        chain.bottom = above;
    }
    m_links.push_back({corner, chain.bottom});
    chain.bottom = static_cast<int>(m_links.size()) - 1;
}

/// Adds a corner on one bank of a region to its chains. Where there were two, one is left.
void Sweep::Pass(Region& region, int corner, Bank bank)
{
    if (region.right.bottom != None) {
        CutAll(bank == Bank::Left ? region.left : region.right, corner);
        if (bank == Bank::Left)
            region.left = region.right;
        region.right.bottom = None;
    }
    Append(region.left, corner, bank);
}

int Sweep::AddRegion(int leftSide, int rightSide, const Chain& chain)
{
    const int region = static_cast<int>(m_regions.size());
    m_regions.push_back({leftSide, rightSide, chain, Chain{}});
    RegionOfSide(leftSide) = RegionOfSide(rightSide) = region;
    return region;
}

RegionTree::Place Sweep::Find(int corner) const
{
    return m_tree.Find([&](int region) {
        if (!m_polygon.IsLeftOf(At(region).leftSide, corner))
            return -1;
        return m_polygon.IsLeftOf(At(region).rightSide, corner) ? 0 : 1;
    });
}

bool Sweep::Begin(int corner)
{
    const RegionTree::Place place = Find(corner);
    if (place.found != None)
        return false;
    m_tree.InsertAfter(place.before,
                       AddRegion(corner, m_polygon.Previous(corner), NewChain(corner)));
    return true;
}

/// Splits a region at the corner: a new one begins on its right.
bool Sweep::Split(int corner)
{
    const int found = Find(corner).found;
    if (found == None)
        return false;
    Region& region = At(found);
    Chain right = region.right;
    if (right.bottom == None) {
        // The lowest corner above is joined to this one: all that the chain bounds lies on one
        // side.
        const Chain single = NewChain(LinkAt(region.left.bottom).corner);
        right = single;
        if (region.left.bank == Bank::Left)
            std::swap(region.left, right);
    }
    Append(region.left, corner, Bank::Right);
    Append(right, corner, Bank::Left);
    const int oldRightSide = region.rightSide;
    region.rightSide = m_polygon.Previous(corner);
    region.right.bottom = None;
    RegionOfSide(region.rightSide) = found;
    m_tree.InsertAfter(found, AddRegion(corner, oldRightSide, right));
    return true;
}

/// Joins the two regions that meet at the corner.
bool Sweep::Join(int corner)
{
    const int left = RegionOfSide(corner);
    const int right = RegionOfSide(m_polygon.Previous(corner));
    if (left == None || right == None || left == right || At(left).rightSide != corner ||
        At(right).leftSide != m_polygon.Previous(corner))
        return false;
    Region& region = At(left);
    Pass(region, corner, Bank::Right);
    Pass(At(right), corner, Bank::Left);
    region.right = At(right).left;
    region.rightSide = At(right).rightSide;
    RegionOfSide(region.rightSide) = left;
    m_tree.Remove(right);
    return true;
}

bool Sweep::End(int corner)
{
    const int found = RegionOfSide(corner);
    if (found == None || RegionOfSide(m_polygon.Previous(corner)) != found ||
        At(found).rightSide != corner)
        return false;
    CutAll(At(found).left, corner);
    if (At(found).right.bottom != None)
        CutAll(At(found).right, corner);
    m_tree.Remove(found);
    return true;
}

bool Sweep::Continue(int corner, Bank bank)
{
    const int previous = m_polygon.Previous(corner);
    const int found = RegionOfSide(bank == Bank::Left ? previous : corner);
    if (found == None)
        return false;
    Region& region = At(found);
    Pass(region, corner, bank);
    (bank == Bank::Left ? region.leftSide : region.rightSide) =
        bank == Bank::Left ? corner : previous;
    RegionOfSide(bank == Bank::Left ? corner : previous) = found;
    return true;
}

bool Sweep::Meet(int corner)
{
    const int previous = m_polygon.Previous(corner);
    const int next = m_polygon.Next(corner);
    const bool fromAbove = m_polygon.IsBefore(previous, corner);
    const bool toBelow = m_polygon.IsBefore(corner, next);
    if (fromAbove == toBelow)
        return Continue(corner, fromAbove ? Bank::Left : Bank::Right);
    const bool isConvex = Orientation(m_polygon.Point(previous), m_polygon.Point(corner),
                                      m_polygon.Point(next)) > 0.0;
    if (toBelow)
        return isConvex ? Begin(corner) : Split(corner);
    return isConvex ? End(corner) : Join(corner);
}

} // namespace

bool TriangulateBySweep(std::span<const PlanarPoint> points, TriangleWriter& triangles)
{
    SweepPolygon polygon(points);
    const int count = polygon.RemoveRepetitions(triangles);
    const std::vector<int> corners = polygon.CornersInOrder(count);
    Sweep sweep(polygon, static_cast<int>(points.size()), triangles);
    return std::all_of(corners.begin(), corners.end(),
                       [&sweep](int corner) { return sweep.Meet(corner); }) &&
           triangles.IsFull();
}
