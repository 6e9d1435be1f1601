#pragma once

#include "host/framework/dialog_template.h"

#include <filesystem>
#include <string>
#include <vector>

/// A control of a dialog as the resource script has it.
struct ScriptControl
{
    DialogControlKind kind = DialogControlKind::Text;
    int id = 0;
    std::string text; ///< without its quotes, escapes as in the script
    DialogRect place = {};
    bool startsGroup = false;
    bool tabStop = false;
};

/// A dialog as the resource script has it.
struct ScriptDialog
{
    int id = 0;
    std::string caption;
    DialogRect place = {};
    std::string font;
    int pointSize = 0;
    std::vector<ScriptControl> controls;
};

/// The DIALOGEX statements of a resource script: texts, push buttons, and controls of the classes
/// "Button" and "Static". Other resources are ignored. Throws std::runtime_error, with the
/// line, for what it does not understand.
std::vector<ScriptDialog> ReadResourceScript(const std::filesystem::path& path);
