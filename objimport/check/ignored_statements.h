#pragma once

#include "objimport/check/findings.h"
#include "objimport/check/statement_counts.h"

// Report the statements that are not read, with their counts, each at its first line.

void ReportIgnoredStatements(CheckPlace place, const StatementCounts& ignored);
void ReportIgnoredMtlStatements(CheckPlace place, const StatementCounts& ignored);
