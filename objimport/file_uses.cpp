#include "objimport/file_uses.h"

#include "console_host/app/console_app.h"
#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "objimport/program_error.h"

#include <algorithm>
#include <optional>

namespace {

bool IsTextureOf(const GK_Material& material, const FileIdentity& file)
{
    const auto& textures = material.Textures();
    return std::any_of(textures.begin(), textures.end(), [&](const GK_Texture& texture) {
        return IdentityOf(NativePath(texture.filename.View())) == file;
    });
}

/// Returns what the file is to the document, when it is to be kept: "a texture"; null otherwise.
const char* UseOf(const FileIdentity& file, const ConsoleDoc& doc)
{
    if (ConsoleApp::Instance().FilesRead().contains(file))
        return "a file that the import has read";
    for (int i = 0; i < doc.Materials().Count(); ++i)
        if (IsTextureOf(doc.Materials()[i], file))
            return "a texture of the document";
    return nullptr;
}

} // namespace

void CheckIsNotUsed(const std::filesystem::path& path, const ConsoleDoc& doc,
                    const std::string& what)
{
    if (KindOfFile(path) != FileKind::Plain)
        return;
    const std::optional<FileIdentity> identity = IdentityOf(path);
    if (const char* use = identity ? UseOf(*identity, doc) : nullptr)
        throw ProgramError(what + " would replace " + Utf8Path(path) + ", " + use);
}
