#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"

#include "host/app/plugin.h"

#include <string>
#include <vector>

/// Imports files, one after the other, into a document.
class ImportSession
{
public:
    ImportSession(CKelvoFileImportPlugIn& plugIn, ConsoleDoc& doc, CKelvoFileReadOptions options)
        : m_plugIn(plugIn), m_doc(doc), m_options(std::move(options))
    {
    }

    /// Imports a file, given in UTF-8 as it was typed.
    void Import(const std::string& file);

    [[nodiscard]] const std::vector<ImportRecord>& Imports() const { return m_imports; }
    [[nodiscard]] bool AllSucceeded() const;

private:
    bool ReadFile(const std::string& file);

    CKelvoFileImportPlugIn& m_plugIn;
    ConsoleDoc& m_doc;
    CKelvoFileReadOptions m_options;
    std::vector<ImportRecord> m_imports;
};
