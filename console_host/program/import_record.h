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
