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

/// How the host wants one file read.
class CKelvoFileReadOptions
{
public:
    /// Non-zero when the flag is set.
    [[nodiscard]] int Mode(int flag) const;

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

/// The kinds of file that a plug-in reads, in its order.
class CKelvoFileTypeList
{
public:
    void Append(CKelvoFileType type) { m_types.Append(std::move(type)); }
    [[nodiscard]] const GK_ClassArray<CKelvoFileType>& Types() const { return m_types; }

private:
    GK_ClassArray<CKelvoFileType> m_types;
};
