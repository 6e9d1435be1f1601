#include "console_host/framework/dialog_units.h"
#include "console_host/framework/dialog_window_fltk.h"
#include "console_host/framework/native_dialog.h"
#include "console_host/framework/native_windows.h"

#include "host/framework/dialog.h"

#include <FL/Fl.H>
#include <algorithm>

namespace {

/// A dialog window made from a table of controls.
class FltkDialog final : public NativeDialog
{
public:
    FltkDialog(const DialogTemplate& dialog, NativeDialogOwner& owner)
        : m_owner(owner), m_window(dialog, DialogUnits(dialog), owner)
    {
    }

    int Run() override
    {
        m_owner.OnOpen();
        m_window.show();
        m_window.FocusFirstTabStop();
        while (m_window.shown() != 0)
            Fl::wait();
        return m_result;
    }

    NativeControl* Find(int controlId) override { return m_window.Find(controlId); }

    void End(int result) override
    {
        m_result = result;
        m_window.hide();
    }

private:
    NativeDialogOwner& m_owner;
    DialogWindow m_window;
    int m_result = DialogCancel;
};

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
    return std::make_unique<FltkDialog>(*found, owner);
}
