#pragma once

#include "host/geokit/class_array.h"
#include "host/geokit/string.h"
#include "host/geokit/uuid.h"

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
    /// Returns non-zero when the flag is set; 0 for a flag outside 0 to 31.
    [[nodiscard]] int Mode(int flag) const;

    /// Sets or clears a flag from 0 to 31; another one is ignored.
    void SetMode(int flag, bool on);

private:
    unsigned int m_flags = 0;
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
