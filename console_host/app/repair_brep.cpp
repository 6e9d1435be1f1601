#include "console_host/app/import_journal.h"
#include "console_host/geokit/brep_repair.h"

#include "host/app/objects.h"

bool KelvoRepairBrep(GK_Brep& brep, double tolerance)
{
    const int number = ++CurrentJournal().offered.breps;
    BrepRepairReport report;
    const bool sound = RepairBrep(brep, tolerance, report);
    for (const std::string& reason : report.dropped)
        NoteRefused("loop", reason, number);
    if (!sound)
        NoteRefused("brep", report.reason, number);
    return sound;
}
