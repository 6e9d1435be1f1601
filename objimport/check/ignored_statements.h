#pragma once

#include "objimport/check/findings.h"
#include "objimport/check/statement_counts.h"
#include "objreader/obj_line_tokenizer.h"

#include <string>

/// Returns whether something is lost with the current line, whose statement is not read. Nothing is
/// with one that only ends a curve or surface, that turns smoothing off, or that is a comment after
/// blanks.
bool IsLossOfContent(const CObjLineTokenizer& tokenizer);

/// Returns whether the statement of a keyword only says how geometry is shown, so that nothing of
/// the model is lost with it.
bool SaysHowToShow(const std::string& keyword);

// Report the statements that are not read, with their counts, each at its first line.

void ReportIgnoredStatements(CheckPlace place, const StatementCounts& ignored);
void ReportIgnoredMtlStatements(CheckPlace place, const StatementCounts& ignored);
