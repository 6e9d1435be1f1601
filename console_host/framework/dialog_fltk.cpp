#include "console_host/framework/dialog_units.h"
#include "console_host/framework/native_windows.h"

#include "host/framework/dialog.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Round_Button.H>
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

bool IsButton(DialogControlKind kind)
{
    return kind != DialogControlKind::Text && kind != DialogControlKind::Line;
}

bool IsPushButton(DialogControlKind kind)
{
    return kind == DialogControlKind::PushButton || kind == DialogControlKind::DefaultPushButton;
}

/// Returns a label in which each '@', which would begin a symbol, is doubled.
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

/// One control of a dialog window.
class FltkControl final : public NativeControl
{
public:
    FltkControl(const DialogControl& description, Fl_Widget& widget)
        : m_description(&description), m_widget(&widget)
    {
    }

    [[nodiscard]] const DialogControl& Description() const { return *m_description; }
    [[nodiscard]] Fl_Widget& Widget() const { return *m_widget; }

    [[nodiscard]] bool Checked() const override
    {
        return IsButton(m_description->kind) && static_cast<Fl_Button*>(m_widget)->value() != 0;
    }
    void SetChecked(bool checked) override
    {
        if (IsButton(m_description->kind))
            static_cast<Fl_Button*>(m_widget)->value(checked ? 1 : 0);
    }
    void SetEnabled(bool enabled) override
    {
        enabled ? m_widget->activate() : m_widget->deactivate();
    }

    /// Returns whether the keyboard can reach it at all.
    [[nodiscard]] bool TakesFocus() const
    {
        return IsButton(m_description->kind) && m_widget->active() != 0;
    }

    /// Returns whether the Tab key stops here.
    [[nodiscard]] bool IsTabStop() const
    {
        const bool isRadio = m_description->kind == DialogControlKind::RadioButton;
        return TakesFocus() && (m_description->tabStop || (isRadio && Checked()));
    }

private:
    const DialogControl* m_description;
    Fl_Widget* m_widget;
};

/// The window of a dialog, with the keyboard of a dialog: Tab goes through the tab stops, the arrow
/// keys through a group, Space clicks, Enter is the default button, Escape is Cancel, F1 asks for
/// help.
class DialogWindow final : public Fl_Double_Window, public NativeDialog
{
public:
    DialogWindow(const DialogTemplate& dialog, const DialogUnits& units, NativeDialogOwner& owner);

    int Run() override;
    FltkControl* Find(int controlId) override;
    void End(int result) override;

    int handle(int event) override;

private:
    void AddControl(const DialogControl& description, const DialogUnits& units);
    bool HandleKey(int key);
    void MoveToTabStop(int step);
    void MoveInGroup(int step);
    void Enter();
    void Click(FltkControl& control);
    void Tell(WindowMessage message, int controlId) { m_owner.OnMessage(message, controlId); }
    [[nodiscard]] int IndexOf(const Fl_Widget* widget) const; ///< -1: none of them

    static void OnClick(Fl_Widget* widget, void* window);
    static void OnClose(Fl_Widget* widget, void* window);

    NativeDialogOwner& m_owner;
    std::vector<std::unique_ptr<FltkControl>> m_controls; ///< in tab order
    int m_result = DialogCancel;
};

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

int DialogWindow::Run()
{
    m_owner.OnOpen();
    show();
    Fl::focus(nullptr);
    MoveToTabStop(1);
    while (shown() != 0)
        Fl::wait();
    return m_result;
}

void DialogWindow::End(int result)
{
    m_result = result;
    hide();
}

FltkControl* DialogWindow::Find(int controlId)
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
    if (const int index = self->IndexOf(widget); index >= 0)
        self->Tell(WindowMessage::Click,
                   self->m_controls[static_cast<std::size_t>(index)]->Description().id);
}

void DialogWindow::OnClose(Fl_Widget*, void* window)
{
    static_cast<DialogWindow*>(window)->Tell(WindowMessage::Click, DialogCancel);
}

int DialogWindow::IndexOf(const Fl_Widget* widget) const
{
    const auto found = std::find_if(m_controls.begin(), m_controls.end(), [=](const auto& control) {
        return &control->Widget() == widget;
    });
    return found != m_controls.end() ? static_cast<int>(found - m_controls.begin()) : -1;
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

void DialogWindow::MoveToTabStop(int step)
{
    const int count = static_cast<int>(m_controls.size());
    const int from = IndexOf(Fl::focus());
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
    const int from = IndexOf(Fl::focus());
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
    const int focused = IndexOf(Fl::focus());
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

} // namespace

std::unique_ptr<NativeDialog> MakeNativeDialog(const CModuleState& module, int templateId,
                                               NativeDialogOwner& owner)
{
    const auto dialogs = module.Dialogs();
    const auto found =
        std::find_if(dialogs.begin(), dialogs.end(),
                     [=](const DialogTemplate& dialog) { return dialog.id == templateId; });
    if (found == dialogs.end() || !CanShowWindows())
        return nullptr;
    return std::make_unique<DialogWindow>(*found, DialogUnits(*found), owner);
}
