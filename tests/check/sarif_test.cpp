#include "objimport/sarif.h"
#include "tests/check/checked_text.h"
#include "tests/json_values.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>
#include <regex>
#include <set>

namespace {

std::string SarifOf(const Findings& findings)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::tmpfile(), &std::fclose);
    TextOutput output(stream.get());
    WriteSarif(output, findings);
    EXPECT_EQ(output.Finish(), "");
    std::string text(static_cast<std::size_t>(std::ftell(stream.get())), '\0');
    std::rewind(stream.get());
    EXPECT_EQ(std::fread(text.data(), 1, text.size(), stream.get()), text.size());
    return text;
}

/// Checks a text against the rules of the SARIF 2.1.0 schema, as far as they are about members that
/// are written.
void ExpectValidSarif(const std::string& json)
{
    EXPECT_EQ(JsonAt(json, "/version"), "2.1.0");
    EXPECT_THAT(JsonAt(json, "/$schema"), testing::HasSubstr("sarif-2.1.0"));
    ASSERT_EQ(JsonCount(json, "/runs"), 1U);
    EXPECT_NE(JsonAt(json, "/runs/0/tool/driver/name"), "");
    std::vector<std::string> rules;
    for (std::size_t i = 0; i < JsonCount(json, "/runs/0/tool/driver/rules"); ++i) {
        const std::string rule = "/runs/0/tool/driver/rules/" + std::to_string(i);
        rules.push_back(JsonAt(json, rule + "/id"));
        EXPECT_NE(JsonAt(json, rule + "/shortDescription/text"), "");
    }
    EXPECT_EQ(std::set(rules.begin(), rules.end()).size(), rules.size());
    for (std::size_t i = 0; i < JsonCount(json, "/runs/0/results"); ++i) {
        const std::string result = "/runs/0/results/" + std::to_string(i);
        EXPECT_NE(JsonAt(json, result + "/message/text"), "");
        EXPECT_EQ(rules.at(std::stoul(JsonAt(json, result + "/ruleIndex"))),
                  JsonAt(json, result + "/ruleId"));
        EXPECT_THAT(JsonAt(json, result + "/level"), testing::AnyOf("note", "warning", "error"));
        const std::string place = result + "/locations/0/physicalLocation";
        static const std::regex Uri("(file:///?)?([-A-Za-z0-9._~/:]|%[0-9A-F][0-9A-F])+");
        EXPECT_TRUE(std::regex_match(JsonAt(json, place + "/artifactLocation/uri"), Uri));
        if (JsonAt(json, place).find("region") != std::string::npos) {
            EXPECT_GE(std::stoi(JsonAt(json, place + "/region/startLine")), 1);
        }
    }
}

TEST(Sarif, SaysHowManyFindingsItLeavesOut)
{
    const TemporaryFolder folder;
    const auto path = folder.Write("a.obj", "f 1 2\nf 1 2\nf 1 2\nf 1 2\n");
    const std::string cut = SarifOf(CheckedFile(path, 3).findings);
    ExpectValidSarif(cut);
    EXPECT_EQ(JsonCount(cut, "/runs/0/results"), 4U);
    EXPECT_EQ(JsonAt(cut, "/runs/0/invocations/0/executionSuccessful"), "true");
    EXPECT_EQ(JsonAt(cut, "/runs/0/invocations/0/toolExecutionNotifications/0/message/text"),
              "findings left out: 1; --all writes them");
    EXPECT_EQ(SarifOf(CheckedFile(path, 4).findings).find("invocations"), std::string::npos);
}

TEST(Sarif, KeepsToTheSchema)
{
    const TemporaryFolder folder;
    const auto path =
        folder.Write("a b\xC3\xBC.obj", "f 1 2\nusemtl \"\x01\xFF\nmtllib x.mtl\nv 1\n");
    const CheckedFile checked(path);
    const std::string json = SarifOf(checked.findings);
    ExpectValidSarif(json);
    EXPECT_EQ(JsonCount(json, "/runs/0/results"), checked.findings.Kept().size());
    EXPECT_GE(checked.findings.Kept().size(), 5U);
    EXPECT_EQ(JsonCount(json, "/runs/0/tool/driver/rules"), CheckKindCount);
}

TEST(Sarif, IsWholeWithoutFindings)
{
    const std::string json = SarifOf(Findings(1));
    ExpectValidSarif(json);
    EXPECT_EQ(JsonCount(json, "/runs/0/results"), 0U);
}

TEST(Sarif, NamesFilesByUris)
{
    EXPECT_EQ(ArtifactUri("models/a b.obj"), "models/a%20b.obj");
    EXPECT_EQ(ArtifactUri("/tmp/\xC3\xBC#.obj"), "file:///tmp/%C3%BC%23.obj");
    EXPECT_EQ(ArtifactUri("C:\\models\\50%.obj"), "file:///C:/models/50%25.obj");
}

} // namespace
