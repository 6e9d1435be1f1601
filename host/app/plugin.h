#pragma once

#include "host/app/file_type.h"
#include "host/geokit/object.h"
#include "host/geokit/uuid.h"

class CKelvoDoc;

/// A plug-in as the host knows it. A module makes its one plug-in as a global object, which it
/// owns: the constructor tells the host of the plug-in, the destructor withdraws it; neither
/// throws. The host calls all operations on the user-interface thread, one at a time: first OnLoad,
/// then those of the derived classes, at last OnUnload. Those that say who the plug-in is may be
/// called at any time.
class CKelvoPlugIn : public GK_Object
{
public:
    CKelvoPlugIn();
    CKelvoPlugIn(const CKelvoPlugIn&) = delete;
    CKelvoPlugIn& operator=(const CKelvoPlugIn&) = delete;
    ~CKelvoPlugIn() override;

    /// Returns who the plug-in is, the same in every version.
    [[nodiscard]] virtual GK_UUID PlugInId() const = 0;

    /// Return the plug-in's English name, and its name in the user's language. The texts live as
    /// long as the module.
    [[nodiscard]] virtual const wchar_t* PlugInName() const = 0;
    [[nodiscard]] virtual const wchar_t* LocalPlugInName() const { return PlugInName(); }

    /// Returns the version text, the same string on every call; it lives as long as the module.
    [[nodiscard]] virtual const wchar_t* PlugInVersion() const = 0;

    /// The load hook. Called once, after the module was loaded, when the host's settings can be
    /// read. Returns 1 when the plug-in stays loaded, 0 when the host must unload it, without the
    /// unload hook.
    virtual int OnLoad() { return 1; }

    /// The unload hook. Called once before the module is unloaded, while settings can still be
    /// written.
    virtual void OnUnload() {}
};

/// A plug-in that imports files.
class CKelvoFileImportPlugIn : public CKelvoPlugIn
{
public:
    /// Appends the kinds of file that the plug-in reads to the list, which stays the host's.
    virtual void AddFileTypes(CKelvoFileTypeList& types, const CKelvoFileReadOptions& options) = 0;

    /// Reads a file, given by its full path, into a document. `index` is the position of the file's
    /// kind in the plug-in's list. Name, document and options are the host's and are used only
    /// during the call; calls do not overlap. Returns true when the file was imported, false when
    /// the import failed or was cancelled; what was added to the document before stays there.
    /// Throws nothing: the plug-in answers a std::bad_alloc of the host by false.
    virtual bool ReadFile(const wchar_t* fileName, int index, CKelvoDoc& doc,
                          const CKelvoFileReadOptions& options) = 0;
};

/// An import plug-in that comes with the host's system.
class CKelvoFileImportSystemPlugIn : public CKelvoFileImportPlugIn
{
};
