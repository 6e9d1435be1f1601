#pragma once

#include "console_host/framework/native_dialog.h"

#include <FL/Fl_Double_Window.H>
#include <vector>

class DialogUnits;

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

    [[nodiscard]] bool Checked() const override;
    void SetChecked(bool checked) override;
    [[nodiscard]] bool Enabled() const override;
    void SetEnabled(bool enabled) override;

    /// Whether the keyboard can reach it at all.
    [[nodiscard]] bool TakesFocus() const;

    /// Whether the Tab key stops here.
    [[nodiscard]] bool IsTabStop() const;

private:
    const DialogControl* m_description;
    Fl_Widget* m_widget;
};

/// The window of a dialog, with the keyboard of a dialog: Tab goes through the tab stops, the arrow
/// keys through a group, Space clicks, Enter is the default button, Escape is Cancel, F1 asks for
/// help.
class DialogWindow final : public Fl_Double_Window
{
public:
    DialogWindow(const DialogTemplate& dialog, const DialogUnits& units, NativeDialogOwner& owner);

    [[nodiscard]] FltkControl* Find(int controlId) const;
    void FocusFirstTabStop();

    int handle(int event) override;

private:
    void AddControl(const DialogControl& description, const DialogUnits& units);
    bool HandleKey(int key);
    void MoveToTabStop(int step);
    void MoveInGroup(int step);
    void Enter();
    void Click(FltkControl& control);
    void Tell(WindowMessage message, int controlId) { m_owner.OnMessage(message, controlId); }
    [[nodiscard]] int FocusedIndex() const;

    static void OnClick(Fl_Widget* widget, void* window);
    static void OnClose(Fl_Widget* widget, void* window);

    NativeDialogOwner& m_owner;
    std::vector<std::unique_ptr<FltkControl>> m_controls; ///< in tab order
};
