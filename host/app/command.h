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

/// A command that the user runs by its name. A module makes its commands as global objects, which
/// it owns: the constructor tells the host of the command, the destructor withdraws it. Both run on
/// the user-interface thread while the module is loaded and unloaded, and neither throws; a command
/// that the host cannot keep when out of memory is not available to the user. The host calls the
/// other operations on the user-interface thread, and RunCommand only between the plug-in's load
/// hook and its unload hook.
class CKelvoCommand : public GK_Object
{
public:
    /// Registers the command. The two flags are kept for the host; `plugIn` is the plug-in that the
    /// command belongs to, or null for the module's one plug-in.
    CKelvoCommand(int flag1, int flag2, CKelvoPlugIn* plugIn);
    CKelvoCommand(const CKelvoCommand&) = delete;
    CKelvoCommand& operator=(const CKelvoCommand&) = delete;
    ~CKelvoCommand() override;

    /// Returns who the command is, the same in every version.
    [[nodiscard]] virtual GK_UUID CommandUUID() const = 0;

    /// Returns the name to type, in English. The text lives as long as the module.
    [[nodiscard]] virtual const wchar_t* EnglishCommandName() const = 0;

    /// Runs the command and returns a CKelvoCommandResult, or another value for another failure.
    /// Throws nothing but std::bad_alloc.
    virtual int RunCommand() = 0;
};

/// A command for tests and for settings, which no menu shows.
class CKelvoTestCommand : public CKelvoCommand
{
public:
    using CKelvoCommand::CKelvoCommand;
};
