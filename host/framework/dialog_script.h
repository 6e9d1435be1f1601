#pragma once

#include "host/framework/dialog_template.h"

#include <string_view>

/// Where modules hold no resources, a module's resource script is compiled as C++: with these names
/// for its statements, the one dialog of a script initialises a DialogTemplate,
///
///     static const DialogTemplate Dialog = {
///     #include "the_script.rc"
///     };
///
/// Include this header in the one source of a module that does so, and last: its macros hold from
/// there on. The template is made on the thread that first reaches the initialisation, and constant
/// from then on: any thread may read it. It owns its list of controls; its texts are the literals
/// of the script and live as long as the module. Making the list throws std::bad_alloc when out of
/// memory. A statement that is not defined here does not compile.

// The styles that scripts use; any other does not compile.
constexpr unsigned int DS_SETFONT = 0;
constexpr unsigned int DS_MODALFRAME = 0;
constexpr unsigned int WS_POPUP = 0;
constexpr unsigned int WS_CAPTION = 0;
constexpr unsigned int WS_SYSMENU = 0;
constexpr unsigned int WS_GROUP = 1;
constexpr unsigned int WS_TABSTOP = 2;
constexpr unsigned int BS_AUTORADIOBUTTON = 4;
constexpr unsigned int BS_AUTOCHECKBOX = 8;
constexpr unsigned int SS_SUNKEN = 16;

/// The controls of a script, gathered statement by statement between BEGIN and END, in their order.
/// Coordinates are in dialog units. Each operation appends one control and returns this object.
class DialogControls
{
public:
    /// Appends a text (LTEXT).
    DialogControls& Text(const char* text, int id, int x, int y, int width, int height,
                         unsigned int style = 0)
    {
        return Add(DialogControlKind::Text, text, id, {x, y, width, height}, style);
    }

    /// Appends a radio button, a check box or, for any other style, a line (CONTROL). The name of
    /// the window class is ignored: the style says the same.
    DialogControls& Control(const char* text, int id, std::string_view, unsigned int style, int x,
                            int y, int width, int height)
    {
        const auto kind = (style & BS_AUTORADIOBUTTON) != 0 ? DialogControlKind::RadioButton
                          : (style & BS_AUTOCHECKBOX) != 0  ? DialogControlKind::CheckBox
                                                            : DialogControlKind::Line;
        return Add(kind, text, id, {x, y, width, height}, style);
    }

    /// Appends a push button, at which the Tab key stops (PUSHBUTTON, DEFPUSHBUTTON).
    DialogControls& Button(DialogControlKind kind, const char* text, int id, int x, int y,
                           int width, int height)
    {
        return Add(kind, text, id, {x, y, width, height}, WS_TABSTOP);
    }

    /// Returns the controls so far.
    [[nodiscard]] std::vector<DialogControl> List() const { return m_list; }

private:
    DialogControls& Add(DialogControlKind kind, const char* text, int id, const DialogRect& place,
                        unsigned int style)
    {
        m_list.push_back(
            {kind, id, text, place, (style & WS_GROUP) != 0, (style & WS_TABSTOP) != 0});
        return *this;
    }

    std::vector<DialogControl> m_list;
};

#define DIALOGEX ,
#define STYLE ,
#define CAPTION ,
#define FONT ,
#define BEGIN , DialogControls(
#define LTEXT ).Text(
#define CONTROL ).Control(
#define PUSHBUTTON ).Button(DialogControlKind::PushButton,
#define DEFPUSHBUTTON ).Button(DialogControlKind::DefaultPushButton,
#define END ).List()
