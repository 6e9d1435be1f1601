#pragma once

#include "host/geokit/object.h"
#include "host/geokit/uuid.h"

class CKelvoPlugIn;

/// How a command ended.
enum CKelvoCommandResult : int
{
    CommandSuccess = 0,
    CommandCancel = 1
};

/// A command that the user runs by its name. A module makes its commands as global objects; making
/// one tells the host of it, destroying it withdraws it.
class CKelvoCommand : public GK_Object
{
public:
    /// The two flags are kept for the host; `plugIn` is the plug-in that the command belongs to, or
    /// null for the module's one plug-in.
    CKelvoCommand(int flag1, int flag2, CKelvoPlugIn* plugIn);
    CKelvoCommand(const CKelvoCommand&) = delete;
    CKelvoCommand& operator=(const CKelvoCommand&) = delete;
    ~CKelvoCommand() override;

    /// Who the command is, the same in every version.
    [[nodiscard]] virtual GK_UUID CommandUUID() const = 0;

    /// The name to type, in English. The text lives as long as the module.
    [[nodiscard]] virtual const wchar_t* EnglishCommandName() const = 0;

    /// Runs the command on the user-interface thread. A CKelvoCommandResult, or another value for
    /// another failure.
    virtual int RunCommand() = 0;
};

/// A command for tests and for settings, which no menu shows.
class CKelvoTestCommand : public CKelvoCommand
{
public:
    using CKelvoCommand::CKelvoCommand;
};
