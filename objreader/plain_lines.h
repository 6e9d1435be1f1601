#pragma once

#include "objreader/plain_statements.h"

#include <cstddef>

/// Where lists end.
struct ListCounts
{
    int vertices = 0;
    int vertexColors = 0;
    int texCoords = 0;
    int normals = 0;

    friend ListCounts operator-(const ListCounts& a, const ListCounts& b)
    {
        return {a.vertices - b.vertices, a.vertexColors - b.vertexColors, a.texCoords - b.texCoords,
                a.normals - b.normals};
    }
};

/// Plain lines that follow each other, as they were read.
struct PlainRun
{
    // The text of the lines, counted from the front of the text that they stand in.
    std::size_t begin = 0;
    std::size_t end = 0;

    ListCounts listEnds; ///< after the run
    FaceRun faces;       ///< none: the count is 0
    IndexNeeds needs;    ///< of these faces

    [[nodiscard]] bool IsEmpty() const { return begin == end; }
};

/// What plain lines are read into.
struct PlainTarget
{
    VertexLists& lists;
    FaceBlock& block;
    bool listsAreWhole; ///< the lists hold all that stands in the file before the lines
};

/// Reads the lines at `front` + `begin` up to the first one that is not plain, or to the end of the
/// text. With whole lists, faces with an index of no element are not plain. Otherwise the run says
/// what its faces need, and their relative indices are counted from the beginning of the lists; a
/// run has then either relative or absolute indices. All faces of a run have one form, so that text
/// may be left of which another run can be made.
PlainRun ReadPlainLines(const char* front, std::size_t begin, const char* end,
                        const PlainTarget& target);

ListCounts CountsOf(const VertexLists& lists);

/// Appends what `from` holds from some counts on up to others.
void AppendLists(VertexLists& to, const VertexLists& from, const ListCounts& first,
                 const ListCounts& end);
