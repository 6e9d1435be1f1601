#include "objreader/read_obj.h"

#include "objreader/group_object.h"

#include "host/runtime/split_path.h"

namespace {

constexpr GK_Xform YToZ{{{1, 0, 0, 0}, {0, 0, -1, 0}, {0, 1, 0, 0}, {0, 0, 0, 1}}};

} // namespace

CReadOBJ::CReadOBJ(const wchar_t* path, CKelvoDoc& document, const CKelvoFileReadOptions& options)
    : tokenizer(path), doc(document), readOptions(options), fileName(path),
      tolerance(document.AbsoluteTolerance()), ObjYToZ(YToZ)
{
    const PathParts parts = SplitPath(path);
    drive += parts.drive;
    dir += parts.dir;
    fname += parts.fname;
    ext += parts.ext;

    groupName = objectName = materialName = m_names.Intern({});
    groupNames = std::make_shared<GroupNames>();
    FindOrAddGroupObject(groupName, objectName, materialName);
}

CReadOBJ::~CReadOBJ() = default;
