#include "objimport/check/obj_checker.h"

#include "objimport/check/check_texts.h"
#include "objimport/check/ignored_statements.h"
#include "objimport/check/raw_line.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/statement_table.h"
#include "objreader/text_bytes.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

/// Returns the three numbers at a place of a line.
std::array<double, 3> NumbersAt(const char* text)
{
    std::array<double, 3> numbers{};
    for (double& number : numbers) {
        SkipSpaces(text);
        TakeReal(text, number);
    }
    return numbers;
}

} // namespace

ObjChecker::ObjChecker(std::FILE* stream, Findings& findings, int file, FileFinder& finder,
                       double tolerance)
    : m_tokenizer(stream),
      m_reading(m_tokenizer, m_choices, *this, m_file), m_place{findings, file, 0},
      m_finder(finder), m_vertices(tolerance), m_faces(m_file.lists), m_freeform(m_file, tolerance)
{
    m_tokenizer.KeepRawLines(m_raw);
}

ObjChecker::~ObjChecker() = default;

CheckTotals ObjChecker::Check()
{
    ReadLines();
    if (m_tokenizer.ReadFailed())
        m_place.Report(CheckTexts::ReadBreaksOff);
    const std::size_t freeform = m_freeform.Finish(m_place);
    m_materials.Finish(m_place);
    ReportIgnoredStatements(m_place, m_ignored);
    const VertexLists& lists = m_file.lists;
    m_vertices.Finish(m_place, static_cast<std::size_t>(lists.vertices.Count()),
                      static_cast<std::size_t>(lists.vertexColors.Count()));
    if (m_faces.MeshFaces() == 0 && !m_anyPoints && freeform == 0)
        m_place.findings.Add(m_place.file, 0, CheckTexts::Nothing);
    FinishTotals();
    return std::move(m_totals);
}

void ObjChecker::ReadLines()
{
    while (!m_tokenizer.AtEnd()) {
        ReadPlainLines();
        if (!ReadLine())
            return;
        if (m_tokenizer.TokenCount() > 0 && !HandleLine())
            return ReportEnd();
    }
}

bool ObjChecker::ReadLine()
{
    if (!m_tokenizer.ReadLine())
        return false;
    m_place.line = m_nextLine;
    m_nextLine += CountRawLines(m_raw);
    return true;
}

/// Reads the lines at the cursor up to the first one that is not plain.
void ObjChecker::ReadPlainLines()
{
    while (m_tokenizer.FetchLine()) {
        const char* const front = m_tokenizer.Front();
        PlainText text{front + m_tokenizer.Cursor(), m_tokenizer.NextRunOrEnd()};
        bool plain = text.next < text.end;
        m_place.line = m_nextLine;
        while (plain && text.next < text.end) {
            plain = ReadPlainLine(text);
            m_place.line += plain ? 1U : 0U;
        }
        m_nextLine = m_place.line;
        m_tokenizer.SkipTo(static_cast<std::size_t>(text.next - front));
        if (!plain)
            return;
    }
}

/// Reads the next line when it is a plain one, as nearly all are. Returns false, and does nothing,
/// for all others.
bool ObjChecker::ReadPlainLine(PlainText& text)
{
    const char* const line = text.next;
    if (line[0] == 'f' && line[1] == ' ')
        return ReadPlainCorners(text);
    if (line[0] == '#')
        return text.SkipLine(std::find_if(line, text.end, IsLineEnd));
    if (line[0] != 'v')
        return text.SkipLine(line);
    if (line[1] == ' ')
        return ReadPlainPosition(text);
    VertexLists& lists = m_file.lists;
    if (line[1] == 't' && line[2] == ' ' && ReadPlainTexCoord(text, line + 3, lists)) {
        m_plainTexCoords.Note(m_place.line);
        m_vertices.CheckTexCoord(m_place, *lists.texCoords.Last());
        return true;
    }
    if (line[1] == 'n' && line[2] == ' ' && ReadPlainNormal(text, line + 3, lists)) {
        m_plainNormals.Note(m_place.line);
        m_vertices.CheckNormal(m_place, *lists.normals.Last());
        return true;
    }
    return false;
}

bool ObjChecker::ReadPlainPosition(PlainText& text)
{
    const char* const numbers = text.next + 2;
    VertexLists& lists = m_file.lists;
    if (!ReadPlainVertex(text, numbers, lists))
        return false;
    m_plainPositions.Note(m_place.line);
    m_vertices.CheckPosition(m_place, lists.Position(lists.vertices.Count() - 1),
                             [numbers] { return NumbersAt(numbers); });
    return true;
}

bool ObjChecker::ReadPlainCorners(PlainText& text)
{
    const char* const line = text.next;
    m_faceBlock.values.Empty();
    m_faceBlock.faceEnds.Empty();
    PlainFace face;
    if (!ReadPlainFace(text, line + 2, m_file.lists, m_faceBlock, face))
        return false;
    if (!face.needs.AreMetBy(0, 0, 0)) {
        text.next = line;
        return false;
    }
    m_faceBlock.faceEnds.Append(m_faceBlock.values.Count());
    m_plainFaces.Note(m_place.line);
    m_faces.CheckFace(m_place, *m_reading.currentGroup, {&m_faceBlock, 0, 0, 1, face.form});
    return true;
}

