#pragma once

#include "host/geokit/class_array.h"
#include "host/geokit/string.h"
#include "host/geokit/uuid.h"

#include <set>

/// What a host's read-options flags ask of an import.
enum CKelvoReadMode : int
{
    ReadModeZoomExtents = 1,     ///< zoom all views to the extents after the import
    ReadModeAskOnCommandLine = 5 ///< settle options on the command line instead of in a dialog
};

/// How the host wants one file read. A plain value of flags; the host sets them before a call, and
/// a plug-in reads them.
class CKelvoFileReadOptions
{
public:
    /// Returns non-zero when the flag is set.
    [[nodiscard]] int Mode(int flag) const { return m_flags.contains(flag) ? 1 : 0; }

    /// Sets or clears a flag.
    void SetMode(int flag, bool on)
    {
        if (on)
            m_flags.insert(flag);
        else
            m_flags.erase(flag);
    }

private:
    std::set<int> m_flags;
};

/// One kind of file that a plug-in reads.
struct CKelvoFileType
{
    GK_UUID plugInId;
    GK_wString description; ///< as a file dialog shows it
    GK_wString extension;   ///< without a dot
};

/// The kinds of file that a plug-in reads, in its order. A value: the host makes an empty list, the
/// plug-in appends to it during AddFileTypes.
class CKelvoFileTypeList
{
public:
    /// Throws std::bad_alloc when out of memory; the list is then unchanged.
    void Append(CKelvoFileType type) { m_types.Append(std::move(type)); }
    [[nodiscard]] const GK_ClassArray<CKelvoFileType>& Types() const { return m_types; }

private:
    GK_ClassArray<CKelvoFileType> m_types;
};
