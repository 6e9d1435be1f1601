#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"
#include "objimport/input_file.h"

#include "host/app/plugin.h"

#include <vector>

/// Imports files, one after the other, into a document.
class ImportSession
{
public:
    /// Takes the plug-in and the document, which must outlive the session, and how files are read.
    ImportSession(CKelvoFileImportPlugIn& plugIn, ConsoleDoc& doc, CKelvoFileReadOptions options)
        : m_plugIn(plugIn), m_doc(doc), m_options(std::move(options))
    {
    }

    /// Imports a file that can be read; returns how that went, until the next import.
    const ImportRecord& Import(const InputFile& file);

    /// Has each further import look for what it ignores in its file.
    void LookForUnreadLines() { m_looksForUnreadLines = true; }

    [[nodiscard]] const std::vector<ImportRecord>& Imports() const { return m_imports; }
    [[nodiscard]] bool AllSucceeded() const;

private:
    bool ReadFile(const InputFile& file);

    CKelvoFileImportPlugIn& m_plugIn;
    ConsoleDoc& m_doc;
    CKelvoFileReadOptions m_options;
    bool m_looksForUnreadLines = false;
    std::vector<ImportRecord> m_imports;
};
