#include "objimport/json_file.h"

#include "console_host/app/console_app.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/document_json.h"
#include "objimport/program_error.h"

#include <algorithm>
#include <new>

namespace {

[[noreturn]] void ThrowCannotWrite(const std::string& name, const std::string& why)
{
    const std::string target = name == "-" ? "to standard output" : name;
    throw ProgramError("cannot write " + target + ": " + why);
}

bool IsTextureOf(const GK_Material& material, const FileIdentity& file)
{
    const auto& textures = material.Textures();
    return std::any_of(textures.begin(), textures.end(), [&](const GK_Texture& texture) {
        return IdentityOf(NativePath(texture.filename.View())) == file;
    });
}

/// What the file is to the document, when it is to be kept: "a texture"; null otherwise.
const char* UseOf(const FileIdentity& file, const ConsoleDoc& doc)
{
    if (ConsoleApp::Instance().FilesRead().contains(file))
        return "a file that the import has read";
    for (int i = 0; i < doc.Materials().Count(); ++i)
        if (IsTextureOf(doc.Materials()[i], file))
            return "a texture of the document";
    return nullptr;
}

void CheckUse(const std::filesystem::path& path, const ConsoleDoc& doc)
{
    if (KindOfFile(path) != FileKind::Plain)
        return;
    const std::optional<FileIdentity> identity = IdentityOf(path);
    if (const char* use = identity ? UseOf(*identity, doc) : nullptr)
        throw ProgramError("the JSON would replace " + Utf8Path(path) + ", " + use);
}

void WriteTo(std::FILE* stream, std::span<const ImportRecord> imports, const ConsoleDoc& doc)
{
    TextOutput output(stream);
    WriteDocumentJson(output, imports, doc);
    if (const std::string why = output.Finish(); !why.empty())
        throw std::runtime_error(why);
}

} // namespace

void CheckJsonFile(const std::string& name)
{
    if (name.empty() || name == "-")
        return;
    if (const std::string why = WhyUnwritable(PathFromUtf8(name)); !why.empty())
        ThrowCannotWrite(name, why);
}

void WriteJsonFile(const std::string& name, std::span<const ImportRecord> imports,
                   const ConsoleDoc& doc)
try {
    if (name == "-")
        return WriteTo(stdout, imports, doc);
    const std::filesystem::path path = PathFromUtf8(name);
    CheckUse(path, doc);
    FileReplacement file(path, FileReplacement::Links::Follow);
    WriteTo(file.Stream(), imports, doc);
    file.Commit();
} catch (const ProgramError&) {
    throw;
} catch (const std::runtime_error& failure) {
    ThrowCannotWrite(name, failure.what());
} catch (const std::bad_alloc&) {
    ThrowCannotWrite(name, "out of memory");
}