/// Passes the current line to its handler. Returns false when reading ends with it.
bool ObjChecker::HandleLine()
{
    const char* const keyword = m_tokenizer.Token(0);
    const Statement* const statement = FindStatement(keyword);
    m_totals.statements.Count(statement != nullptr ? statement->keyword : keyword, m_place.line);
    if (statement == nullptr) {
        if (IsLossOfContent(m_tokenizer))
            m_ignored.Count(keyword, m_place.line);
        return true;
    }
    m_told = {};
    m_badCorners = 0;
    const int badBefore = m_file.BogusIndexCount;
    const bool result = statement->handler(m_reading);
    for (int i = badBefore + m_badCorners; i < m_file.BogusIndexCount; ++i)
        m_place.Report(CheckTexts::BadReference, keyword);
    AfterStatement(statement->keyword.data(), result);
    if (result || statement->onFailure != OnFailure::EndParse)
        return true;
    m_why = WhyReadingEnds(m_reading, m_told);
    return false;
}

void ObjChecker::AfterStatement(const char* keyword, bool result)
{
    if (IsKeyword(keyword, "v") && result)
        AfterPosition();
    else if (IsKeyword(keyword, "vt") && result)
        m_vertices.CheckTexCoord(m_place, *m_file.lists.texCoords.Last());
    else if (IsKeyword(keyword, "vn") && result)
        m_vertices.CheckNormal(m_place, *m_file.lists.normals.Last());
    else if (IsKeyword(keyword, "f"))
        AfterFace(result);
    else if (IsKeyword(keyword, "p") && m_reading.currentGroup->geometry)
        m_anyPoints = m_faces.TakePoints(m_place, *m_reading.currentGroup->geometry) || m_anyPoints;
    else if (keyword[0] == 'g')
        CheckGroupNames();
    else if (IsKeyword(keyword, "o") || IsKeyword(keyword, "usemtl") ||
             IsKeyword(keyword, "mtllib"))
        AfterName(keyword);
    else
        m_freeform.NoteStatement(m_place.line, *m_reading.currentGroup);
}

void ObjChecker::AfterPosition()
{
    const auto numbers = [this] {
        std::array<double, 3> values{};
        for (int i = 0; i < 3; ++i)
            ReadReal(m_tokenizer.Token(i + 1), values[static_cast<std::size_t>(i)]);
        return values;
    };
    const VertexLists& lists = m_file.lists;
    m_vertices.CheckPosition(m_place, lists.Position(lists.vertices.Count() - 1), numbers);
}

void ObjChecker::AfterFace(bool result)
{
    Geometry& geometry = m_reading.currentGroup->GeometryToFill();
    const int cornerCount = m_tokenizer.TokenCount() - 1;
    if (!result && cornerCount < 3) {
        m_place.Report(CheckTexts::TooFewCorners, cornerCount);
    } else if (!result) {
        const int cornersBefore = geometry.faces.back().CornerCount();
        const char* const corner = m_tokenizer.Token(cornersBefore + 1);
        const auto slashes = std::count(corner, corner + std::strlen(corner), '/');
        m_place.Report(slashes >= MostCornerFields ? CheckTexts::TooManyFields
                                                   : CheckTexts::OtherFields,
                       corner);
    }
    for (const FaceRun& face : geometry.faces) {
        m_faces.CheckFace(m_place, *m_reading.currentGroup, face);
        ReleaseFaces(face);
    }
    geometry.faces.clear();
}

void ObjChecker::AfterName(const char* keyword)
{
    const bool isNamed = m_tokenizer.TokenCount() >= 2;
    const std::string name = isNamed ? m_reading.joinedName : std::string();
    m_names.Check(m_place, RawRest(m_raw), name);
    if (!isNamed)
        return;
    if (keyword[0] == 'u')
        m_materials.Use(m_place, name);
    else if (keyword[0] == 'o' && !m_objectNames.contains(name))
        m_objectNames.insert(name);
}

void ObjChecker::CheckGroupNames()
{
    std::string taken;
    for (int i = 1; i < m_tokenizer.TokenCount(); ++i) {
        const char* const name = m_tokenizer.Token(i);
        taken.append(taken.empty() ? "" : " ").append(name);
        if (!m_groupNames.contains(std::string_view(name)))
            m_groupNames.emplace(name);
    }
    m_names.Check(m_place, WithSingleSpaces(RawRest(m_raw)), taken);
}

void ObjChecker::OnBadCorner(BadField field, int listLength, const char* token)
{
    ++m_badCorners;
    if (field == BadFieldVertex && token[0] == '#')
        m_place.Report(CheckTexts::CommentAfterFace, token);
    else if (field == BadFieldVertex)
        m_place.Report(CheckTexts::BadVertex, token, listLength);
    else
        m_place.Report(field == BadFieldTexture ? CheckTexts::BadTexCoord : CheckTexts::BadNormal,
                       token, listLength);
}

/// Reports that reading ends with the current statement, and counts what follows it.
void ObjChecker::ReportEnd()
{
    const CheckPlace end = m_place;
    const std::size_t firstUnread = m_nextLine;
    while (!m_tokenizer.AtEnd())
        ReadLine();
    m_totals.unread = m_nextLine - firstUnread;
    end.findings.AddBecause(end.file, end.line, CheckTexts::EndsHere, std::move(m_why),
                            m_totals.unread);
}
