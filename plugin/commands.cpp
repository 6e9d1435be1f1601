#include "plugin/commands.h"

#include "plugin/import_obj_plugin.h"

#include "host/app/app.h"
#include "host/app/localize.h"

CCommandOBJImportOptionsDialog::CCommandOBJImportOptionsDialog(CImportOBJPlugIn& plugIn)
    : CKelvoTestCommand(1, 0, nullptr), m_plugIn(plugIn)
{
}

CCommandOBJImportOptionsDialog::~CCommandOBJImportOptionsDialog() = default;

GK_UUID CCommandOBJImportOptionsDialog::CommandUUID() const
{
    return {{0x4E, 0x1F, 0x0B, 0x6A, 0x93, 0xC7, 0x4D, 0x52, 0x8A, 0x1E, 0x6B, 0x0D, 0x7F, 0x25,
             0xC9, 0x31}};
}

const wchar_t* CCommandOBJImportOptionsDialog::EnglishCommandName() const
{
    return L"OBJImportOptionsDialog";
}

int CCommandOBJImportOptionsDialog::RunCommand()
{
    return m_plugIn.AskImportOptions(true, true);
}

CCommandTestCrashImportOBJ::CCommandTestCrashImportOBJ() : CKelvoTestCommand(0, 0, nullptr) {}

CCommandTestCrashImportOBJ::~CCommandTestCrashImportOBJ() = default;

GK_UUID CCommandTestCrashImportOBJ::CommandUUID() const
{
    return {{0xC2, 0x7A, 0x5D, 0x18, 0x0E, 0x64, 0x4B, 0x9F, 0x9D, 0x33, 0x51, 0xF8, 0xA6, 0xE7,
             0x0B, 0x4C}};
}

const wchar_t* CCommandTestCrashImportOBJ::EnglishCommandName() const
{
    return L"TestCrashImportOBJ";
}

int CCommandTestCrashImportOBJ::RunCommand()
{
    KelvoApp().Print(KvLocalizeString(L"%s ran.\n", 36003), EnglishCommandName());
    return CommandSuccess;
}
