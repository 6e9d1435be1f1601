#include "materials/mtl_statements.h"

#include <gtest/gtest.h>

namespace {

TEST(MtlStatements, KeywordsInAllTheirForms)
{
    using enum MtlStatement;
    struct
    {
        const char* keyword;
        MtlStatement statement;
    } const cases[] = {
        {"ka", AmbientColor},
        {"Kdx", DiffuseColor},
        {"K", Ignored},
        {"tfoo", TransparentColor},
        {"T", Ignored},
        {"NSew", Shine},
        {"n", NewMaterial},
        {"NewMtl", NewMaterial},
        {"newmtls", Ignored},
        {"decal", Ignored},
        {"MAP_KD", DiffuseTexture},
        {"map_Kdx", Ignored},
        {"map_K", Ignored},
        {"m", Ignored},
        {"map_Ks", Ignored},
        {"map_N", Ignored},
        {"map_B", BumpTexture},
        {"b", SpacedBumpTexture},
        {"BUMP", SpacedBumpTexture},
        {"bumpy", Ignored},
    };
    for (const auto& each : cases)
        EXPECT_EQ(FindMtlStatement(each.keyword), each.statement) << each.keyword;
}

} // namespace
