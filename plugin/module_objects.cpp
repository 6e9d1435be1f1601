#include "plugin/import_obj_plugin.h"
#include "plugin/module_app.h"

// Made when the module is loaded, destroyed when it is unloaded.

namespace {

CPlugInModuleApp moduleApp;
CImportOBJPlugIn plugIn;

} // namespace
