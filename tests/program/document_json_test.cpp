#include "console_host/program/document_json.h"
#include "tests/program/sample_document.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

Json SampleJson()
{
    ConsoleDoc doc(0.001);
    FillSampleDocument(doc);
    const ImportRecord imports[] = {SampleImport()};
    return Json::parse(
        Written([&](TextOutput& output) { WriteDocumentJson(output, imports, doc); }));
}

TEST(DocumentJson, HoldsImportsAndTables)
{
    const Json json = SampleJson();
    EXPECT_EQ(json["imports"], Json::parse(R"([
        {"file": "scäne.obj", "result": true, "zoomed": false, "redrawn": true,
         "prints": ["a \"line\"\n"],
         "boxes": [{"text": "text", "caption": "caption", "flags": 48}],
         "kernel_errors": [{"source": "mesh", "text": "Bogus.\n"},
                           {"source": "mesh", "text": "Bogus.\n"}],
         "refused": [{"type": "curve", "reason": "the curve has no knots"}]}])"));
    ASSERT_EQ(json["layers"].size(), 2U);
    EXPECT_EQ(json["layers"][0]["name"], "Default");
    EXPECT_EQ(json["layers"][1]["id"].get<std::string>().size(), 36U);
    EXPECT_TRUE(json["layers"][1]["parent"].is_null());
    EXPECT_EQ(json["groups"], Json::parse(R"([{"name": "wall"}, {"name": "north"}])"));
    EXPECT_EQ(json["materials"], Json::parse(R"([
        {"name": "brick", "ambient": [0, 0, 0], "diffuse": [255, 128, 0],
         "specular": [255, 255, 255], "transparent": [255, 255, 255], "shine": 0.5,
         "transparency": 0.25,
         "textures": [{"type": "bitmap", "file": "C:\\models\\wood.png", "on": true,
                       "blend": 1.0}]}])"));
}

std::string MemberNames(const Json& object)
{
    std::string names;
    for (const auto& member : object.items())
        names += member.key() + " ";
    return names;
}

TEST(DocumentJson, HoldsMeshesExactly)
{
    const Json mesh = SampleJson()["objects"][0];
    EXPECT_EQ(MemberNames(mesh), "type name layer groups material material_source vertices normals "
                                 "texture_coordinates colors faces ngons closed ");
    EXPECT_EQ(mesh["type"], "mesh");
    EXPECT_EQ(mesh["name"], "h\xC3\xA4use\x1B\n");
    EXPECT_EQ(mesh["groups"], Json::parse("[0, 1]"));
    EXPECT_EQ(mesh["layer"], 1);
    EXPECT_EQ(mesh["material"], 0);
    EXPECT_EQ(mesh["material_source"], "object");
    EXPECT_EQ(mesh["vertices"][3][1].get<double>(), 1.0 / 3);
    EXPECT_EQ(mesh["vertices"][2][2].get<double>(), 1e22);
    EXPECT_TRUE(std::signbit(mesh["vertices"][0][2].get<double>()));
    EXPECT_EQ(mesh["normals"][3][0].get<double>(), static_cast<double>(0.1F));
    EXPECT_EQ(mesh["texture_coordinates"][3][0].get<double>(), static_cast<double>(0.3F));
    EXPECT_EQ(mesh["colors"][3], Json::parse("[1, 2, 3]"));
    EXPECT_EQ(mesh["faces"], Json::parse("[[0, 1, 2, 2], [0, 2, 3, 3]]"));
    EXPECT_EQ(mesh["ngons"], Json::parse(R"([{"vertices": [0, 1, 2, 3], "faces": [0, 1]}])"));
    EXPECT_EQ(mesh["closed"], false);
}

TEST(DocumentJson, HoldsTheOtherKinds)
{
    const Json objects = SampleJson()["objects"];
    const char* const attributes = R"("name": null, "layer": 0, "groups": [], "material": -1,
                                      "material_source": "layer",)";
    const auto expected = [&](const char* type, const char* members) {
        return Json::parse(std::string(R"({"type": ")") + type + "\"," + attributes + members +
                           "}");
    };
    EXPECT_EQ(objects[1], expected("curve", R"("dimension": 3, "order": 3, "rational": true,
        "points": [[0, 2, 3], [1, 2, 3], [2, 2, 3]], "weights": [1, 0.5, 1],
        "knots": [0, 0, 1, 1])"));
    EXPECT_EQ(objects[2], expected("point", R"("point": [1, 2.5, -3])"));
    EXPECT_EQ(objects[3], expected("point_cloud", R"("points": [[1, 2, 3], [4, 5, 6]])"));

    const Json& brep = objects[4];
    EXPECT_EQ(MemberNames(brep), "type name layer groups material material_source surfaces "
                                 "curves_2d curves_3d vertices edges faces ");
    EXPECT_EQ(brep["surfaces"], Json::parse(R"([{"order": [2, 2], "counts": [2, 2],
        "rational": false, "points": [[0, 0, 0], [10, 0, 0], [0, 5, 0], [10, 5, 0]],
        "weights": [], "knots": [[0, 1], [0, 2]]}])"));
    EXPECT_EQ(brep["curves_2d"].size(), 4U);
    EXPECT_EQ(brep["curves_2d"][0], Json::parse(R"({"dimension": 2, "order": 2, "rational": false,
        "points": [[0, 0], [1, 0]], "weights": [], "knots": [0, 1]})"));
    EXPECT_EQ(brep["curves_3d"].size(), 4U);
    EXPECT_EQ(brep["vertices"], Json::parse("[[0, 0, 0], [10, 0, 0], [10, 5, 0], [0, 5, 0]]"));
    EXPECT_EQ(brep["edges"].size(), 4U);
    EXPECT_EQ(brep["edges"][1],
              Json::parse(R"({"curve_3d": 1, "vertices": [1, 2], "domain": [0, 2]})"));
    ASSERT_EQ(brep["faces"].size(), 1U);
    const Json& loop = brep["faces"][0]["loops"][0];
    EXPECT_EQ(MemberNames(brep["faces"][0]) + MemberNames(loop), "surface loops type trims ");
    EXPECT_EQ(loop["type"], "outer");
    EXPECT_EQ(loop["trims"][1], Json::parse(R"({"curve_2d": 1, "edge": 1, "reversed": false,
        "domain": [0, 2], "vertices": [1, 2]})"));
    ASSERT_EQ(loop["trims"].size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(loop["trims"][i]["vertices"][1], loop["trims"][(i + 1) % 4]["vertices"][0]);
        EXPECT_TRUE(loop["trims"][i]["reversed"].is_boolean());
    }
}

TEST(TextOutput, WritesNumbersThatReadBackExactly)
{
    for (const double number : {0.0, -0.0, 0.1, -1.0 / 3, 1e300, 5e-324, 123456789012345678.0,
                                18446744073709551616.0, static_cast<double>(16777217)}) {
        const std::string text = Written([&](TextOutput& output) { output.Write(number); });
        const auto read = Json::parse(text).get<double>();
        EXPECT_EQ(read, number) << text;
        EXPECT_EQ(std::signbit(read), std::signbit(number)) << text;
    }
    for (const double number : {std::nan(""), std::numeric_limits<double>::infinity()})
        EXPECT_EQ(Written([&](TextOutput& output) { output.Write(number); }), "null");
}

} // namespace
