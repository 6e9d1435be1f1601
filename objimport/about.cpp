#include "objimport/about.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/files.h"

#include "host/geokit/string.h"

namespace {

std::string Utf8(const wchar_t* text)
{
    return GK_wString(text).Utf8();
}

/// Writes a label and its text; further lines of the text stand under its first.
void WriteEntry(TextOutput& output, std::string label, const std::string& text)
{
    constexpr std::size_t LabelWidth = 22;
    ForEachLine(text.empty() ? "-" : text, [&](std::string_view line) {
        label.resize(LabelWidth, ' ');
        output.Write(label);
        output.Write(Printable(line));
        output.Write('\n');
        label.clear();
    });
}

std::string FileTypes(CKelvoFileImportPlugIn& plugIn)
{
    CKelvoFileTypeList types;
    plugIn.AddFileTypes(types, CKelvoFileReadOptions());
    std::string text;
    for (const CKelvoFileType& type : types.Types())
        text.append(text.empty() ? "" : "\n")
            .append(type.description.Utf8())
            .append(", extension ")
            .append(type.extension.Utf8());
    return text.empty() ? "none" : text;
}

} // namespace

void WriteAbout(TextOutput& output, const PlugInModule& module)
{
    CKelvoFileImportPlugIn& plugIn = module.PlugIn();
    WriteEntry(output, "Name", Utf8(plugIn.PlugInName()));
    WriteEntry(output, "Local name", Utf8(plugIn.LocalPlugInName()));
    WriteEntry(output, "Version", Utf8(plugIn.PlugInVersion()));
    WriteEntry(output, "Id", GK_UuidToString(plugIn.PlugInId()));
    WriteEntry(output, "File types", FileTypes(plugIn));
    for (std::size_t i = 0; i < std::size(PlugInModule::TextExports); ++i)
        WriteEntry(output, PlugInModule::TextExports[i].first, Utf8(module.Text(i)));
    WriteEntry(output, "SDK version", std::to_string(module.SdkVersion()));
    WriteEntry(output, "SDK service release", std::to_string(module.SdkServiceRelease()));
}
