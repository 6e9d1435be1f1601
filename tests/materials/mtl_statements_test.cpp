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
        {"Ka", AmbientColor},
        {"ka", AmbientColor},
        {"KD", DiffuseColor},
        {"Kdx", DiffuseColor},
        {"Ks", SpecularColor},
        {"K", Ignored},
        {"Ke", Ignored},
        {"Tf", TransparentColor},
        {"tfoo", TransparentColor},
        {"Tr", Ignored},
        {"T", Ignored},
        {"Ns", Shine},
        {"NSew", Shine},
        {"Ni", Ignored},
        {"n", NewMaterial},
        {"new", NewMaterial},
        {"NewMtl", NewMaterial},
        {"newmtls", Ignored},
        {"d", Opacity},
        {"D", Opacity},
        {"decal", Ignored},
        {"disp", Ignored},
        {"map_Kd", DiffuseTexture},
        {"MAP_KD", DiffuseTexture},
        {"map_Kdx", Ignored},
        {"map_K", Ignored},
        {"m", Ignored},
        {"map_Ka", Ignored},
        {"map_Ks", Ignored},
        {"map_Ns", Ignored},
        {"map_N", Ignored},
        {"map_d", TransparencyTexture},
        {"map_B", BumpTexture},
        {"map_bump", BumpTexture},
        {"b", SpacedBumpTexture},
        {"BUMP", SpacedBumpTexture},
        {"bumpy", Ignored},
        {"illum", Ignored},
        {"#", Ignored},
    };
    for (const auto& each : cases)
        EXPECT_EQ(FindMtlStatement(each.keyword), each.statement) << each.keyword;
}

} // namespace
