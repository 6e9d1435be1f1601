#include "tests/geometry/document_test.h"

#include <gtest/gtest.h>
#include <new>

namespace {

using Texts = std::vector<std::string>;

const std::string Positions = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";

class ObjectsOfADocument : public DocumentTest
{
protected:
    /// Builds what can be read of the text; returns the result.
    bool Import(const std::string& text, const ImportChoices& choices)
    {
        ReadText read(text, choices);
        return Build(read);
    }

    /// Returns "name [groups] layer" of the object.
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
        constexpr const char* Names[] = {"mesh", "curve", "point", "cloud", "brep"};
        Texts kinds;
        for (int i = 0; i < doc->ObjectCount(); ++i)
            kinds.emplace_back(Names[doc->Object(i).geometry.index()]);
        return kinds;
    }
};

TEST_F(ObjectsOfADocument, NamesGroupsAndLayersFollowTheOptions)
{
    const struct
    {
        const char* names;
        ImportChoices choices;
        const char* attributes;
    } cases[] = {
        {"g a b\no c\n", {.HowToAddGs = 0, .UseONames = false}, " [] Default"},
        {"g a b\no c\n", {.HowToAddGs = 1}, "c [a,b] Default"},
        {"g a b\no c\n", {.HowToAddGs = 1, .ReverseGroupOrder = true}, "c [a,b] Default"},
        {"g b a b\n", {.HowToAddGs = 1, .UseONames = false}, " [b,a] Default"},
        {"g a Default\n", {.HowToAddGs = 2}, " [] Default"},
        {"g default\n", {.HowToAddGs = 2}, " [] default"},
        {"g a b\no c\n",
         {.HowToAddGs = 3, .UseONames = false, .ReverseGroupOrder = true},
         "b [] Default"},
        {"g a b\no b\n", {.HowToAddGs = 3, .ReverseGroupOrder = true}, "a [] Default"},
        {"g a b\no B\n", {.HowToAddGs = 3, .ReverseGroupOrder = true}, "b [] Default"},
        {"g a b\no c\n", {.HowToAddGs = 4}, " [] Default"},
        {"g a b\no c\n", {.HowToAddGs = -1}, " [] Default"},
    };
    for (const auto& [names, choices, attributes] : cases) {
        EXPECT_TRUE(Import(Positions + names + "f 1 2 3", choices));
        ASSERT_EQ(doc->ObjectCount(), 1);
        EXPECT_EQ(ShownAttributes(0), attributes) << names << " as " << choices.HowToAddGs;
    }
}

TEST_F(ObjectsOfADocument, TheResultIsThatOfTheLastObjectAttempted)
{
    const std::string good = "f 1 2 3\n";
    const std::string flat = "f 1 1 1\n";
    const std::string refused = "v inf 0 0\nf 1 2 -1\n";
    const struct
    {
        const char* what;
        std::string statements;
        Texts kinds;
        bool result;
    } cases[] = {
        {"a mesh without area, then none that is attempted",
         "g a\n" + flat + "g b\nf 1 2\n",
         {},
         false},
        {"without area, then points", flat + "p 1\n", {"point"}, false},
        {"without area, then a cloud", flat + "p 1 2\n", {"cloud"}, true},
        {"a point refused", "v inf 0 0\np 4\n", {}, true},
        {"a cloud refused", "v inf 0 0\np 4 4\n", {}, false},
        {"a cloud of nothing", good + "p 9 9\n", {"mesh"}, false},
        {"a mesh refused", refused, {}, false},
        {"the second of two refused", "g a\n" + good + "g b\n" + refused, {"mesh"}, false},
        {"the first of two refused", "g a\n" + refused + "g b\n" + good, {"mesh"}, true},
        {"faces of nothing", "f 7 8 9\n", {}, false},
    };
    for (const auto& [what, statements, kinds, result] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(Import(Positions + statements, {}), result);
        EXPECT_EQ(Kinds(), kinds);
    }
}

// The order of a record's objects does not depend on the order of the file.
TEST_F(ObjectsOfADocument, KindsOfARecordKeepTheirOrder)
{
    const Texts statements = {"p 1\n", "p 1 2\n", "f 1 2 3\n",
                              "cstype bezier\ndeg 1\ncurv 0 1 1 2\nparm u 0 1\n",
                              "cstype bezier\ndeg 1 1\nsurf 0 1 0 1 1 2 3 1\nparm u 0 1\n"
                              "parm v 0 1\n"};
    for (std::vector<int> order : {std::vector{0, 1, 2, 3, 4}, {4, 3, 2, 1, 0}, {0, 3, 1, 4, 2}}) {
        std::string text = Positions;
        for (const int i : order)
            text += statements[static_cast<std::size_t>(i)];
        EXPECT_TRUE(Import(text, {}));
        EXPECT_EQ(Kinds(), (Texts{"mesh", "curve", "point", "cloud", "brep"}));
    }
}

} // namespace
