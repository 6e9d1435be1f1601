#include "plugin/import_obj_plugin.h"
#include "plugin/module_resources.h"
#include "plugin/obj_import_dlg.h"

#include "host/app/app.h"
#include "host/app/localize.h"

int CImportOBJPlugIn::AskInDialog()
{
    constexpr int GoOn = 0;
    constexpr int Cancelled = 1;

    const CModuleStateScope moduleState(ImportOBJModuleState());
    CObjImportDlg dialog(KelvoApp().MainWnd());
    dialog.SetOptions(m_options);
    if (dialog.DoModal() != DialogOK)
        return Cancelled;

    const ObjImportOptions chosen = dialog.Options();
    if (!m_options.DontShowDialog && chosen.DontShowDialog)
        KvPluginOptionIOWarningDialog(KvLocalizeString(L"OBJ", 24488), false);
    m_options = chosen;
    return GoOn;
}
