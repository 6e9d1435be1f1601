#pragma once

#include <string_view>

struct ObjReading;

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
    std::string_view keyword; ///< in small letters
    bool (*handler)(ObjReading&);
    OnFailure onFailure = OnFailure::EndParse;
};

/// Returns the statement of a keyword, or null for one that is ignored. Keywords count whole and
/// without regard to case; those that begin with v are told apart by their second character alone.
const Statement* FindStatement(const char* keyword);
