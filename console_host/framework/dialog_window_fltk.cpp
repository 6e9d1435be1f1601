#include "console_host/framework/dialog_window_fltk.h"

#include "console_host/framework/dialog_units.h"

#include "host/framework/dialog.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Round_Button.H>
#include <algorithm>
#include <string>
#include <string_view>

namespace {

bool IsButton(DialogControlKind kind)
{
    return kind != DialogControlKind::Text && kind != DialogControlKind::Line;
}

bool IsPushButton(DialogControlKind kind)
{
    return kind == DialogControlKind::PushButton || kind == DialogControlKind::DefaultPushButton;
}

/// A label's '@' would start a picture.
std::string LabelText(std::string_view text)
{
    std::string label;
    for (const char character : text) {
        if (character == '@')
            label += '@';
        label += character;
    }
    return label;
}

Fl_Widget* MakeWidget(DialogControlKind kind, const DialogRect& at)
{
    switch (kind) {
    case DialogControlKind::RadioButton: {
        auto* button = new Fl_Round_Button(at.x, at.y, at.width, at.height);
        button->type(FL_RADIO_BUTTON);
        return button;
    }
    case DialogControlKind::CheckBox:
        return new Fl_Check_Button(at.x, at.y, at.width, at.height);
    case DialogControlKind::PushButton:
        return new Fl_Button(at.x, at.y, at.width, at.height);
    case DialogControlKind::DefaultPushButton: {
        auto* button = new Fl_Button(at.x, at.y, at.width, at.height);
        button->color(fl_rgb_color(196, 216, 240));
        return button;
    }
    case DialogControlKind::Line:
        return new Fl_Box(FL_THIN_DOWN_FRAME, at.x, at.y, at.width, std::max(at.height, 2), "");
    case DialogControlKind::Text:
        break;
    }
    auto* text = new Fl_Box(at.x, at.y, at.width, at.height);
    text->align(FL_ALIGN_LEFT | FL_ALIGN_INSIDE);
    return text;
}

} // namespace

bool FltkControl::Checked() const
{
    return IsButton(m_description->kind) && static_cast<Fl_Button*>(m_widget)->value() != 0;
}

void FltkControl::SetChecked(bool checked)
{
    if (IsButton(m_description->kind))
        static_cast<Fl_Button*>(m_widget)->value(checked ? 1 : 0);
}

bool FltkControl::Enabled() const
{
    return m_widget->active() != 0;
}

void FltkControl::SetEnabled(bool enabled)
{
    if (enabled)
        m_widget->activate();
    else
        m_widget->deactivate();
}

bool FltkControl::TakesFocus() const
{
    return IsButton(m_description->kind) && Enabled();
}

bool FltkControl::IsTabStop() const
{
    const bool checkedRadio = m_description->kind == DialogControlKind::RadioButton && Checked();
    return TakesFocus() && (m_description->tabStop || checkedRadio);
}

DialogWindow::DialogWindow(const DialogTemplate& dialog, const DialogUnits& units,
                           NativeDialogOwner& owner)
    : Fl_Double_Window(1, 1), m_owner(owner)
{
    const DialogRect size = units.Pixels({0, 0, dialog.width, dialog.height});
    resize((Fl::w() - size.width) / 2, (Fl::h() - size.height) / 2, size.width, size.height);
    copy_label(dialog.caption);
    for (const DialogControl& description : dialog.controls)
        AddControl(description, units);
    end();
    callback(&DialogWindow::OnClose, this);
    set_modal();
}

void DialogWindow::AddControl(const DialogControl& description, const DialogUnits& units)
{
    Fl_Widget* widget = MakeWidget(description.kind, units.Pixels(description.place));
    widget->labelsize(units.FontSize());
    widget->copy_label(LabelText(description.text).c_str());
    if (IsButton(description.kind))
        widget->callback(&DialogWindow::OnClick, this);
    m_controls.push_back(std::make_unique<FltkControl>(description, *widget));
}

