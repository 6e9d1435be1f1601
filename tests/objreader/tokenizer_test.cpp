#include "objreader/obj_line_tokenizer.h"
#include "tests/objreader/reference_tokenizer.h"
#include "tests/temporary_folder.h"
#include "tests/work_of.h"

#include <gmock/gmock.h>
#include <random>
#include <unistd.h>

namespace {

using testing::ElementsAre;

using Lines = std::vector<std::vector<std::string>>;

constexpr std::size_t BlockSizes[] = {1, 2, 7, 64, CObjLineTokenizer::DefaultBlockSize};

std::vector<std::string> TokensOf(const CObjLineTokenizer& tokenizer)
{
    std::vector<std::string> tokens;
    for (int i = 0; i < tokenizer.TokenCount(); ++i)
        tokens.emplace_back(tokenizer.Token(i));
    return tokens;
}

class Tokenizer : public testing::Test
{
protected:
    std::FILE* Open(const char* mode) const { return std::fopen(m_path.string().c_str(), mode); }

    [[nodiscard]] Lines ReadFile(std::size_t blockSize) const
    {
        CObjLineTokenizer tokenizer(Open("rb"), blockSize);
        Lines lines;
        while (!tokenizer.AtEnd()) {
            EXPECT_TRUE(tokenizer.ReadLine());
            lines.push_back(TokensOf(tokenizer));
        }
        return lines;
    }

    /// Returns the same, of a text without backslashes, where the lines that can be skipped are.
    [[nodiscard]] Lines SkipThroughFile(std::size_t blockSize) const
    {
        CObjLineTokenizer tokenizer(Open("rb"), blockSize);
        Lines lines;
        while (!tokenizer.AtEnd()) {
            EXPECT_TRUE(tokenizer.FetchLine());
            const char* const line = tokenizer.Front() + tokenizer.Cursor();
            const std::string_view text(line, std::strcspn(line, "\r\n"));
            lines.push_back(ReferenceTokenizer::Cut(text).front());
            PlainText rest{line, tokenizer.NextRunOrEnd()};
            if (rest.SkipLine(line + text.size())) {
                tokenizer.SkipTo(static_cast<std::size_t>(rest.next - tokenizer.Front()));
                continue;
            }
            EXPECT_TRUE(tokenizer.ReadLine());
            lines.back() = TokensOf(tokenizer);
        }
        return lines;
    }

