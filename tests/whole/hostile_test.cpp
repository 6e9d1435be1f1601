// Files that no one should write: cut off, huge, absurd, or no files at all. None may crash or
// hang, none may leave the wait cursor on (Session::Import checks that), and what is sound is kept.

#include "tests/temporary_folder.h"
#include "tests/whole/session.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>

namespace {

namespace fs = std::filesystem;

const GK_Mesh* MeshAt(const Session& session, int index)
{
    if (index >= session.Doc().ObjectCount())
        return nullptr;
    const AnyGeometry geometry = session.Doc().Object(index).geometry;
    const auto* mesh = std::get_if<const GK_Mesh*>(&geometry);
    return mesh != nullptr ? *mesh : nullptr;
}

std::string Repeated(std::string_view text, int count)
{
    std::string repeated;
    repeated.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

TEST(Hostile, EveryPrefixOfEveryExample)
{
    const TemporaryFolder folder;
    for (const std::string& path : FilesIn(PROJECT_FOLDER "/examples", ".obj")) {
        SCOPED_TRACE(path);
        const fs::path file = folder.Write("prefix.obj", ReadBytes(path));
        for (auto size = fs::file_size(file); size-- > 0;) {
            fs::resize_file(file, size);
            Session session;
            session.Import(Utf8(file));
        }
    }
}

TEST(Hostile, AllLineEndsGiveTheSame)
{
    constexpr std::string_view Lines = "v 0 0 0\nv 1 0 0\nv 0 1 \\\n0\n# note\n\ng a\nf 1 2 3";
    Session usual;
    usual.ImportBytes(Lines);
    ASSERT_EQ(usual.Doc().ObjectCount(), 1);
    using namespace std::string_view_literals;
    for (const std::string_view end : {"\r\n"sv, "\r"sv, "\0"sv, "\n\r\n"sv}) {
        std::string bytes;
        for (const char byte : Lines)
            bytes += byte == '\n' ? std::string(end) : std::string(1, byte);
        if (end == "\n\r\n") // an empty line would end the continuation
            bytes.erase(bytes.find("\\\n") + 2, 2);
        Session session;
        session.ImportBytes(bytes);
        EXPECT_EQ(session.ReportText(), usual.ReportText()) << testing::PrintToString(end);
    }
}

TEST(Hostile, NoFileToRead)
{
    const TemporaryFolder own;
    const auto folder = Utf8(own.Path());
    const auto unreadable = Utf8(own.Write("unreadable.obj", "v 0 0 0\n"));
    fs::permissions(unreadable, fs::perms::none);
    for (const std::string& path : {folder, folder + "/no such file.obj", std::string(),
                                    folder + "/no such folder/file.obj", unreadable}) {
        SCOPED_TRACE(path);
        Session session;
        const bool readable = std::ifstream(path).get() != EOF;
        EXPECT_TRUE(session.Import(path)); // the outcome of building nothing
        EXPECT_EQ(session.Prints().empty(), readable);
        EXPECT_EQ(session.Doc().ObjectCount(), 0);
    }
}

TEST(Hostile, BytesThatAreNoText)
{
    std::mt19937 random(1); // the same bytes in every run
    for (int round = 0; round < 50; ++round) {
        std::string bytes(20000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        // Now and then a keyword, so that statements are met.
        for (std::size_t i = 0; i + 4 < bytes.size(); i += 97)
            bytes.replace(i, 3, round % 2 == 0 ? "\nf " : "\nv ");
        Session session;
        session.ImportBytes(bytes);
    }
}

constexpr const char* Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
constexpr int TenMillion = 10'000'000;

TEST(Hostile, LinesOfTenMillionBytes)
{
    struct LongLine
    {
        const char* begin;
        const char* filler;
        const char* end;
    };
    constexpr LongLine LongLines[] = {
        {"#", "x", ""},       {"", "x", ""},
        {"", " ", "s 1"},     {"", "\\", "x"},
        {"", "\\ ", "\n"}, // the empty line ends the continuation
        {"", "x \\\n", ""},   {"vt 0.5", "0", " 1e999999"},
        {"vt 1e", "9", " 1"}, {"vn 0 0 1 ", "9", ""},
        {"f 1 2 -", "9", ""},
    };
    for (const LongLine& line : LongLines) {
        SCOPED_TRACE(line.begin + std::string(line.filler));
        std::string bytes = line.begin;
        bytes += Repeated(line.filler, TenMillion / static_cast<int>(std::strlen(line.filler)));
        bytes.append(line.end).append("\n").append(Triangle);
        Session session;
        EXPECT_TRUE(session.ImportBytes(bytes));
        const GK_Mesh* mesh = MeshAt(session, 0);
        ASSERT_NE(mesh, nullptr);
        EXPECT_EQ(mesh->FaceCount(), 1);
    }
}

TEST(Hostile, NameOfTenMillionBytes)
{
    Session session;
    std::string bytes = "o ";
    bytes.append(TenMillion, 'x').append("\n").append(Triangle);
    EXPECT_TRUE(session.ImportBytes(bytes));
    ASSERT_EQ(session.Doc().ObjectCount(), 1);
    EXPECT_EQ(session.Doc().Object(0).attributes->name.Length(), TenMillion);
}

TEST(Hostile, AMillionTokensOnALine)
{
    constexpr int Million = 1'000'000;
    std::string bytes = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\np";
    Session cloud;
    EXPECT_TRUE(cloud.ImportBytes(bytes.append(Repeated(" 1", Million))));
    EXPECT_EQ(cloud.Doc().ObjectCount(), 1);

    bytes = "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf";
    Session polygon;
    polygon.ImportBytes(bytes.append(Repeated(" 1 2 3 4", Million / 4)));
    EXPECT_LE(polygon.Doc().ObjectCount(), 1);

    bytes = "v";
    Session vertex;
    EXPECT_TRUE(vertex.ImportBytes(bytes.append(Repeated(" 1", Million)).append("\np 1")));
    EXPECT_EQ(vertex.Doc().ObjectCount(), 1);

    std::string names = "g";
    for (int i = 0; i < Million / 4; ++i)
        names.append(" ").append(std::to_string(i));
    Session groups;
    EXPECT_TRUE(groups.ImportBytes(names.append("\n").append(Triangle)));
    EXPECT_EQ(groups.Doc().Groups().Count(), Million / 4);
}

TEST(Hostile, ManyRecords)
{
    std::string bytes = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
    constexpr int Count = 100'000;
    for (int i = 0; i < Count; ++i) {
        bytes.append("g ").append(std::to_string(i * 7919LL % Count)).append("\n");
        if (i % 10 == 0)
            bytes += "f 1 2 3\n";
    }
    for (const char* switches : {"--groups groups", "--groups layers"}) {
        Session session;
        session.SetOptions(switches);
        EXPECT_TRUE(session.ImportBytes(bytes));
        EXPECT_EQ(session.Doc().ObjectCount(), Count / 10);
    }
}

TEST(Hostile, PolygonOfAHundredThousandCorners)
{
    constexpr int Count = 100'000;
    std::string bytes;
    std::string face = "f";
    for (int i = 0; i < Count; ++i) { // a comb: teeth forth, a straight line back
        const bool tooth = i < Count / 2;
        bytes.append("v ").append(std::to_string(tooth ? i : Count - 1 - i));
        bytes.append(!tooth ? " 0 0\n" : i % 2 == 0 ? " 1 0\n" : " 10 0\n");
        face.append(" ").append(std::to_string(i + 1));
    }
    Session session;
    EXPECT_TRUE(session.ImportBytes(bytes + face));
    const GK_Mesh* mesh = MeshAt(session, 0);
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ(mesh->FaceCount(), Count - 2);
    EXPECT_EQ(mesh->NgonList()->Count(), 1);
}

std::string Lines(std::string_view line, int count)
{
    std::string lines;
    for (int i = 0; i < count; ++i)
        lines.append(line).append(std::to_string(i)).append("\np 1 1\n");
    return lines;
}

TEST(Hostile, ObjectsShareTheirNamesAndGroups)
{
    std::string bytes = "v 0 0 0\no " + std::string(1'000'000, 'x') + "\ng";
    for (int i = 0; i < 12'000; ++i)
        bytes.append(" ").append(std::to_string(i));
    Session session;
    EXPECT_TRUE(session.ImportBytes(bytes.append("\n").append(Lines("usemtl ", 12'000))));
    ASSERT_EQ(session.Doc().ObjectCount(), 12'000);
    const GK_MdxObjectAttributes& first = *session.Doc().Object(0).attributes;
    EXPECT_EQ(first.Groups().size(), 12'000U);
    EXPECT_EQ(first.name.Length(), 1'000'000);
    for (int i = 0; i < session.Doc().ObjectCount(); ++i) {
        const GK_MdxObjectAttributes& attributes = *session.Doc().Object(i).attributes;
        ASSERT_EQ(&attributes.Groups(), &first.Groups()) << i;
        ASSERT_EQ(attributes.name.Array(), first.name.Array()) << i;
    }
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
/// Returns a field of the process's status, in bytes.
double Status(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (double kibibytes = 0.0; word == field && status >> kibibytes)
            return kibibytes * 1024.0;
    throw std::runtime_error("there is no " + field);
}

/// Returns how much more memory than at the start of the call the import of a file takes, in bytes,
/// beside a library of many materials. The process must be a new one: memory that was freed before
/// counts.
double GrowthOfImport(const std::string& bytes)
{
    const TemporaryFolder folder;
    folder.Write("many.mtl", Lines("newmtl ", 1'600));
    const auto path = Utf8(folder.Write("scene.obj", bytes));
    const double before = Status("VmRSS:");
    Session session;
    EXPECT_TRUE(session.Import(path));
    return Status("VmHWM:") - before;
}

[[noreturn]] void ImportWithin(double most, const std::string& bytes)
{
    const double growth = GrowthOfImport(bytes);
    std::fprintf(stderr, "%.0f bytes, at most %.0f\n", growth, most);
    std::exit(!testing::Test::HasFailure() && growth < most ? 0 : 1);
}

TEST(Hostile, MemoryIsInProportionToTheFile)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // each in a process of its own
    constexpr const char* Corners = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0 2\ndeg 1 1\n";
    const std::string surfaces = Repeated("surf 0 1 0 1 1 2 3 4\nparm u 0 1\nparm v 0 2\n", 10'000);
    std::string names = "v 0 0 0\ng";
    for (int i = 0; i < 12'000; ++i)
        names.append(" ").append(std::to_string(i));
    struct
    {
        const char* what;
        std::string bytes;
        double most; ///< bytes
    } const cases[] = {
        {"small clouds", "v 0 0 0\n" + Repeated("p 1 1\n", 200'000), 64.0 * 1'200'000},
        {"small surfaces", std::string(Corners) + "cstype bezier\n" + surfaces, 64.0 * 430'000},
        {"small rational surfaces", std::string(Corners) + "cstype rat bezier\n" + surfaces,
         64.0 * 430'000},
        {"empty trims",
         std::string(Corners) + "cstype bezier\nsurf 0 1 0 1 1 2 3 4\nparm u 0 1\nparm v 0 2\n" +
             Repeated("trim\n", 200'000),
         64.0 * 1'000'000},
        {"knots given again and again",
         std::string(Corners) + "cstype bezier\ndeg 2999 2999\nsurf 0 1 0 1" +
             Repeated(" 1", 3'000) + "\n" + Repeated("parm u 0 1\n", 5'000) + "g b\np 1 1\n",
         10e6},
        {"groups of all objects", names.append("\n").append(Lines("usemtl ", 12'000)), 100e6},
        {"a library that is named often", Repeated("mtllib many.mtl\n", 1'600), 150e6},
    };
    for (const auto& each : cases)
        EXPECT_EXIT(ImportWithin(each.most, each.bytes), testing::ExitedWithCode(0), "")
            << each.what;
}
#endif

} // namespace
