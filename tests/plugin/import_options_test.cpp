#include "plugin/import_options.h"

#include "host/app/profile.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const wchar_t* Section = L"Section";

/// A settings store that knows one section and keeps integers and booleans apart.
class TestProfile : public CKelvoProfileContext
{
public:
    std::map<std::wstring, int> integers;
    std::map<std::wstring, bool> booleans;
    std::vector<std::wstring> asked; ///< the entries read or written, in order

    bool ReadInt(const wchar_t* section, const wchar_t* entry, int& value) override
    {
        return Read(integers, section, entry, value);
    }

    bool ReadBool(const wchar_t* section, const wchar_t* entry, bool& value) override
    {
        return Read(booleans, section, entry, value);
    }

    void WriteInt(const wchar_t* section, const wchar_t* entry, int value) override
    {
        EXPECT_STREQ(section, Section);
        asked.emplace_back(entry);
        integers[entry] = value;
    }

    void WriteBool(const wchar_t* section, const wchar_t* entry, bool value) override
    {
        EXPECT_STREQ(section, Section);
        asked.emplace_back(entry);
        booleans[entry] = value;
    }

private:
    template <class T>
    bool Read(const std::map<std::wstring, T>& entries, const wchar_t* section,
              const wchar_t* entry, T& value)
    {
        asked.emplace_back(entry);
        const auto found = entries.find(entry);
        if (std::wstring(section) != Section || found == entries.end())
            return false;
        value = found->second;
        return true;
    }
};

ObjImportOptions Load(TestProfile& profile, ObjImportOptions options = {})
{
    LoadImportOptions(profile, Section, options);
    return options;
}

TEST(ImportOptions, AnEmptyProfileLeavesTheDefaults)
{
    TestProfile profile;
    const ObjImportOptions options = Load(profile);
    EXPECT_EQ(options.HowToAddGs, 1);
    EXPECT_TRUE(options.UseONames);
    EXPECT_FALSE(options.IgnoreTextures || options.ReverseGroupOrder ||
                 options.ImportAsMorphTarget || options.DontShowDialog || options.ZUp ||
                 options.Split32bitTextures);
}

TEST(ImportOptions, AGroupChoiceOutOfRangeIsIgnored)
{
    for (const int stored : {-2147483647 - 1, -1, 0, 1, 2, 3, 4, 7, 2147483647}) {
        TestProfile profile;
        profile.integers[L"HowToAddGs"] = stored;
        ObjImportOptions start;
        start.HowToAddGs = 2;
        EXPECT_EQ(Load(profile, start).HowToAddGs, stored >= 0 && stored <= 3 ? stored : 2)
            << stored;
    }
}

TEST(ImportOptions, EachEntryIsKeptUnderItsOwnName)
{
    const std::pair<const wchar_t*, bool ObjImportOptions::*> entries[] = {
        {L"UseONames", &ObjImportOptions::UseONames},
        {L"IgnoreTextures", &ObjImportOptions::IgnoreTextures},
        {L"ReverseGroupOrder", &ObjImportOptions::ReverseGroupOrder},
        {L"ImportAsMorphTarget", &ObjImportOptions::ImportAsMorphTarget},
        {L"DontShowDialog", &ObjImportOptions::DontShowDialog},
        {L"ZUp", &ObjImportOptions::ZUp},
        {L"Split32bitTextures", &ObjImportOptions::Split32bitTextures},
    };
    std::vector<std::wstring> order = {L"HowToAddGs"};
    for (const auto& entry : entries)
        order.emplace_back(entry.first);
    for (const auto& [name, option] : entries) {
        ObjImportOptions changed;
        changed.HowToAddGs = 3;
        changed.*option = !(changed.*option);
        TestProfile profile;
        SaveImportOptions(profile, Section, changed);
        EXPECT_EQ(profile.integers, (std::map<std::wstring, int>{{L"HowToAddGs", 3}}));
        ASSERT_EQ(profile.booleans.size(), std::size(entries));
        EXPECT_EQ(profile.booleans.at(name), changed.*option);
        EXPECT_EQ(std::exchange(profile.asked, {}), order);

        const ObjImportOptions loaded = Load(profile);
        EXPECT_EQ(profile.asked, order);
        EXPECT_EQ(loaded.HowToAddGs, 3);
        for (const auto& [otherName, other] : entries)
            EXPECT_EQ(loaded.*other, changed.*other)
                << std::string(otherName, otherName + std::wcslen(otherName));
    }
}

TEST(ImportOptions, AnImportTakesAllButTheDialogsSwitch)
{
    ObjImportOptions copied;
    CopyImportOptions(ObjImportOptions{2, false, true, true, true, true, true, true}, copied);
    EXPECT_EQ(copied.HowToAddGs, 2);
    EXPECT_FALSE(copied.UseONames || copied.DontShowDialog);
    EXPECT_TRUE(copied.IgnoreTextures && copied.ReverseGroupOrder && copied.ImportAsMorphTarget &&
                copied.ZUp && copied.Split32bitTextures);
}

} // namespace
