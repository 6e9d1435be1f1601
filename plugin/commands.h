#pragma once

#include "host/app/command.h"

class CImportOBJPlugIn;

/// "OBJImportOptionsDialog": shows the options dialog, also when the user has switched it off, so
/// that it can be switched on again.
class CCommandOBJImportOptionsDialog : public CKelvoTestCommand
{
public:
    /// The plug-in whose options the dialog sets must outlive the command.
    explicit CCommandOBJImportOptionsDialog(CImportOBJPlugIn& plugIn);
    ~CCommandOBJImportOptionsDialog() override;

    [[nodiscard]] GK_UUID CommandUUID() const override;
    [[nodiscard]] const wchar_t* EnglishCommandName() const override;

    /// CommandSuccess after OK, CommandCancel when the dialog was closed otherwise or could not be
    /// shown.
    int RunCommand() override;

private:
    CImportOBJPlugIn& m_plugIn;
};

/// "TestCrashImportOBJ": says that it ran.
class CCommandTestCrashImportOBJ : public CKelvoTestCommand
{
public:
    CCommandTestCrashImportOBJ();
    ~CCommandTestCrashImportOBJ() override;

    [[nodiscard]] GK_UUID CommandUUID() const override;
    [[nodiscard]] const wchar_t* EnglishCommandName() const override;
    int RunCommand() override;
};