FltkControl* DialogWindow::Find(int controlId) const
{
    for (const auto& control : m_controls) {
        if (control->Description().id == controlId)
            return control.get();
    }
    return nullptr;
}

void DialogWindow::OnClick(Fl_Widget* widget, void* window)
{
    auto* self = static_cast<DialogWindow*>(window);
    for (const auto& control : self->m_controls) {
        if (&control->Widget() == widget) {
            self->Tell(WindowMessage::Click, control->Description().id);
            return;
        }
    }
}

void DialogWindow::OnClose(Fl_Widget*, void* window)
{
    static_cast<DialogWindow*>(window)->Tell(WindowMessage::Click, DialogCancel);
}

int DialogWindow::FocusedIndex() const
{
    for (std::size_t index = 0; index < m_controls.size(); ++index) {
        if (&m_controls[index]->Widget() == Fl::focus())
            return static_cast<int>(index);
    }
    return -1;
}

int DialogWindow::handle(int event)
{
    if (event == FL_KEYBOARD && HandleKey(Fl::event_key()))
        return 1;
    return Fl_Double_Window::handle(event);
}

bool DialogWindow::HandleKey(int key)
{
    switch (key) {
    case FL_Tab:
        MoveToTabStop((Fl::event_state() & FL_SHIFT) != 0 ? -1 : 1);
        return true;
    case FL_Up:
    case FL_Left:
        MoveInGroup(-1);
        return true;
    case FL_Down:
    case FL_Right:
        MoveInGroup(1);
        return true;
    case FL_Enter:
    case FL_KP_Enter:
        Enter();
        return true;
    case FL_Escape:
        Tell(WindowMessage::Click, DialogCancel);
        return true;
    case FL_F + 1:
        Tell(WindowMessage::HelpRequest, 0);
        return true;
    default:
        return false;
    }
}

void DialogWindow::FocusFirstTabStop()
{
    const auto first = std::find_if(m_controls.begin(), m_controls.end(),
                                    [](const auto& control) { return control->IsTabStop(); });
    if (first != m_controls.end())
        (*first)->Widget().take_focus();
}

void DialogWindow::MoveToTabStop(int step)
{
    const int count = static_cast<int>(m_controls.size());
    const int from = FocusedIndex();
    for (int distance = 1; distance <= count; ++distance) {
        const int at = (from + step * distance + 2 * count) % count;
        FltkControl& control = *m_controls[static_cast<std::size_t>(at)];
        if (control.IsTabStop()) {
            control.Widget().take_focus();
            return;
        }
    }
}

void DialogWindow::MoveInGroup(int step)
{
    const int count = static_cast<int>(m_controls.size());
    const int from = FocusedIndex();
    if (from < 0)
        return;
    const auto startsGroup = [this](int index) {
        return m_controls[static_cast<std::size_t>(index)]->Description().startsGroup;
    };
    int first = from;
    while (first > 0 && !startsGroup(first))
        --first;
    int last = from + 1;
    while (last < count && !startsGroup(last))
        ++last;
    const int length = last - first;
    for (int distance = 1; distance < length; ++distance) {
        const int at = first + (from - first + step * distance + length) % length;
        FltkControl& control = *m_controls[static_cast<std::size_t>(at)];
        if (!control.TakesFocus())
            continue;
        control.Widget().take_focus();
        if (control.Description().kind == DialogControlKind::RadioButton)
            Click(control);
        return;
    }
}

void DialogWindow::Enter()
{
    const int focused = FocusedIndex();
    if (focused >= 0) {
        FltkControl& control = *m_controls[static_cast<std::size_t>(focused)];
        if (IsPushButton(control.Description().kind)) {
            Click(control);
            return;
        }
    }
    Tell(WindowMessage::Click, DialogOK);
}

void DialogWindow::Click(FltkControl& control)
{
    if (control.Description().kind == DialogControlKind::RadioButton) {
        auto& button = static_cast<Fl_Button&>(control.Widget());
        if (button.value() != 0)
            return;
        button.setonly();
    }
    Tell(WindowMessage::Click, control.Description().id);
}
