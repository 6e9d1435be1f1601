#pragma once

#include <cstdint>
#include <span>

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
    int id; ///< -1 for a control that nothing refers to
    const wchar_t* text;
    DialogRect place;
    bool startsGroup; ///< the arrow keys stay between one such control and the next
    bool tabStop;     ///< the Tab key stops here; it stops at a checked radio button in any case
};

/// A dialog as a module's resource script describes it, controls in tab order. Used where the
/// platform has no resources in modules.
struct DialogTemplate
{
    int id;
    const wchar_t* caption;
    int width;
    int height;
    const wchar_t* font;
    int pointSize;
    std::span<const DialogControl> controls;
};
