#include "console_host/framework/native_windows.h"

#include "host/geokit/string.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>
#include <FL/fl_draw.H>
#include <FL/x.H>
#include <algorithm>
#include <string>

namespace {

constexpr unsigned char Background = 240;
constexpr int Margin = 12;
constexpr int FontSize = 12;
constexpr int ButtonWidth = 88;
constexpr int ButtonHeight = 28;

constexpr int MessageWidth = 420;
constexpr int IconSize = 40;
constexpr unsigned int IconMask = 0xF0;
constexpr unsigned int WarningIcon = 0x30;

constexpr int TextWidth = 620;
constexpr int TextHeight = 520;

std::string Utf8(std::wstring_view text)
{
    return GK_wString(std::wstring(text)).Utf8();
}

void Close(Fl_Widget* button, void*)
{
    button->window()->hide();
}

/// The button that Enter and Escape press, below the rest of the window.
class CloseButton : public Fl_Button
{
public:
    CloseButton(const Fl_Window& window, const char* text)
        : Fl_Button((window.w() - ButtonWidth) / 2, window.h() - ButtonHeight - Margin, ButtonWidth,
                    ButtonHeight, text)
    {
        labelsize(FontSize);
        shortcut(FL_Enter);
        callback(&Close);
    }
};

/// `focus` gets the keyboard. Setting the focus shows a window, so that comes last.
void RunUntilClosed(Fl_Window& window, Fl_Widget& focus)
{
    window.end();
    window.position((Fl::w() - window.w()) / 2, (Fl::h() - window.h()) / 2);
    window.set_modal();
    window.show();
    focus.take_focus();
    while (window.shown() != 0)
        Fl::wait();
}

class MessageIcon : public Fl_Box
{
public:
    explicit MessageIcon(unsigned int flags)
        : Fl_Box(FL_THIN_UP_BOX, Margin, Margin, IconSize, IconSize, nullptr)
    {
        const bool isWarning = (flags & IconMask) == WarningIcon;
        label(isWarning ? "!" : "i");
        labelfont(FL_HELVETICA_BOLD);
        labelsize(IconSize / 2);
        color(isWarning ? FL_YELLOW : FL_WHITE);
    }
};

} // namespace

bool CanShowWindows()
{
    // Asked before the toolkit asks: it ends the process when there is no display.
    static const bool canShow = [] {
        Display* display = XOpenDisplay(nullptr);
        if (display == nullptr)
            return false;
        fl_open_display(display);
        Fl::scheme("gtk+");
        Fl::background(Background, Background, Background);
        return true;
    }();
    return canShow;
}

void ShowMessageWindow(std::wstring_view text, std::wstring_view caption, unsigned int flags)
{
    const std::string label = Utf8(text);
    fl_font(FL_HELVETICA, FontSize);
    int width = MessageWidth;
    int height = 0;
    fl_measure(label.c_str(), width, height, 0);
    const int bodyHeight = std::max(height + Margin, IconSize);

    Fl_Double_Window window(MessageWidth + IconSize + 3 * Margin,
                            bodyHeight + ButtonHeight + 3 * Margin);
    window.copy_label(Utf8(caption).c_str());
    const MessageIcon icon(flags);
    Fl_Box body(IconSize + 2 * Margin, Margin, MessageWidth, bodyHeight);
    body.labelsize(FontSize);
    body.align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE | FL_ALIGN_WRAP);
    body.copy_label(label.c_str());
    CloseButton button(window, "OK");
    RunUntilClosed(window, button);
}

void ShowTextWindow(std::wstring_view text, std::wstring_view caption)
{
    Fl_Text_Buffer buffer;
    buffer.text(Utf8(text).c_str());
    Fl_Double_Window window(TextWidth, TextHeight);
    window.copy_label(Utf8(caption).c_str());
    Fl_Text_Display display(Margin, Margin, TextWidth - 2 * Margin,
                            TextHeight - ButtonHeight - 3 * Margin);
    display.buffer(buffer);
    display.textsize(FontSize);
    display.wrap_mode(Fl_Text_Display::WRAP_AT_BOUNDS, 0);
    const CloseButton button(window, "Close");
    window.resizable(display);
    RunUntilClosed(window, display);
    display.buffer(nullptr);
}
