#pragma once

#include "objimport/check/findings.h"
#include "objimport/check/obj_checker.h"
#include "objimport/text_output.h"

#include <string>
#include <string_view>

/// Returns a text in the user's language with its arguments, in UTF-8.
std::string InWords(const LocalText& text, const std::vector<std::string>& arguments);

/// Returns the same for a text that has its arguments.
std::string InWords(const Phrase& phrase);

/// Returns what a finding says, without its place.
std::string InWords(const Finding& finding);

/// Returns how many findings are left out where not all are written.
std::string FindingsLeftOut(std::size_t count);

/// Writes the findings of the last group in the form of compilers, of each kind the first
/// `mostOfAKind` ones.
void WriteFindings(TextOutput& output, const Findings& findings, std::size_t mostOfAKind);

/// Writes what a file holds, and how many findings of each kind there are, with how many of them
/// WriteFindings has not written.
void WriteCheckSummary(TextOutput& output, std::string_view file, const CheckTotals& totals,
                       const Findings& findings, std::size_t mostOfAKind);
