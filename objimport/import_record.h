#pragma once

#include "console_host/app/import_journal.h"

#include <string>

/// How the import of one file went.
struct ImportRecord
{
    std::string file; ///< as it was typed
    bool result = false;
    ImportJournal journal;
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
