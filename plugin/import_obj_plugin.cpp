#include "plugin/import_obj_plugin.h"

#include "geometry/out_of_memory.h"
#include "plugin/build_moment.h"
#include "plugin/read_obj.h"

#include "host/app/app.h"
#include "host/app/doc.h"
#include "host/app/localize.h"
#include "host/framework/wait_cursor.h"

#include <new>

namespace {

constexpr GK_UUID PlugInUuid{{0x9D, 0x3B, 0x51, 0xE2, 0x7C, 0x04, 0x4F, 0x1A, 0xB6, 0xE8, 0x2A,
                              0x95, 0xC0, 0xD7, 0xE4, 0x13}};
constexpr const wchar_t* SettingsSection =
    L"Plug-Ins\\9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413\\Settings";

void ZoomViewsToExtents(CKelvoDoc& doc)
{
    CKelvoViewList views;
    doc.GetViewList(views, true, true);
    KvZoomExtentsHelper(KvZoomExtentsBoundingBox(doc), doc, views);
}

bool ParseAndBuild(CReadOBJ& reader)
{
    bool result = reader.Parse();
    if (!result)
        KelvoApp().Print(
            KvLocalizeString(L"Errors occurred reading this file, may be incomplete.\n", 24465));
    if (reader.GroupObjectCount() > 0)
        result = reader.Build();
    if (reader.BogusIndexCount() > 0)
        KelvoApp().Print(KvLocalizeString(L"File had %i bogus indexes in it.\n", 24466),
                         reader.BogusIndexCount());
    return result;
}

} // namespace

CImportOBJPlugIn::CImportOBJPlugIn() = default;

CImportOBJPlugIn::~CImportOBJPlugIn() = default;

GK_UUID CImportOBJPlugIn::PlugInId() const
{
    return PlugInUuid;
}

const wchar_t* CImportOBJPlugIn::PlugInName() const
{
    return L"WaveFront OBJ Import";
}

const wchar_t* CImportOBJPlugIn::LocalPlugInName() const
{
    return KvLocalizeString(L"WaveFront OBJ Import", 19642);
}

const wchar_t* CImportOBJPlugIn::PlugInVersion() const
{
    return BuildMoment;
}

int CImportOBJPlugIn::OnLoad()
{
    LoadImportOptions(KelvoApp().ProfileContext(), SettingsSection, m_options);
    return 1;
}

void CImportOBJPlugIn::OnUnload()
{
    SaveImportOptions(KelvoApp().ProfileContext(), SettingsSection, m_options);
}

void CImportOBJPlugIn::AddFileTypes(CKelvoFileTypeList& types, const CKelvoFileReadOptions&)
{
    types.Append({PlugInId(), KvLocalizeString(L"OBJ (*.obj)", 12754), L"obj"});
}

bool CImportOBJPlugIn::ReadFile(const wchar_t* fileName, int, CKelvoDoc& doc,
                                const CKelvoFileReadOptions& options)
{
    try {
        const bool useDialog = options.Mode(ReadModeAskOnCommandLine) == 0;
        if (AskImportOptions(useDialog, false) != 0)
            return false;
        return Import(fileName, doc, options);
    } catch (const std::bad_alloc&) {
        PrintOutOfMemory(L"Out of memory: the import of %s ended early.\n", 36001, fileName);
        return false;
    }
}

bool CImportOBJPlugIn::Import(const wchar_t* fileName, CKelvoDoc& doc,
                              const CKelvoFileReadOptions& options)
{
    CReadOBJ reader(fileName, doc, options);
    reader.choices = m_options;

    const CWaitCursor waitCursor;
    // What was read before an error of the disk is kept, but is not the file.
    const bool result = ParseAndBuild(reader) && !reader.ReadFailed();
    static_cast<ImportChoices&>(m_options) = reader.choices;

    if (options.Mode(ReadModeZoomExtents) != 0)
        ZoomViewsToExtents(doc);
    doc.Redraw();
    return result;
}

int CImportOBJPlugIn::AskImportOptions(bool useDialog, bool forceDialog)
{
    if (!useDialog)
        return AskOnCommandLine();
    if (!forceDialog && m_options.DontShowDialog)
        return 0;
    return AskInDialog();
}
