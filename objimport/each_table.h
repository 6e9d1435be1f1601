#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"
#include "objimport/input_file.h"
#include "objimport/page.h"

#include <string>
#include <vector>

/// The outcome of each file that was imported into a document of its own.
class EachTable
{
public:
    /// Adds a file that was imported. `isWritten`: all that was asked for was written.
    void AddImport(const ImportRecord& import, const ConsoleDoc& doc, bool isWritten);

    /// Adds a file that could not be read.
    void AddUnreadable(const InputFile& file);

    /// Writes one row for each file: its name, how it went, how many objects it added, and what was
    /// lost.
    void Write(const Page& page) const;

private:
    std::vector<std::vector<std::string>> m_rows;
};
