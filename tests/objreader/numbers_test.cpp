#include "objreader/numbers.h"
#include "tests/objreader/padded.h"

#include <algorithm>
#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sstream>

namespace {

/// Compares with the standard library, which the tests run in the "C" locale.
void CompareReal(const std::string& text)
{
    char* end = nullptr;
    const double expected = std::strtod(text.c_str(), &end);
    const bool isNumber = end != text.c_str();
    double value = 4711.0;
    ASSERT_EQ(ReadReal(Padded(text).c_str(), value), isNumber) << text;
    if (std::isnan(expected)) {
        ASSERT_TRUE(std::isnan(value)) << text;
    } else {
        ASSERT_EQ(value, isNumber ? expected : 4711.0) << text;
        ASSERT_EQ(std::signbit(value), isNumber && std::signbit(expected)) << text;
    }
}

void CompareInteger(const std::string& text)
{
    char* end = nullptr;
    const auto expected = static_cast<int>(
        std::clamp<long long>(std::strtoll(text.c_str(), &end, 10), std::numeric_limits<int>::min(),
                              std::numeric_limits<int>::max()));
    const bool isNumber = end != text.c_str();
    const std::string padded = Padded(text);
    int value = 4711;
    ASSERT_EQ(ReadInteger(padded.c_str(), value), isNumber) << text;
    ASSERT_EQ(value, isNumber ? expected : 4711) << text;
    const char* next = padded.c_str();
    ASSERT_EQ(TakeInteger(next), expected) << text;
    if (isNumber) {
        ASSERT_EQ(next - padded.c_str(), end - text.c_str()) << text;
    }
}

void CompareReals(const char* textsSeparatedByBlanks)
{
    std::istringstream texts(textsSeparatedByBlanks);
    for (std::string text; texts >> text;)
        CompareReal(text);
}

TEST(Numbers, RealsAreThoseOfTheStandardLibrary)
{
    CompareReal("");
    CompareReals("0 -0 +0 0.0 -0.0 1 +1 -1 1.5 -1.5 +.5 -.5 5. 007 + - . -. +-1 --1 abc e5 .e5 -e5 "
                 "# 1e5 1E5 1e+5 1e-5 1e 1e+ 1e- 1ex 1e5.5 1.e3 .5e3 2abc 1,5 1_000 1.2.3 1-2 "
                 "12/34 5; 0.1f 0.1 0.3");
    // As many digits as fit, and more.
    CompareReals("123456.789 1234567.8 123456.12345678 123456.123456789 99999999 999999999 "
                 "9007199254740991 9007199254740992 9007199254740993 "
                 "9007199254740993.0000000000000000000001 12345678901234567 1234567890123456789 "
                 "12345678901234567890 18446744073709551615 18446744073709551616 "
                 "0.12345678901234567890123 1.00000005960464477539062501 "
                 "1.00000005960464477539062500 1.000000059604644775390624");
    // At the ends of what a double holds.
    CompareReals("1e22 1e23 9e22 1e-22 1e-23 123e22 1e308 1e309 -1e309 1.7976931348623157e308 "
                 "1.7976931348623159e308 4.9e-324 2.4e-324 2.5e-324 2.2250738585072014e-308 "
                 "2.2250738585072011e-308 1e-400 -1e-400 1e99999999999 1e-99999999999 "
                 "0e99999999999 1e2147483648 1e-2147483649 1e4294967301");
    CompareReals("inf INF -inf +Inf infinity InFiNiTy infinit inx in i nan NAN -nan nan(123) nan( "
                 "na infnan");
    CompareReals("0x1F 0X1f -0x10 0x 0xg 0x. 0x.8 0x.8p-3 0x1.8p1 0x1p 0x1p+ 0x1P4 0x.p1 0x1e5 "
                 "0x1.fffffffffffff8p0 0x1.fffffffffffff7p0 0x1.00000000000008p0 "
                 "0x1.000000000000081p0 0x123456789abcdef01 0x1p1023 0x1p1024 0x1p-1074 0x1p-1075 "
                 "0x1.1p-1075 0x1p-1080 -0x1p99999999999 0x0p99999999999 00x1 x1 1x1");
}

TEST(Numbers, RealsMayHaveAnyNumberOfDigits)
{
    const std::string thousand(1000, '3');
    const std::string zeros(400, '0');
    const std::string texts[] = {thousand,
                                 "." + thousand,
                                 thousand + "." + thousand,
                                 thousand + "e-1000",
                                 "." + zeros + "1",
                                 "1" + zeros,
                                 "." + zeros + "1e400",
                                 "1" + zeros + "e-400",
                                 zeros + "1." + zeros,
                                 "0." + zeros + "e999",
                                 "0x" + zeros + "1p4",
                                 "0x." + zeros + "1p1600",
                                 "0x1" + zeros + "p-1600"};
    for (const std::string& text : texts)
        CompareReal(text);
}

std::string RandomOf(std::mt19937& random, std::string_view alphabet, unsigned int longest)
{
    std::string text;
    for (auto left = random() % (longest + 1); left > 0; --left)
        text += alphabet[random() % alphabet.size()];
    return text;
}

TEST(Numbers, RandomTextsAreReadAsTheStandardLibraryDoes)
{
    std::mt19937 random(2);
    for (int i = 0; i < 100000 && !testing::Test::HasFatalFailure(); ++i) {
        CompareReal(RandomOf(random, "0123456789.e-+", 24));
        CompareReal(RandomOf(random, "0019.exXpPaAfFiInNtTyY+-", 12));
        CompareReal(RandomOf(random, "0123456789", 22) + '.' + RandomOf(random, "0123456789", 22) +
                    'e' + RandomOf(random, "+-", 1) + RandomOf(random, "0123456789", 3));
        CompareInteger(RandomOf(random, "+- ", 1) + RandomOf(random, "0123456789", 12) +
                       RandomOf(random, "/.x9", 2));
    }
}

TEST(Numbers, RealsComeBackAsTheyWereWritten)
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 50000 && !testing::Test::HasFatalFailure(); ++i) {
        const std::uint64_t bits = random();
        const auto real = std::bit_cast<double>(bits);
        char text[64];
        for (const char* const format : {"%.17g", "%.7g", "%a", "%.16e"}) {
            std::snprintf(text, sizeof text, format, real);
            CompareReal(text);
        }
        std::snprintf(text, sizeof text, "%.6f",
                      static_cast<double>(bits % 2000000000) / 1e6 - 1e3);
        CompareReal(text);
    }
}

TEST(Numbers, IntegersAreKeptWithin32Bits)
{
    std::istringstream texts("0 -0 +7 12 -12 12345678 123456789 2147483647 2147483648 -2147483648 "
                             "-2147483649 4294967296 4294967297 99999999999 -99999999999 "
                             "99999999999999999999999999999999 000000000000000000000000012 + - x1 "
                             "1x 1.9 1e3 0x10 --5");
    for (std::string text; texts >> text;)
        CompareInteger(text);
    for (const char* const text : {"", " 5", "\t-5", "- 5"})
        CompareInteger(text);
}

TEST(Numbers, TheLocaleChangesNothing)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* const name : {"de_DE.UTF-8", "de_DE", "German_Germany.1252", "fr_FR.UTF-8"}) {
        std::setlocale(LC_ALL, name);
        double value = 0.0;
        EXPECT_TRUE(ReadReal(Padded("1.5").c_str(), value));
        EXPECT_EQ(value, 1.5);
        EXPECT_TRUE(ReadReal(Padded("1,5e0000000000000000000000").c_str(), value));
        EXPECT_EQ(value, 1.0);
    }
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace
