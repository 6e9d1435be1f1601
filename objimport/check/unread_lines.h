#pragma once

#include "objimport/check/finding.h"

#include <cstddef>
#include <cstdio>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// Where an import stops reading before the end of the file.
struct EarlyEnd
{
    std::size_t line = 0;       ///< the last one that is read, from 1
    std::size_t linesAfter = 0; ///< that are not read
    std::size_t statement = 0;  ///< the first line of the statement that stops it; 0: none does
    Phrase why{};               ///< the statement stops it
};

/// What an import ignores or changes in a file, and what it may not find, as far as the file's own
/// lines tell.
struct UnreadLines
{
    /// Keywords that are not read, each as it is first spelled with its number of lines, in the
    /// order of the file; after many different ones the rest together, under no keyword.
    std::vector<std::pair<std::string, std::size_t>> keywords;

    EarlyEnd end;

    /// What the file is when it is not text; then all else here is left as it is.
    std::optional<Finding> notText;

    /// The materials that "usemtl" statements name, each once.
    std::set<std::string> materials;

    std::size_t changedNames = 0; ///< different names that do not arrive as they stand in the file
    std::size_t faces = 0;        ///< "f" statements
};

/// Returns what an import of the file of a stream, which is taken over, ignores up to where it
/// stops reading. The lines that nearly all files consist of are only stepped over, so this takes a
/// fraction of an import's time.
UnreadLines FindUnreadLines(std::FILE* stream, const EarlyEnd& end = {});

/// Returns where an import stops reading the file of a stream, which is taken over. Every line is
/// read as an import reads it.
EarlyEnd FindEarlyEnd(std::FILE* stream);
