#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"

#include <string>
#include <vector>

/// The module, loaded as a host loads it, and a new document that files are imported into.
class Session
{
public:
    Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session();

    /// Takes the import options from switches as objimport knows them, such as "--groups layers",
    /// and "--zoom". Throws std::invalid_argument when there is no such switch. Returns what is not
    /// a switch: the files.
    std::vector<std::string> SetOptions(const std::string& switches);

    /// Imports a file into the document and returns the result. Throws std::logic_error when the
    /// import left the wait cursor on or the host noted that it broke a rule.
    bool Import(const std::string& path);

    /// Imports a file with these bytes.
    bool ImportBytes(std::string_view bytes);

    [[nodiscard]] const ConsoleDoc& Doc() const { return m_doc; }

    /// Returns all lines that the imports printed.
    [[nodiscard]] std::vector<std::string> Prints() const;

    /// Returns the document as text; see Report.
    [[nodiscard]] std::string ReportText() const;

private:
    ConsoleDoc m_doc;
    std::vector<ImportRecord> m_records;
    bool m_zoom = false;
};

/// Returns the files of a folder with this extension, by name.
[[nodiscard]] std::vector<std::string> FilesIn(const std::string& folder,
                                               const std::string& extension);
