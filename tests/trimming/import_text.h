#pragma once

#include "console_host/app/document.h"
#include "console_host/app/import_journal.h"

#include "host/geokit/brep.h"

#include <string>
#include <vector>

/// The document that a file's text is imported into, with a tolerance, and what was refused.
class ImportedText
{
public:
    ImportedText(const std::string& text, double tolerance);

    [[nodiscard]] std::vector<const GK_Brep*> Breps() const;

    /// Refusals of a type: "brep" or "loop".
    [[nodiscard]] int Refusals(const std::string& type) const;

    /// Returns "type: reason" of each refusal, one a line.
    [[nodiscard]] std::string Refused() const;

    [[nodiscard]] bool Parsed() const { return m_parsed; }
    [[nodiscard]] const ConsoleDoc& Doc() const { return m_doc; }

private:
    ConsoleDoc m_doc;
    ImportJournal m_journal;
    bool m_parsed = false;
};
