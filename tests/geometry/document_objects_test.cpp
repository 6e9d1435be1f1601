#include "tests/objreader/reader_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

using Texts = std::vector<std::string>;

const std::string Positions = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";

class DocumentObjects : public ReaderTest
{
protected:
    struct Options
    {
        int howToAddGs = 1;
        bool useONames = true;
        bool reverseGroupOrder = false;
        bool zUp = false;
    };

    /// Parses the text, whatever comes of it, and builds; gives the result of that.
    bool Import(const std::string& text, const Options& options)
    {
        CReadOBJ& reader = Open(text);
        reader.HowToAddGs = options.howToAddGs;
        reader.UseONames = options.useONames;
        reader.ReverseGroupOrder = options.reverseGroupOrder;
        reader.ZUp = options.zUp;
        reader.Parse();
        return reader.Build();
    }

    bool Import(const std::string& text) { return Import(text, {}); }

    /// "name [groups] layer" of the object.
    [[nodiscard]] std::string ShownAttributes(int object) const
    {
        const GK_MdxObjectAttributes& attributes = *doc->Object(object).attributes;
        std::string shown = attributes.name.Utf8() + " [";
        for (const int group : attributes.Groups())
            shown += (shown.back() == '[' ? "" : ",") + doc->Groups()[group].name.Utf8();
        return shown + "] " + doc->Layers()[attributes.layerIndex].name.Utf8();
    }

    [[nodiscard]] Texts Kinds() const
    {
        constexpr const char* Names[] = {"none", "mesh", "curve", "point", "cloud", "brep"};
        Texts kinds;
        for (int i = 0; i < doc->ObjectCount(); ++i)
            kinds.emplace_back(Names[doc->Object(i).geometry.index()]);
        return kinds;
    }

    [[nodiscard]] Texts LayerNames() const
    {
        Texts names;
        for (const GK_Layer& layer : doc->Layers())
            names.push_back(layer.name.Utf8());
        return names;
    }

    [[nodiscard]] Texts GroupNames() const
    {
        Texts names;
        for (const GK_Group& group : doc->Groups())
            names.push_back(group.name.Utf8());
        return names;
    }
};

TEST_F(DocumentObjects, NamesGroupsAndLayersFollowTheOptions)
{
    const struct
    {
        const char* names;
        Options options;
        const char* attributes;
    } cases[] = {
        {"g a b\no c\n", {.howToAddGs = 0}, "c [] Default"},
        {"g a b\no c\n", {.howToAddGs = 0, .useONames = false}, " [] Default"},
        {"g a b\n", {.howToAddGs = 0}, " [] Default"},
        {"g a b\no c\n", {.howToAddGs = 1}, "c [a,b] Default"},
        {"g a b\no c\n", {.howToAddGs = 1, .reverseGroupOrder = true}, "c [a,b] Default"},
        {"g b a b\n", {.howToAddGs = 1, .useONames = false}, " [b,a] Default"},
        {"g\no c\n", {.howToAddGs = 1}, "c [] Default"},
        {"", {.howToAddGs = 1}, " [] Default"},
        {"g a b\no c\n", {.howToAddGs = 2}, "c [] b"},
        {"g a Default\n", {.howToAddGs = 2}, " [] Default"},
        {"g default\n", {.howToAddGs = 2}, " [] default"},
        {"o c\n", {.howToAddGs = 2}, "c [] Default"},
        {"g a b\no c\n", {.howToAddGs = 3}, "a [] Default"},
        {"g a b\no c\n",
         {.howToAddGs = 3, .useONames = false, .reverseGroupOrder = true},
         "b [] Default"},
        {"g a b\no a\n", {.howToAddGs = 3}, "a [] Default"},
        {"g a b\no b\n", {.howToAddGs = 3, .reverseGroupOrder = true}, "a [] Default"},
        {"g a b\no B\n", {.howToAddGs = 3, .reverseGroupOrder = true}, "b [] Default"},
        {"o c\n", {.howToAddGs = 3}, " [] Default"},
        {"g a b\no c\n", {.howToAddGs = 4}, " [] Default"},
        {"g a b\no c\n", {.howToAddGs = -1}, " [] Default"},
    };
    for (const auto& [names, options, attributes] : cases) {
        doc = std::make_unique<ConsoleDoc>(0.001);
        EXPECT_TRUE(Import(Positions + names + "f 1 2 3", options));
        ASSERT_EQ(doc->ObjectCount(), 1);
        EXPECT_EQ(ShownAttributes(0), attributes) << names << " as " << options.howToAddGs;
    }
}

TEST_F(DocumentObjects, GroupsAndLayersAreMadeOnceAndUsedAgain)
{
    const std::string scene = Positions + "g b a\nf 1 2 3\ng c\ng a\nusemtl m\nf 1 2 3\n";
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(Import(scene, {.howToAddGs = 1}));
        EXPECT_THAT(GroupNames(), ElementsAre("a", "b", "c")) << "in the order of the records";
        EXPECT_THAT(LayerNames(), ElementsAre("Default"));
    }
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(Import(scene, {.howToAddGs = 2}));
        EXPECT_THAT(LayerNames(), ElementsAre("Default", "a", "b", "c"));
        for (const GK_Layer& layer : doc->Layers())
            EXPECT_EQ(layer.parentId, GK_nil_uuid);
    }
    EXPECT_EQ(GroupNames().size(), 3U);
    Texts attributes;
    for (int i = 0; i < doc->ObjectCount(); ++i)
        attributes.push_back(ShownAttributes(i));
    EXPECT_THAT(attributes, ElementsAre(" [a] Default", " [b,a] Default", " [a] Default",
                                        " [b,a] Default", " [] a", " [] a", " [] a", " [] a"));
}

