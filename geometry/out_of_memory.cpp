#include "geometry/out_of_memory.h"

#include "host/app/app.h"
#include "host/app/localize.h"

#include <new>

void PrintOutOfMemory(const wchar_t* format, int id, const wchar_t* name) noexcept
try {
    KelvoApp().Print(KvLocalizeString(format, id), name);
} catch (const std::bad_alloc&) {
    // There is no memory even to say so.
    return;
}
