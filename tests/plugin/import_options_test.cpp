#include "console_host/app/profile_store.h"
#include "plugin/import_options.h"

#include <gtest/gtest.h>

namespace {

TEST(ImportOptions, AGroupChoiceOutOfRangeIsIgnored)
{
    for (const int stored : {-2147483647 - 1, -1, 0, 1, 2, 3, 4, 7, 2147483647}) {
        ProfileStore profile;
        profile.WriteInt(L"Section", L"HowToAddGs", stored);
        ObjImportOptions options;
        options.HowToAddGs = 2;
        LoadImportOptions(profile, L"Section", options);
        EXPECT_EQ(options.HowToAddGs, stored >= 0 && stored <= 3 ? stored : 2) << stored;
    }
}

} // namespace
