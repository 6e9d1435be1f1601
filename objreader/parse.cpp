#include "objreader/keyword.h"
#include "objreader/read_obj.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/framework/wait_cursor.h"

#include <array>
#include <string_view>

namespace {

/// What a handler's result false does.
enum class OnFailure
{
    EndParse,
    PrintBogusFace,
    GoOn
};

} // namespace

/// One row of the table of statements.
struct CReadOBJ::Statement
{
    std::string_view keyword;
    bool (CReadOBJ::*handler)();
    OnFailure onFailure = OnFailure::EndParse;
};

/// The statement of a keyword, or null for one that is ignored. Keywords count whole and without
/// regard to case; those that begin with v are told apart by their second character alone.
const CReadOBJ::Statement* CReadOBJ::FindStatement(const char* keyword)
{
    static constexpr Statement Vertex{"v", &CReadOBJ::ReadVertex};
    static constexpr Statement Normal{"vn", &CReadOBJ::ReadNormal};
    static constexpr Statement TexCoord{"vt", &CReadOBJ::ReadTexCoord};
    static constexpr Statement ParamVertex{"vp", &CReadOBJ::ReadParamVertex};
    static constexpr Statement Face{"f", &CReadOBJ::ReadFace, OnFailure::PrintBogusFace};
    static constexpr std::array Others{
        Statement{"cstype", &CReadOBJ::ReadCSType},
        Statement{"curv", &CReadOBJ::ReadSpaceCurve},
        Statement{"curv2", &CReadOBJ::ReadParamCurve},
        Statement{"deg", &CReadOBJ::ReadDegree},
        Statement{"g", &CReadOBJ::ReadGroupName},
        Statement{"group", &CReadOBJ::ReadGroupName},
        Statement{"hole", &CReadOBJ::ReadTrimLoop},
        Statement{"mtllib", &CReadOBJ::ReadMaterialLibrary, OnFailure::GoOn},
        Statement{"o", &CReadOBJ::ReadObjectName},
        Statement{"p", &CReadOBJ::ReadPoint},
        Statement{"parm", &CReadOBJ::ReadParm},
        Statement{"surf", &CReadOBJ::ReadSurface},
        Statement{"trim", &CReadOBJ::ReadTrimLoop},
        Statement{"usemtl", &CReadOBJ::ReadMaterialUse},
    };

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
    if (IsKeyword(keyword, Face.keyword))
        return &Face;
    for (const Statement& statement : Others) {
        if (IsKeyword(keyword, statement.keyword))
            return &statement;
    }
    return nullptr;
}

bool CReadOBJ::Parse()
{
    const CWaitCursor waitCursor;
    const bool result = ParseStatements();
    FinishTextures();
    return result && !tokenizer.ReadFailed();
}

/// Reads to the end of the file or to the first statement that ends the parse; this gives false.
bool CReadOBJ::ParseStatements()
{
    bool result = true;
    while (result && !tokenizer.AtEnd()) {
        if (ReadPlainStatement())
            continue;
        if (!tokenizer.ReadLine())
            return false;
        if (tokenizer.TokenCount() > 0)
            result = HandleStatement();
    }
    return result;
}

/// Reads the next line when it is one of those that files consist of, and a plain one. False, and
/// nothing done, for all others.
bool CReadOBJ::ReadPlainStatement()
{
    const char* const line = tokenizer.NextLine();
    if (line == nullptr)
        return false;
    if (line[0] == 'f' && line[1] == ' ')
        return ReadPlainFace(line + 2);
    if (line[0] != 'v')
        return false;
    if (line[1] == ' ')
        return ReadPlainVertex(line + 2);
    if (line[1] == 't' && line[2] == ' ')
        return ReadPlainTexCoord(line + 3);
    return line[1] == 'n' && line[2] == ' ' && ReadPlainNormal(line + 3);
}

/// Hands the current line to its handler. False ends the parse.
bool CReadOBJ::HandleStatement()
{
    const Statement* const statement = FindStatement(tokenizer.Token(0));
    if (statement == nullptr || (this->*statement->handler)())
        return true;
    if (statement->onFailure == OnFailure::PrintBogusFace)
        PrintBogusFace();
    return statement->onFailure != OnFailure::EndParse;
}
