#include "console_host/runtime/file_identity.h"

#include <system_error>

bool IsSameFile(const std::filesystem::path& a, const std::filesystem::path& b)
{
    const std::optional<FileIdentity> first = IdentityOf(a);
    const std::optional<FileIdentity> second = IdentityOf(b);
    if (first || second)
        return first == second;
    // Files that do not exist are one when they have one name in one folder.
    const std::filesystem::path targetA = FollowLinks(a);
    const std::filesystem::path targetB = FollowLinks(b);
    const std::optional<FileIdentity> folder = IdentityOf(FolderOf(targetA));
    return folder && folder == IdentityOf(FolderOf(targetB)) &&
           targetA.filename() == targetB.filename();
}

void MakeFolders(const std::filesystem::path& folder)
{
    if (KindOfFile(folder) != FileKind::Missing)
        return;
    if (const std::filesystem::path parent = FolderOf(folder); parent.native() != folder.native())
        MakeFolders(parent);
    std::error_code error;
    std::filesystem::create_directory(folder, error);
}
