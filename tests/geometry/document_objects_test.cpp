#include "tests/objreader/reader_test.h"

#include <gtest/gtest.h>
#include <new>

namespace {

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
    };

    /// Parses the text, whatever comes of it, and builds; gives the result of that.
    bool Import(const std::string& text, const Options& options)
    {
        CReadOBJ& reader = Open(text);
        reader.HowToAddGs = options.howToAddGs;
        reader.UseONames = options.useONames;
        reader.ReverseGroupOrder = options.reverseGroupOrder;
        reader.Parse();
        return reader.Build();
    }

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
};

TEST_F(DocumentObjects, NamesGroupsAndLayersFollowTheOptions)
{
    const struct
    {
        const char* names;
        Options options;
        const char* attributes;
    } cases[] = {
        {"g a b\no c\n", {.howToAddGs = 0, .useONames = false}, " [] Default"},
        {"g a b\no c\n", {.howToAddGs = 1}, "c [a,b] Default"},
        {"g a b\no c\n", {.howToAddGs = 1, .reverseGroupOrder = true}, "c [a,b] Default"},
        {"g b a b\n", {.howToAddGs = 1, .useONames = false}, " [b,a] Default"},
        {"g a Default\n", {.howToAddGs = 2}, " [] Default"},
        {"g default\n", {.howToAddGs = 2}, " [] default"},
        {"g a b\no c\n",
         {.howToAddGs = 3, .useONames = false, .reverseGroupOrder = true},
         "b [] Default"},
        {"g a b\no b\n", {.howToAddGs = 3, .reverseGroupOrder = true}, "a [] Default"},
        {"g a b\no B\n", {.howToAddGs = 3, .reverseGroupOrder = true}, "b [] Default"},
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
        {"a mesh without area, then none that is attempted",
         "g a\n" + flat + "g b\nf 1 2\n",
         {},
         false},
        {"without area, then points", flat + "p 1\n", {"point"}, false},
        {"without area, then a cloud", flat + "p 1 2\n", {"cloud"}, true},
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
        EXPECT_EQ(Import(Positions + statements, {}), result);
        EXPECT_EQ(Kinds(), kinds);
    }
}

// The order of a record's objects does not depend on the order of the file.
TEST_F(DocumentObjects, KindsOfARecordKeepTheirOrder)
{
    const Texts statements = {"p 1\n", "p 1 2\n", "f 1 2 3\n",
                              "cstype bezier\ndeg 1\ncurv 0 1 1 2\nparm u 0 1\n",
                              "cstype bezier\ndeg 1 1\nsurf 0 1 0 1 1 2 3 1\nparm u 0 1\n"
                              "parm v 0 1\n"};
    for (std::vector<int> order : {std::vector{0, 1, 2, 3, 4}, {4, 3, 2, 1, 0}, {0, 3, 1, 4, 2}}) {
        doc = std::make_unique<ConsoleDoc>(0.001);
        std::string text = Positions;
        for (const int i : order)
            text += statements[static_cast<std::size_t>(i)];
        EXPECT_TRUE(Import(text, {}));
        EXPECT_EQ(Kinds(), (Texts{"mesh", "curve", "point", "cloud", "brep"}));
    }
}

} // namespace
