#pragma once

#include "objreader/obj_reading.h"
#include "objreader/thread_use.h"

/// Reads to the end of the file, or to the first statement so wrong that reading ends with it; then
/// the result is false. False also when there is no file, or when it cannot be read to its end.
/// What was read before is kept.
bool ParseStatements(ObjReading& reading);

/// The same, to the same result, with all threads of a team. Events come on the calling thread.
bool ParseStatements(ObjReading& reading, const ThreadUse& threads);
