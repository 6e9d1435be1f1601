#pragma once

#include "objimport/check/findings.h"
#include "objimport/check/obj_checker.h"

#include <filesystem>
#include <string>
#include <vector>

/// A file that has been checked against the format.
struct CheckedFile
{
    explicit CheckedFile(const std::filesystem::path& path, std::size_t mostOfAKind = Findings::All,
                         double tolerance = 0.001);

    /// Returns the findings as "file:line: kind: message", the files without their folders.
    [[nodiscard]] std::vector<std::string> Lines() const;

    Findings findings;
    CheckTotals totals;
};
