#pragma once

// Ids of the module's resources, for the resource compiler too, which knows only macros.
// NOLINTBEGIN(modernize-macro-to-enum)
#define IDC_UNNAMED (-1)

#define IDD_OBJ_IMPORT 7000
#define IDC_GROUPS_NOTHING 7001
#define IDC_GROUPS_GROUPS 7002
#define IDC_GROUPS_LAYERS 7003
#define IDC_GROUPS_HEADING 7004
#define IDC_GROUPS_OBJECT_NAMES 7005
#define IDC_OBJECT_NAMES 7006
#define IDC_MORPH_TARGET 7008
#define IDC_REVERSE_GROUP_ORDER 7009
#define IDC_IGNORE_TEXTURES 7011
#define IDC_Y_TO_Z 7012
#define IDC_SPLIT_TEXTURES 7013
#define IDC_DONT_SHOW 8002

#define IDC_OK 1
#define IDC_CANCEL 2
#define IDC_HELP 9
// NOLINTEND(modernize-macro-to-enum)
