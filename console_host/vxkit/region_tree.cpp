#include "console_host/vxkit/region_tree.h"

void RegionTree::InsertAfter(int place, int item)
{
    At(item) = Node{};
    int parent = place;
    bool asLeft = false;
    if (place == None || At(place).right != None) {
        asLeft = true;
        parent = place == None ? m_root : At(place).right;
        while (parent != None && At(parent).left != None)
            parent = At(parent).left;
    }
    At(item).parent = parent;
    if (parent == None)
        m_root = item;
    else
        (asLeft ? At(parent).left : At(parent).right) = item;
    while (At(item).parent != None && Priority(At(item).parent) < Priority(item))
        RotateUp(item);
}

void RegionTree::Remove(int item)
{
    while (At(item).left != None && At(item).right != None) {
        const int left = At(item).left;
        const int right = At(item).right;
        RotateUp(Priority(left) > Priority(right) ? left : right);
    }
    const int child = At(item).left != None ? At(item).left : At(item).right;
    if (child != None)
        At(child).parent = At(item).parent;
    Replace(At(item).parent, item, child);
}

/// Puts `by` where `child` hangs below `holder`, or at the root when there is no holder.
void RegionTree::Replace(int holder, int child, int by)
{
    if (holder == None)
        m_root = by;
    else if (At(holder).left == child)
        At(holder).left = by;
    else
        At(holder).right = by;
}

void RegionTree::RotateUp(int item)
{
    const int parent = At(item).parent;
    const int grandparent = At(parent).parent;
    const bool isLeft = At(parent).left == item;
    const int moved = isLeft ? At(item).right : At(item).left;
    (isLeft ? At(parent).left : At(parent).right) = moved;
    if (moved != None)
        At(moved).parent = parent;
    (isLeft ? At(item).right : At(item).left) = parent;
    At(parent).parent = item;
    At(item).parent = grandparent;
    Replace(grandparent, parent, item);
}
