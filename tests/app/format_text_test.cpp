#include "console_host/app/format_text.h"

#include "host/geokit/string.h"

#include <cstdarg>
#include <gtest/gtest.h>
#include <limits>

namespace {

/// Returns the formatted text as UTF-8, which the test program can show.
std::string Format(const wchar_t* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = FormatText(format, arguments);
    va_end(arguments);
    return GK_wString(text).Utf8();
}

TEST(FormatText, TakesTextOfBothWidths)
{
    const char* const unended = "abcdef";
    EXPECT_EQ(Format(L"%s|%S", L"wide \u00E4", "8-bit \xC3\xA4"), "wide \xC3\xA4|8-bit \xC3\xA4");
    EXPECT_EQ(Format(L"%S", "bad \xFF byte"), "bad \xEF\xBF\xBD byte");
    EXPECT_EQ(Format(L"%hs %ls %hS %lS", "a", L"b", "c", L"d"), "a b c d");
    EXPECT_EQ(Format(L"[%5s][%-5S][%.2s][%.*S]", L"ab", "cd", L"efg", 3, unended),
              "[   ab][cd   ][ef][abc]");
    EXPECT_EQ(Format(L"[%*s][%*s]", 4, L"x", -4, L"y"), "[   x][y   ]");
    EXPECT_EQ(Format(L"%c%c%C", L'a', L'\u00E4', 'b'), "a\xC3\xA4"
                                                       "b");
    EXPECT_EQ(
        Format(L"%s %S", static_cast<const wchar_t*>(nullptr), static_cast<const char*>(nullptr)),
        "(null) (null)");
}

TEST(FormatText, TakesNumbers)
{
    constexpr int Lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(Format(L"%d %i %u", Lowest, 7, 4000000000U), "-2147483648 7 4000000000");
    EXPECT_EQ(Format(L"[%5d][%-5d][%05d][%+d][% d]", 42, 42, 42, 42, 42),
              "[   42][42   ][00042][+42][ 42]");
    EXPECT_EQ(Format(L"%x %X %#o %.4d", 255U, 255U, 8U, 7), "ff FF 010 0007");
    EXPECT_EQ(Format(L"%lld %I64u %hd %hhu", -5000000000LL, 10000000000ULL, 70000, 257),
              "-5000000000 10000000000 4464 1");
    EXPECT_EQ(Format(L"%f %.2f %e %g %G", 0.5, 2.675, 1500.0, 0.0001, 1e30),
              "0.500000 2.67 1.500000e+03 0.0001 1E+30");
    EXPECT_EQ(Format(L"%.1f%%", 99.5), "99.5%");
}

TEST(FormatText, CopiesTheRestFromAnInvalidPlaceholder)
{
    EXPECT_EQ(Format(L"50%"), "50%");
    EXPECT_EQ(Format(L"%d %q %d", 1, 2, 3), "1 %q %d");
    EXPECT_EQ(Format(L"%n%s", nullptr), "%n%s");
    EXPECT_EQ(Format(L"%5% %lls", L"x"), "%5% %lls");
    EXPECT_EQ(Format(nullptr), "");
    EXPECT_EQ(Format(L"%99999999999d", 1).size(), 10000U);
    EXPECT_EQ(Format(L"%*d", std::numeric_limits<int>::min(), 1).size(), 10000U);
}

TEST(Placeholders, AreWhatTheFormatTakes)
{
    using List = std::vector<std::wstring>;
    EXPECT_EQ(Placeholders(L"no 100%% placeholder"), List{});
    EXPECT_EQ(Placeholders(L"%5.1f of %-*lld, %S"), (List{L"f", L"*lld", L"S"}));
    EXPECT_EQ(Placeholders(L"%s and 50% quiet %d"), (List{L"s", L"?"}));
}

} // namespace
