#include "plugin/commands.h"
#include "plugin/import_obj_plugin.h"
#include "plugin/module_app.h"

// Made when the module is loaded, destroyed when it is unloaded.

namespace {

CPlugInModuleApp moduleApp;
CImportOBJPlugIn plugIn;
CCommandOBJImportOptionsDialog optionsDialogCommand(plugIn);
CCommandTestCrashImportOBJ testCrashCommand;

} // namespace