TEST_F(DocumentObjects, TheMaterialIsThatOfItsName)
{
    for (const wchar_t* const name : {L"blue", L"red"}) {
        GK_Material material;
        material.SetName(name);
        doc->MaterialTable().AddMaterial(material, false);
    }
    EXPECT_TRUE(
        Import(Positions + "f 1 2 3\nusemtl red\nf 1 2 3\nusemtl Red\nf 1 2 3\np 1\np 1 2"));
    std::vector<std::pair<int, int>> materials;
    for (int i = 0; i < doc->ObjectCount(); ++i) {
        const GK_MdxObjectAttributes& attributes = *doc->Object(i).attributes;
        materials.emplace_back(attributes.materialIndex, attributes.MaterialSource());
    }
    const std::pair none(-1, 0);
    EXPECT_THAT(materials, ElementsAre(none, none, none, none, std::pair(1, 1)));
}

TEST_F(DocumentObjects, ComeInTheOrderOfTheirRecordsAndKinds)
{
    EXPECT_TRUE(Import(Positions + "g b\np 1\np 1 2\nf 1 2 3\np 2\np 3 2\ng a\nf 1 2 3\np 3\n"));
    EXPECT_THAT(Kinds(), ElementsAre("mesh", "point", "mesh", "point", "point", "cloud", "cloud"));
    EXPECT_EQ(std::get<const GK_3dPoint*>(doc->Object(1).geometry)->y, 1.0);
    EXPECT_EQ(std::get<const GK_PointCloud*>(doc->Object(6).geometry)->points.Count(), 2);
}

TEST_F(DocumentObjects, ZUpTurnsMeshesOnly)
{
    const std::string scene = "v 1 2 3\nv 1 5 3\nv 1 2 7\nf 1 2 3\np 1\np 1 1\n";
    EXPECT_TRUE(Import(scene, {.zUp = true}));
    ASSERT_EQ(doc->ObjectCount(), 3);
    const GK_Mesh& mesh = *std::get<const GK_Mesh*>(doc->Object(0).geometry);
    EXPECT_EQ(mesh.DoublePrecisionVertices()[0], (GK_3dPoint{1, -3, 2}));
    EXPECT_EQ(mesh.vertices[2], GK_3fPoint(1, -7, 2));
    EXPECT_THAT(ListOf(mesh.normals), testing::Each(GK_3fVector{1, 0, 0}));
    EXPECT_EQ(*std::get<const GK_3dPoint*>(doc->Object(1).geometry), (GK_3dPoint{1, 2, 3}));
    EXPECT_EQ(std::get<const GK_PointCloud*>(doc->Object(2).geometry)->points[0],
              (GK_3dPoint{1, 2, 3}));

    // What a zero normal becomes is turned like the others.
    EXPECT_TRUE(Import(Positions + "vn 0 0 0\nvn 0 0 2\nf 1//1 2//2 3//2\n", {.zUp = true}));
    EXPECT_THAT(ListOf(std::get<const GK_Mesh*>(doc->Object(3).geometry)->normals),
                testing::Each(GK_3fVector{0, -1, 0}));
}

TEST_F(DocumentObjects, TheResultIsThatOfTheLastObjectAttempted)
{
    const std::string good = "f 1 2 3\n";
    const std::string flat = "f 1 1 1\n";
    const struct
    {
        const char* what;
        std::string statements;
        Texts kinds;
        bool result;
        int failingAdd = 0;
    } cases[] = {
        {"nothing", "", {}, true},
        {"a mesh", good, {"mesh"}, true},
        {"a mesh without area", flat, {}, false},
        {"then a good one", "g a\n" + flat + "g b\n" + good, {"mesh"}, true},
        {"a good one, then one without area", "g a\n" + good + "g b\n" + flat, {"mesh"}, false},
        {"then none that is attempted", "g a\n" + flat + "g b\nf 1 2\n", {}, false},
        {"then points", flat + "p 1\n", {"point"}, false},
        {"then a cloud", flat + "p 1 2\n", {"cloud"}, true},
        {"a point refused", "v inf 0 0\np 4\n", {}, true},
        {"a cloud refused", "v inf 0 0\np 4 4\n", {}, false},
        {"a cloud of nothing", good + "p 9 9\n", {"mesh"}, false},
        {"a mesh refused", "v inf 0 0\nf 1 2 4\n", {}, false},
        {"a mesh that is not taken", good, {}, false, 1},
        {"the second of two", "g a\n" + good + "g b\n" + good, {"mesh"}, false, 2},
        {"the first of two", "g a\n" + good + "g b\n" + good, {"mesh"}, true, 1},
        {"faces of nothing", "f 7 8 9\n", {}, false},
    };
    for (const auto& [what, statements, kinds, result, failingAdd] : cases) {
        SCOPED_TRACE(what);
        doc = std::make_unique<ConsoleDoc>(0.001);
        doc->FailAddObject(failingAdd);
        EXPECT_EQ(Import(Positions + statements), result);
        EXPECT_EQ(Kinds(), kinds);
    }
}

} // namespace
