#include "objreader/keyword.h"
#include "objreader/obj_reading.h"
#include "objreader/plain_lines.h"
#include "objreader/statements.h"

#include <array>
#include <string_view>

namespace {

/// What a handler's result false does.
enum class OnFailure
{
    EndParse,
    ReportBogusFace,
    GoOn
};

/// One row of the table of statements.
struct Statement
{
    std::string_view keyword;
    bool (*handler)(ObjReading&);
    OnFailure onFailure = OnFailure::EndParse;
};

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

/// Returns the statement of a keyword, or null for one that is ignored. Keywords count whole and
/// without regard to case; those that begin with v are told apart by their second character alone.
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

/// Hands the current line to its handler. False ends the parse.
bool HandleStatement(ObjReading& reading)
{
    const Statement* const statement = FindStatement(reading.tokenizer.Token(0));
    if (statement == nullptr || statement->handler(reading))
        return true;
    if (statement->onFailure == OnFailure::ReportBogusFace)
        reading.events.OnBogusFace();
    return statement->onFailure != OnFailure::EndParse;
}

/// Reads the next line when it is one of those that files consist of, and a plain one. False, and
/// nothing done, for all others.
bool ReadPlainStatement(ObjReading& reading)
{
    CObjLineTokenizer& tokenizer = reading.tokenizer;
    VertexLists& lists = reading.file.lists;
    const char* const line = tokenizer.NextLine();
    if (line == nullptr)
        return false;
    // The corners of a morph target lose fields, which plain ones do not.
    if (line[0] == 'f' && line[1] == ' ')
        return !reading.choices.ImportAsMorphTarget &&
               ReadPlainFace(tokenizer, line + 2, lists, reading.currentGroup->GeometryToFill());
    if (line[0] != 'v')
        return false;
    if (line[1] == ' ')
        return ReadPlainVertex(tokenizer, line + 2, lists);
    if (line[1] == 't' && line[2] == ' ')
        return ReadPlainTexCoord(tokenizer, line + 3, lists);
    return line[1] == 'n' && line[2] == ' ' && ReadPlainNormal(tokenizer, line + 3, lists);
}

} // namespace

ObjReading::ObjReading(CObjLineTokenizer& source, const ImportChoices& importChoices,
                       ReadingEvents& readingEvents, ObjFile& contents)
    : tokenizer(source), choices(importChoices), events(readingEvents), file(contents)
{
    groupName = objectName = materialName = file.names.Intern({});
    currentGroup = &file.groupObjects.FindOrAddGroupObject(groupName, objectName, materialName);
}

bool ParseStatements(ObjReading& reading)
{
    CObjLineTokenizer& tokenizer = reading.tokenizer;
    bool result = true;
    while (result && !tokenizer.AtEnd()) {
        if (ReadPlainStatement(reading))
            continue;
        if (!tokenizer.ReadLine())
            return false;
        if (tokenizer.TokenCount() > 0)
            result = HandleStatement(reading);
    }
    return result && !tokenizer.ReadFailed();
}
