#include "console_host/app/import_journal.h"
#include "console_host/geokit/brep_repair.h"

#include "host/app/objects.h"

bool KelvoRepairBrep(GK_Brep& brep, double tolerance)
{
    BrepRepairReport report;
    const bool sound = RepairBrep(brep, tolerance, report);
    for (const std::string& reason : report.dropped)
        NoteRefused("loop", reason);
    if (!sound)
        NoteRefused("brep", report.reason);
    return sound;
}
