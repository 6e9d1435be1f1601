#pragma once

#include "objreader/face_run.h"
#include "objreader/vertex_lists.h"

#include <algorithm>

// Lines of numbers or corners with spaces between them, as nearly all are, are read in place,
// without being cut into tokens. Any other line, also a faulty one, is left as it is for the
// statement's handler.

/// Text of which whole lines are read from the front.
struct PlainText
{
    const char* next; ///< the beginning of a line
    const char* end;  ///< after the last byte; CObjLineTokenizer::Padding zero bytes follow

    /// Steps over the next line, whose text ends at `lineEnd`. False, and nothing done, when no
    /// line end stands there.
    bool SkipLine(const char* lineEnd)
    {
        const bool isReturn = *lineEnd == '\r' && lineEnd + 1 != end;
        if (*lineEnd != '\n' && !isReturn)
            return false;
        next = lineEnd + (isReturn && lineEnd[1] == '\n' ? 2 : 1);
        return true;
    }
};

/// What the corners of faces ask of the lists that they refer to.
struct IndexNeeds
{
    // How many elements must have been read before those that the lists hold; 0 or less: none.
    int vertices = 0;
    int texCoords = 0;
    int normals = 0;
    bool absolute = false; ///< some indices count from the file's beginning
    bool relative = false; ///< some count back from the face

    [[nodiscard]] bool AreMetBy(int vertexCount, int texCoordCount, int normalCount) const
    {
        return vertices <= vertexCount && texCoords <= texCoordCount && normals <= normalCount;
    }

    /// Takes in the needs of further faces.
    void Add(const IndexNeeds& other)
    {
        vertices = std::max(vertices, other.vertices);
        texCoords = std::max(texCoords, other.texCoords);
        normals = std::max(normals, other.normals);
        absolute |= other.absolute;
        relative |= other.relative;
    }
};

/// The corners of one face, appended to a block's values.
struct PlainFace
{
    CornerForm form;
    IndexNeeds needs;
};

// Each reads the rest of the line at the front of `text`, which follows the keyword, and steps over
// the line. False, and nothing done, when the line is not plain.

bool ReadPlainVertex(PlainText& text, const char* numbers, VertexLists& lists);
bool ReadPlainTexCoord(PlainText& text, const char* numbers, VertexLists& lists);
bool ReadPlainNormal(PlainText& text, const char* numbers, VertexLists& lists);

/// Relative indices are resolved by the lengths of the lists; whether an index is that of an
/// element is left to the needs.
bool ReadPlainFace(PlainText& text, const char* corners, const VertexLists& lists, FaceBlock& block,
                   PlainFace& face);
