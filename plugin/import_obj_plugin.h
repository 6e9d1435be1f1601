#pragma once

#include "plugin/import_options.h"

#include "host/app/plugin.h"
#include "host/geokit/string.h"

/// The plug-in object: says who the plug-in is, registers the OBJ file type, keeps the import
/// options between imports and carries out one import at a time.
class CImportOBJPlugIn : public CKelvoFileImportSystemPlugIn
{
public:
    CImportOBJPlugIn();
    ~CImportOBJPlugIn() override;

    [[nodiscard]] GK_UUID PlugInId() const override;
    [[nodiscard]] const wchar_t* PlugInName() const override;
    [[nodiscard]] const wchar_t* LocalPlugInName() const override;

    /// When the module was built, as in "Jan  3 2013 03:34:43".
    [[nodiscard]] const wchar_t* PlugInVersion() const override;

    /// Takes the options from the host's settings. Always 1.
    int OnLoad() override;

    /// Writes the options to the host's settings.
    void OnUnload() override;

    void AddFileTypes(CKelvoFileTypeList& types, const CKelvoFileReadOptions& options) override;

    /// Imports an OBJ file. False when the user cancelled, when reading broke off with an error
    /// of the disk, when the last object could not be added, or when memory ran out; what the
    /// document holds by then stays there.
    bool ReadFile(const wchar_t* fileName, int index, CKelvoDoc& doc,
                  const CKelvoFileReadOptions& options) override;

    /// Settles the import options with the user: on the command line when `useDialog` is false,
    /// else in the dialog, unless the user switched it off and `forceDialog` is false. 0: go on;
    /// 1: the user cancelled, and the options are as they were.
    int AskImportOptions(bool useDialog, bool forceDialog);

    /// The options that the next import starts from.
    [[nodiscard]] const ObjImportOptions& Options() const { return m_options; }

private:
    bool Import(const wchar_t* fileName, CKelvoDoc& doc, const CKelvoFileReadOptions& options);
    int AskOnCommandLine();
    int AskInDialog();

    ObjImportOptions m_options;
};
