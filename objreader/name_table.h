#pragma once

#include "host/geokit/string.h"

#include <set>
#include <string_view>

/// Keeps one copy of each name that a file uses. A name's address stands for the name as long as
/// the table lives, so that records share names and equal ones are found equal cheaply.
class NameTable
{
public:
    const GK_String* Intern(std::string_view name)
    {
        const auto place = m_names.lower_bound(name);
        if (place != m_names.end() && place->View() == name)
            return &*place;
        return &*m_names.emplace_hint(place, name);
    }

private:
    struct ByBytes
    {
        using is_transparent = void;
        bool operator()(const GK_String& a, const GK_String& b) const { return a < b; }
        bool operator()(const GK_String& a, std::string_view b) const { return a.View() < b; }
        bool operator()(std::string_view a, const GK_String& b) const { return a < b.View(); }
    };

    std::set<GK_String, ByBytes> m_names;
};