    /// Reads the text in blocks of all sizes, which must have the same result as the reference.
    void CompareWithReference(std::string_view text) const
    {
        // Some file systems write out at once what replaces a file.
        std::filesystem::remove(m_path);
        m_folder.Write(m_path, text);
        const Lines expected = ReferenceTokenizer::Cut(text);
        for (const std::size_t blockSize : BlockSizes) {
            SCOPED_TRACE("blocks of " + std::to_string(blockSize) + ", text " +
                         testing::PrintToString(text));
            ASSERT_EQ(ReadFile(blockSize), expected);
            if (text.find('\\') == std::string_view::npos) {
                ASSERT_EQ(SkipThroughFile(blockSize), expected);
            }
        }
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_path = m_folder / "text.obj";
};

/// Tokens separated by commas, logical lines by line ends.
std::string Shown(const Lines& lines)
{
    std::string shown;
    for (const std::vector<std::string>& line : lines) {
        for (const std::string& token : line)
            shown += token + ',';
        if (!line.empty())
            shown.pop_back();
        shown += '\n';
    }
    shown.pop_back();
    return shown;
}

TEST_F(Tokenizer, CutsLinesByTheRules)
{
    using std::string_literals::operator""s;
    const struct
    {
        const char* what;
        std::string text;
        const char* lines;
    } cases[] = {
        {"nothing", "", ""},
        {"spaces", "v 1.0  2.0 3.0 ", "v,1.0,2.0,3.0"},
        {"tabs", "vn\t0\t0\t\t1", "vn,0,0,1"},
        {"comment", "# v 1 2 3\nv", "\nv"},
        {"comment, not at the very beginning", "  # comment\nv 1 # note", "#,comment\nv,1,#,note"},
        {"comment with backslashes", "# C:\\x y\\\nv 1", "\nv,1"},
        {"continued", "f 1 2 \\\n3 4", "f,1,2,3,4"},
        {"continued right after a token", "f 1 2\\\n3", "f,1,2,3"},
        {"continued by a comment", "f 1 2 \\\n# x\nv", "f,1,2\nv"},
        {"continued by a comment that would continue", "f 1 \\\n# x \\\nv", "f,1\nv"},
        {"continued by an empty line", "f 1 \\\n\n2", "f,1\n2"},
        {"continued at the end of the file", "f 1 \\", "f,1"},
        {"continued three times", "f\\\n1 \\\r\n2 \\\r3", "f,1,2,3"},
        {"backslash before a blank in mid-line", "a\\ b\nc d\ne", "a,b,c,d\ne"},
        {"backslash before a byte that is no ASCII", "a\\\xE4 b\nc\nd", "a,b,c\nd"},
        {"the line end ends the token all the same", "a\\ b\ncd", "a,b,cd"},
        {"path", "mtllib C:\\My Files\\scene.mtl", "mtllib,C:\\My Files\\scene.mtl"},
        {"path mode begins with the backslash", "usemtl my mat\\x y", "usemtl,my,mat\\x y"},
        {"path mode keeps spaces, also the last", "usemtl a\\b  c \nx y", "usemtl,a\\b  c \nx,y"},
        {"tabs separate in path mode", "usemtl a\\b c\td", "usemtl,a\\b c,d"},
        {"path mode does not start tokens with a space", "a\\b\t c", "a\\b,c"},
        {"path mode lasts for the logical line", "m a\\b \\\nc d\ne f", "m,a\\b ,c d\ne,f"},
        {"two backslashes at the end", "a\\\\\nb c", "a\\,b c"},
        {"what follows a joining backslash in path mode is lost", "a\\b\\ c\td\ne", "a\\b,d,e"},
        {"line ends", "a\nb\r\nc\rd\r\r\ne\n\rf", "a\nb\nc\nd\n\ne\n\nf"},
        {"line ends at the end of the file", "a\r\n", "a\n"},
        {"CR at the end of the file", "a\r", "a\n"},
        {"zero byte", "a b\0c d"s, "a,b\nc,d"},
        {"zero byte at the end of the file", "a\0"s, "a\n"},
        {"0xFF and 0x7F only separate", "a\xFF\x62\x7F\x63 d\ne", "a,b,c,d\ne"},
        {"0x1A is no end of the file", "a\x1A\x62\nc", "a,b\nc"},
    };
    for (const auto& [what, text, lines] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(Shown(ReferenceTokenizer::Cut(text)), lines) << "the reference";
        CompareWithReference(text);
    }
}

TEST_F(Tokenizer, CutsRandomTextsAsTheReferenceDoes)
{
    using std::string_literals::operator""s;
    // Few line ends make lines long.
    const std::string alphabets[] = {"ab \t#\\\r\n\0\x7F\xFF"s, "a# \n\r", "abcdefgh  \\\n",
                                     "\r\na", "abcdefghijklmnopqrstuvwxyz 0123456789#\n"};
    std::mt19937 random(1);
    for (std::size_t i = 0; i < 2000 && !HasFatalFailure(); ++i) {
        const std::string& alphabet = alphabets[i % std::size(alphabets)];
        std::string text;
        for (auto left = random() % 300; left > 0; --left)
            text += alphabet[random() % alphabet.size()];
        CompareWithReference(text);
    }
}

TEST_F(Tokenizer, TakesEveryByteByTheRules)
{
    std::string text;
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        text += std::string("a") + byte + "b " + byte + " c\n";
        text += std::string("a\\") + byte + "b " + byte + " c\nd\ne\n";
    }
    CompareWithReference(text);
    std::erase(text, '\\');
    CompareWithReference(text);
}

TEST_F(Tokenizer, ReadsLinesAndTokensOfAnyLength)
{
    constexpr std::size_t Million = 1000000;
    const std::string longText(10 * Million, 'x');
    std::string manyTokens;
    for (std::size_t i = 0; i < Million; ++i)
        manyTokens += i % 10 == 9 ? "12 \\\n" : "12 ";
    m_folder.Write(m_path, longText + "\n#" + longText + "\n" + manyTokens + "\nC:\\" + longText);
    const Lines lines = ReadFile(CObjLineTokenizer::DefaultBlockSize);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_TRUE(lines[0] == std::vector{longText});
    EXPECT_TRUE(lines[1].empty());
    EXPECT_TRUE(lines[2] == std::vector<std::string>(Million, "12"));
    EXPECT_TRUE(lines[3] == std::vector{"C:\\" + longText});
}

/// What has been scanned is not scanned again with each block.
TEST_F(Tokenizer, ReadsALongLineInTimeThatGrowsWithItsLength)
{
    const auto workOf = [&](std::size_t length) {
        m_folder.Write(m_path, std::string(length, 'x'));
        return WorkOf([&] { EXPECT_EQ(ReadFile(16).size(), 1U); });
    };
    constexpr std::size_t Length = 250'000;
    EXPECT_LT(workOf(16 * Length), 4 * 16 * workOf(Length));
}

TEST_F(Tokenizer, KeepsTheLastLineAfterTheEnd)
{
    m_folder.Write(m_path, "a\nb c");
    CObjLineTokenizer tokenizer(m_path.wstring().c_str());
    EXPECT_TRUE(tokenizer.ReadLine());
    EXPECT_FALSE(tokenizer.AtEnd());
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(tokenizer.ReadLine());
        EXPECT_TRUE(tokenizer.AtEnd());
        EXPECT_THAT(TokensOf(tokenizer), ElementsAre("b", "c"));
    }
    EXPECT_EQ(tokenizer.Token(-1), nullptr);
    EXPECT_EQ(tokenizer.Token(2), nullptr);
    EXPECT_FALSE(tokenizer.ReadFailed());
}

TEST_F(Tokenizer, AStreamThatFailsEndsAndSaysSo)
{
    m_folder.Write(m_path, "a b");
    std::FILE* const stream = Open("rb");
    close(fileno(stream));
    CObjLineTokenizer tokenizer(stream);
    EXPECT_TRUE(tokenizer.ReadLine());
    EXPECT_TRUE(tokenizer.AtEnd());
    EXPECT_TRUE(tokenizer.ReadFailed());
}

TEST_F(Tokenizer, RawLinesAreTheFileWithLineFeeds)
{
    using namespace std::string_literals;
    const std::string text = "v 1\\\r\n\t2 # \xFF\r\r\r\n\0g a b\\ \nc\n\\\n\nlast\\"s;
    const std::string withLineFeeds = "v 1\\\n\t2 # \xFF\n\n\n\ng a b\\ \nc\n\\\n\nlast\\";
    m_folder.Write(m_path, text);
    for (const std::size_t blockSize : BlockSizes) {
        CObjLineTokenizer tokenizer(Open("rb"), blockSize);
        std::string raw;
        tokenizer.KeepRawLines(raw);
        std::string all;
        while (!tokenizer.AtEnd()) {
            tokenizer.ReadLine();
            all += raw;
        }
        EXPECT_EQ(all, withLineFeeds) << "blocks of " << blockSize;
    }
}

} // namespace
