#pragma once

#include <cstdint>
#include <vector>

/// A place in dialog units: a fourth of the font's average character width, and an eighth of its
/// height.
struct DialogRect
{
    int x;
    int y;
    int width;
    int height;
};

enum class DialogControlKind : std::uint8_t
{
    Text,
    Line, ///< a sunken line
    RadioButton,
    CheckBox,
    PushButton,
    DefaultPushButton
};

/// One control of a dialog template.
struct DialogControl
{
    DialogControlKind kind;
    int id;           ///< -1 for a control that nothing refers to
    const char* text; ///< UTF-8
    DialogRect place;
    bool startsGroup; ///< the arrow keys stay between one such control and the next
    bool tabStop;     ///< the Tab key stops here; it stops at a checked radio button in any case
};

/// A dialog as a module's resource script describes it, controls in tab order. Used where the
/// platform has no resources in modules. Constant data: texts and controls live as long as the
/// module, and any thread may read them. The fields come in the order of the script, which can be
/// included where one is initialised: see dialog_script.h.
struct DialogTemplate
{
    int id;
    int x;
    int y;
    int width;
    int height;
    unsigned int style; ///< not used: there is one style of dialog
    const char* caption;
    int pointSize;
    const char* font; ///< not used: there is one font
    std::vector<DialogControl> controls;
};
