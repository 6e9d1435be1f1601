#include "plugin/dialog_table.h"

#include "plugin/resource.h"

#include "host/framework/dialog_script.h"

std::span<const DialogTemplate> ImportOBJDialogs()
{
    static const DialogTemplate Dialogs[] = {{
#include "plugin/import_obj.rc"
    }};
    return Dialogs;
}
