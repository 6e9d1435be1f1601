#pragma once

#include "console_host/app/import_journal.h"
#include "objimport/check/unread_lines.h"

#include <string>

/// How the import of one file went.
struct ImportRecord
{
    std::string file; ///< as it was typed
    bool result = false;
    ImportJournal journal{};
    int firstObject = 0;  ///< of those that it added to the document
    int objectCount = 0;  ///< how many it added
    UnreadLines unread{}; ///< what the import ignored, when it was asked for
};

/// Returns "imported", "out of memory" (something may be missing, whatever the result), "cancelled"
/// or "failed".
inline const char* OutcomeOf(const ImportRecord& import)
{
    if (import.journal.outOfMemory)
        return "out of memory";
    if (import.result)
        return "imported";
    return import.journal.cancelled ? "cancelled" : "failed";
}
