#include "objreader/plain_lines.h"

namespace {

/// Lines that mean nothing and that no other line belongs to: empty ones and comments.
bool SkipIdleLine(PlainText& text)
{
    const char* lineEnd = text.next;
    if (*lineEnd == '#')
        while (*lineEnd != '\n' && *lineEnd != '\r' && *lineEnd != '\0')
            ++lineEnd;
    return text.SkipLine(lineEnd);
}

/// Reads one stretch of plain lines.
class RunReader
{
public:
    RunReader(const PlainText& text, const PlainTarget& target)
        : m_text(text), m_target(target), m_faces{&target.block,
                                                  target.block.values.Count(),
                                                  target.block.faceEnds.Count(),
                                                  0,
                                                  {}}
    {
    }

    PlainRun Read(const char* front)
    {
        PlainRun run;
        run.begin = static_cast<std::size_t>(m_text.next - front);
        while (m_text.next < m_text.end && ReadLine()) {
        }
        run.end = static_cast<std::size_t>(m_text.next - front);
        run.listEnds = CountsOf(m_target.lists);
        run.faces = m_faces;
        run.needs = m_needs;
        return run;
    }

private:
    bool ReadLine()
    {
        const char* const line = m_text.next;
        if (line[0] == 'f')
            return line[1] == ' ' && ReadFace(line + 2);
        if (line[0] != 'v')
            return SkipIdleLine(m_text);
        if (line[1] == ' ')
            return ReadPlainVertex(m_text, line + 2, m_target.lists);
        if (line[1] == 't' && line[2] == ' ')
            return ReadPlainTexCoord(m_text, line + 3, m_target.lists);
        return line[1] == 'n' && line[2] == ' ' &&
               ReadPlainNormal(m_text, line + 3, m_target.lists);
    }

    bool ReadFace(const char* corners)
    {
        FaceBlock& block = m_target.block;
        const char* const line = m_text.next;
        const int firstValue = block.values.Count();
        PlainFace face;
        if (!ReadPlainFace(m_text, corners, m_target.lists, block, face))
            return false;
        if (!Fits(face)) {
            block.values.SetCount(firstValue);
            m_text.next = line;
            return false;
        }
        block.faceEnds.Append(block.values.Count());
        m_faces.form = face.form;
        ++m_faces.faceCount;
        return true;
    }

    /// Takes in the needs of a face that can be one of the run's.
    bool Fits(const PlainFace& face)
    {
        if (m_faces.faceCount > 0 && m_faces.form != face.form)
            return false;
        if (m_target.listsAreWhole)
            return face.needs.AreMetBy(0, 0, 0);
        IndexNeeds needs = m_needs;
        needs.Add(face.needs);
        if (needs.absolute && needs.relative)
            return false;
        m_needs = needs;
        return true;
    }

    PlainText m_text;
    const PlainTarget& m_target;
    FaceRun m_faces;
    IndexNeeds m_needs;
};

template <class T>
void AppendRange(GK_SimpleArray<T>& to, const GK_SimpleArray<T>& from, int first, int end)
{
    to.Append(end - first, from.Array() + first);
}

} // namespace

PlainRun ReadPlainLines(const char* front, std::size_t begin, const char* end,
                        const PlainTarget& target)
{
    return RunReader({front + begin, end}, target).Read(front);
}

ListCounts CountsOf(const VertexLists& lists)
{
    return {lists.vertices.Count(), lists.vertexColors.Count(), lists.texCoords.Count(),
            lists.normals.Count()};
}

void AppendLists(VertexLists& to, const VertexLists& from, const ListCounts& first,
                 const ListCounts& end)
{
    if (from.hasVertexWeights)
        to.KeepWeights();
    AppendRange(to.vertices, from.vertices, first.vertices, end.vertices);
    if (from.hasVertexWeights)
        AppendRange(to.vertexWeights, from.vertexWeights, first.vertices, end.vertices);
    else if (to.hasVertexWeights)
        while (to.vertexWeights.Count() < to.vertices.Count())
            to.vertexWeights.Append(1.0);
    AppendRange(to.vertexColors, from.vertexColors, first.vertexColors, end.vertexColors);
    to.hasVertexColors |= end.vertexColors > first.vertexColors;
    AppendRange(to.texCoords, from.texCoords, first.texCoords, end.texCoords);
    AppendRange(to.normals, from.normals, first.normals, end.normals);
}
