#include "objreader/statement_table.h"

#include "objreader/keyword.h"
#include "objreader/statements.h"

#include <array>

namespace {

bool ReadSpaceCurve(ObjReading& reading)
{
    return ReadCurve(reading, false);
}

bool ReadParamCurve(ObjReading& reading)
{
    return ReadCurve(reading, true);
}

constexpr Statement Vertex{"v", ReadVertex};
constexpr Statement Normal{"vn", ReadNormal};
constexpr Statement TexCoord{"vt", ReadTexCoord};
constexpr Statement ParamVertex{"vp", ReadParamVertex};
constexpr std::array Others{
    Statement{"f", ReadFace, OnFailure::ReportBogusFace},
    Statement{"cstype", ReadCSType},
    Statement{"curv", ReadSpaceCurve},
    Statement{"curv2", ReadParamCurve},
    Statement{"deg", ReadDegree},
    Statement{"g", ReadGroupName},
    Statement{"group", ReadGroupName},
    Statement{"hole", ReadTrimLoop},
    Statement{"mtllib", ReadMaterialLibrary, OnFailure::GoOn},
    Statement{"o", ReadObjectName},
    Statement{"p", ReadPoint},
    Statement{"parm", ReadParm},
    Statement{"surf", ReadSurface},
    Statement{"trim", ReadTrimLoop},
    Statement{"usemtl", ReadMaterialUse},
};

} // namespace

const Statement* FindStatement(const char* keyword)
{
    if (Lower(keyword[0]) == 'v') {
        switch (Lower(keyword[1])) {
        case '\0':
            return &Vertex;
        case 'n':
            return &Normal;
        case 't':
            return &TexCoord;
        case 'p':
            return &ParamVertex;
        default:
            return nullptr;
        }
    }
    for (const Statement& statement : Others) {
        if (IsKeyword(keyword, statement.keyword))
            return &statement;
    }
    return nullptr;
}
