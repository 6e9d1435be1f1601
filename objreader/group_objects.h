#pragma once

#include "objreader/group_object.h"

#include <set>

/// The records of a file: one for each distinct combination of names, always in the order of the
/// names. Records never move.
class GroupObjects
{
public:
    /// Returns the record of these names, added when it is new.
    Group_Object& FindOrAddGroupObject(const GK_String* group, const GK_String* object,
                                       const GK_String* material);

    /// Returns less than, equal to or greater than 0: by group name, then object name, then
    /// material name.
    static int CompareGroupObjects(const Group_Object& a, const Group_Object& b);

    [[nodiscard]] int Count() const { return static_cast<int>(m_records.size()); }
    auto begin() { return m_records.begin(); }
    auto end() { return m_records.end(); }
    [[nodiscard]] auto begin() const { return m_records.begin(); }
    [[nodiscard]] auto end() const { return m_records.end(); }

private:
    /// Lets a record on the stack serve as search key.
    struct ByNames
    {
        using is_transparent = void;
        using Pointer = std::unique_ptr<Group_Object>;
        bool operator()(const Pointer& a, const Pointer& b) const { return (*this)(*a, *b); }
        bool operator()(const Pointer& a, const Group_Object& b) const { return (*this)(*a, b); }
        bool operator()(const Group_Object& a, const Pointer& b) const { return (*this)(a, *b); }
        bool operator()(const Group_Object& a, const Group_Object& b) const
        {
            return CompareGroupObjects(a, b) < 0;
        }
    };

    std::set<std::unique_ptr<Group_Object>, ByNames> m_records;
};
