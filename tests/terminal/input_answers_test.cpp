#include "console_host/app/answer_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace {

using testing::ElementsAre;

using Stream = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

Stream StreamOf(const std::string& contents)
{
    Stream stream(std::tmpfile(), &std::fclose);
    std::fwrite(contents.data(), 1, contents.size(), stream.get());
    std::rewind(stream.get());
    return stream;
}

std::string ContentsOf(std::FILE* stream)
{
    std::rewind(stream);
    std::string contents;
    for (int byte = std::fgetc(stream); byte != EOF; byte = std::fgetc(stream))
        contents += static_cast<char>(byte);
    return contents;
}

std::vector<std::wstring> AnswersIn(const std::string& input, std::string& shown)
{
    const Stream in = StreamOf(input);
    const Stream out = StreamOf("");
    InputAnswers answers(in.get(), out.get(), false);
    std::vector<std::wstring> lines;
    while (const auto line = answers.Answer(L"what? ", true))
        lines.push_back(*line);
    shown = ContentsOf(out.get());
    return lines;
}

TEST(InputAnswers, ReturnsTheLinesOfTheInput)
{
    const std::string longest(4096, 'x');
    const std::string zero("a\0b", 3);
    std::string shown;
    EXPECT_THAT(AnswersIn("", shown), ElementsAre());
    EXPECT_THAT(AnswersIn("\n", shown), ElementsAre(L""));
    EXPECT_THAT(AnswersIn("a b\n\nc", shown), ElementsAre(L"a b", L"", L"c"));
    EXPECT_THAT(AnswersIn(zero + "\n", shown), ElementsAre(std::wstring(L"a\0b", 3)));
    EXPECT_THAT(AnswersIn("\xC3\x9C\xFF\n", shown), ElementsAre(L"\u00DC\uFFFD"));
    EXPECT_THAT(AnswersIn(longest, shown), ElementsAre(std::wstring(4096, L'x')));
    EXPECT_EQ(shown, "");
}

TEST(InputAnswers, RefusesALineThatIsTooLong)
{
    const std::string tooLong(1'000'000, 'x');
    std::string shown;
    EXPECT_THAT(AnswersIn("a\n" + tooLong + "\nb\n" + tooLong, shown), ElementsAre(L"a", L"b"));
    const std::string note = "That line is too long and is ignored.\n";
    EXPECT_EQ(shown, note + note);
}

} // namespace
