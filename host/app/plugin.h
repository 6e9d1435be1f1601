#pragma once

#include "host/app/file_type.h"
#include "host/geokit/object.h"
#include "host/geokit/uuid.h"

class CKelvoDoc;

/// A plug-in as the host knows it. A module makes its one plug-in as a global object; making it
/// tells the host of it, destroying it withdraws it.
class CKelvoPlugIn : public GK_Object
{
public:
    CKelvoPlugIn();
    CKelvoPlugIn(const CKelvoPlugIn&) = delete;
    CKelvoPlugIn& operator=(const CKelvoPlugIn&) = delete;
    ~CKelvoPlugIn() override;

    /// Who the plug-in is, the same in every version.
    [[nodiscard]] virtual GK_UUID PlugInId() const = 0;

    /// The plug-in's English name, and its name in the user's language. The texts live as long as
    /// the module.
    [[nodiscard]] virtual const wchar_t* PlugInName() const = 0;
    [[nodiscard]] virtual const wchar_t* LocalPlugInName() const { return PlugInName(); }

    /// The version text; the same string on every call.
    [[nodiscard]] virtual const wchar_t* PlugInVersion() const = 0;

    /// Called once after the module was loaded. 1: the plug-in stays loaded; 0: it does not.
    virtual int OnLoad() { return 1; }

    /// Called once before the module is unloaded.
    virtual void OnUnload() {}
};

/// A plug-in that imports files.
class CKelvoFileImportPlugIn : public CKelvoPlugIn
{
public:
    /// Appends the kinds of file that the plug-in reads.
    virtual void AddFileTypes(CKelvoFileTypeList& types, const CKelvoFileReadOptions& options) = 0;

    /// Reads a file, given by its full path, into a document. `index` is the position of the file's
    /// kind in the plug-in's list. False when the import failed or was cancelled; what was added to
    /// the document before stays there.
    virtual bool ReadFile(const wchar_t* fileName, int index, CKelvoDoc& doc,
                          const CKelvoFileReadOptions& options) = 0;
};

/// An import plug-in that comes with the host's system.
class CKelvoFileImportSystemPlugIn : public CKelvoFileImportPlugIn
{
};
