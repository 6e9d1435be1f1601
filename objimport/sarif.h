#pragma once

#include "objimport/check/findings.h"
#include "objimport/text_output.h"

/// Writes the findings that were kept as one run of SARIF 2.1.0.
void WriteSarif(TextOutput& output, const Findings& findings);

/// Returns a path as the URI of an artifact: relative when the path is.
std::string ArtifactUri(std::string_view utf8Path);
