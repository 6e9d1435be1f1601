#include "console_host/framework/resource_compiler/writer.h"

#include <ostream>

namespace {

const char* KindName(DialogControlKind kind)
{
    switch (kind) {
    case DialogControlKind::Line:
        return "Line";
    case DialogControlKind::RadioButton:
        return "RadioButton";
    case DialogControlKind::CheckBox:
        return "CheckBox";
    case DialogControlKind::PushButton:
        return "PushButton";
    case DialogControlKind::DefaultPushButton:
        return "DefaultPushButton";
    case DialogControlKind::Text:
        break;
    }
    return "Text";
}

void WriteControl(std::ostream& out, const ScriptControl& control)
{
    out << "    {DialogControlKind::" << KindName(control.kind) << ", " << control.id << ", L\""
        << control.text << "\", {" << control.place.x << ", " << control.place.y << ", "
        << control.place.width << ", " << control.place.height << "}, " << std::boolalpha
        << control.startsGroup << ", " << control.tabStop << "},\n";
}

} // namespace

void WriteDialogTable(std::ostream& out, const std::vector<ScriptDialog>& dialogs,
                      const std::string& function)
{
    out << "#include \"host/framework/dialog_template.h\"\n\n"
        << "std::span<const DialogTemplate> " << function << "();\n\nnamespace {\n";
    for (const ScriptDialog& dialog : dialogs) {
        out << "\nconstexpr DialogControl Controls" << dialog.id << "[] = {\n";
        for (const ScriptControl& control : dialog.controls)
            WriteControl(out, control);
        out << "};\n";
    }
    out << "\nconstexpr DialogTemplate Templates[] = {\n";
    for (const ScriptDialog& dialog : dialogs) {
        out << "    {" << dialog.id << ", L\"" << dialog.caption << "\", " << dialog.place.width
            << ", " << dialog.place.height << ", L\"" << dialog.font << "\", " << dialog.pointSize
            << ", Controls" << dialog.id << "},\n";
    }
    out << "};\n\n} // namespace\n\nstd::span<const DialogTemplate> " << function
        << "()\n{\n    return Templates;\n}\n";
}
