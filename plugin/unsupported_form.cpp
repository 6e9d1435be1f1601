#include "plugin/unsupported_form.h"

#include "plugin/support_line.h"

#include "host/app/localize.h"
#include "host/app/message_box.h"
#include "host/geokit/string.h"

#include <array>

namespace {

struct LocalText
{
    const wchar_t* text;
    int id;

    [[nodiscard]] const wchar_t* Localized() const { return KvLocalizeString(text, id); }
};

struct Message
{
    CurveForm form;
    std::array<LocalText, 3> lines;
    LocalText caption;
};

constexpr std::array CurveMessages{
    Message{FormBasisMatrix,
            {{{L"This file contains a bmatrix curve which is not yet supported.\n", 12742},
              {SupportLine, 12743},
              {L"and bmatrix curve import will be supported in the next release.\n", 12744}}},
            {L"OBJ Import Error", 12745}},
    Message{FormCardinal,
            {{{L"This file contains a cardinal curve which is not yet supported.\n", 12746},
              {SupportLine, 12747},
              {L"and cardinal curve import will be supported in the next release.\n", 12748}}},
            {L"OBJ Import Error", 12749}},
    Message{FormTaylor,
            {{{L"This file contains a taylor curve which is not yet supported.\n", 12750},
              {SupportLine, 12751},
              {L"and taylor curve import will be supported in the next release.\n", 12752}}},
            {L"OBJ Import Error", 12753}}};

constexpr std::array SurfaceMessages{
    Message{FormBasisMatrix,
            {{{L"This file contains a bmatrix surface which is not yet supported.\n", 12761},
              {SupportLine, 12762},
              {L"and bmatrix surface import will be supported in the next release.\n", 12763}}},
            {L"OBJ Import Error", 12764}},
    Message{FormCardinal,
            {{{L"This file contains a cardinal surface which is not yet supported.\n", 12765},
              {SupportLine, 12766},
              {L"and cardinal surface import will be supported in the next release.\n", 12767}}},
            {L"OBJ Import Error", 12768}},
    Message{FormTaylor,
            {{{L"This file contains a taylor surface which is not yet supported.\n", 12769},
              {SupportLine, 12770},
              {L"and taylor surface import will be supported in the next release.\n", 12771}}},
            {L"OBJ Import Error", 12772}}};

template <class Messages>
void Show(const Messages& messages, CurveForm form)
{
    for (const Message& message : messages) {
        if (message.form != form)
            continue;
        GK_wString text;
        for (const LocalText& line : message.lines)
            text += line.Localized();
        KelvoMessageBox(text.Array(), message.caption.Localized(), MessageBoxExclamation);
        return;
    }
}

} // namespace

void ShowUnsupportedCurve(CurveForm form)
{
    Show(CurveMessages, form);
}

void ShowUnsupportedSurface(CurveForm form)
{
    Show(SurfaceMessages, form);
}
