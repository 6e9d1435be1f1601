#include "console_host/app/printable.h"
#include "objimport/document_json.h"
#include "objimport/json_stream.h"
#include "tests/objimport/sample_document.h"
#include "tests/temporary_folder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

TEST(DocumentJson, HoldsTheWholeDocument)
{
    ConsoleDoc doc(0.001);
    FillSampleDocument(doc);
    const ImportRecord imports[] = {SampleImport()};
    const Json json =
        Json::parse(Written([&](TextOutput& output) { WriteDocumentJson(output, imports, doc); }));
    Json expected = Json::parse(ReadBytes(PROJECT_FOLDER "/tests/objimport/sample_document.json"));
#ifdef _WIN32
    expected["materials"][0]["textures"][0]["path"] = "C:\\models\\wood.png";
#endif
    EXPECT_EQ(json.dump(1), expected.dump(1));
}

TEST(DocumentJson, NamesTheImportOfEachObject)
{
    ConsoleDoc doc(0.001);
    ImportRecord imports[4];
    for (int i = 0; i < 4; ++i) { // of which the second adds nothing
        imports[i].firstObject = doc.ObjectCount();
        for (int object = 0; object < (i == 1 ? 0 : 2); ++object)
            doc.AddPointObject({}, {}, nullptr, false);
    }
    const Json json =
        Json::parse(Written([&](TextOutput& output) { WriteDocumentJson(output, imports, doc); }));
    std::vector<int> from;
    for (const Json& object : json["objects"])
        from.push_back(object["import"].get<int>());
    EXPECT_EQ(from, (std::vector<int>{0, 0, 2, 2, 3, 3}));
}

TEST(JsonText, ReadsBackTheSameAndSteersNoTerminal)
{
    const struct
    {
        std::string text;
        std::string read;
    } cases[] = {
        {"a \"b\" \\ / \b\f\n\r\t", "a \"b\" \\ / \b\f\n\r\t"},
        {std::string("\0\x1B\x7F", 3), std::string("\0\x1B\x7F", 3)},
        {"\xC2\x9B\xE2\x80\xAE \xE6\x9C\xA8 \xF0\x9F\x8F\xA0",
         "\xC2\x9B\xE2\x80\xAE \xE6\x9C\xA8 \xF0\x9F\x8F\xA0"},
        {"\xFF\xE6\x9C.", "\xEF\xBF\xBD\xEF\xBF\xBD."},
    };
    for (const auto& one : cases) {
        const std::string written =
            Written([&](TextOutput& output) { WriteJsonText(output, one.text); });
        EXPECT_EQ(Json::parse(written).get<std::string>(), one.read) << written;
        EXPECT_EQ(Printable(written), written);
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
