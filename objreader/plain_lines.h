#pragma once

#include "objreader/group_object.h"
#include "objreader/obj_line_tokenizer.h"
#include "objreader/vertex_lists.h"

// Lines of numbers or corners with spaces between them, as nearly all are, are read in place,
// without being cut into tokens. Each operation takes the text that follows the keyword. Any other
// line, also a faulty one, it leaves as it is for the statement's handler, and returns false.

bool ReadPlainVertex(CObjLineTokenizer& tokenizer, const char* text, VertexLists& lists);
bool ReadPlainTexCoord(CObjLineTokenizer& tokenizer, const char* text, VertexLists& lists);
bool ReadPlainNormal(CObjLineTokenizer& tokenizer, const char* text, VertexLists& lists);
bool ReadPlainFace(CObjLineTokenizer& tokenizer, const char* text, const VertexLists& lists,
                   Geometry& geometry);
