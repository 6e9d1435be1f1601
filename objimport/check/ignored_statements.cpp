#include "objimport/check/ignored_statements.h"

#include "objimport/check/check_texts.h"
#include "objreader/keyword.h"

#include <algorithm>
#include <array>

namespace {

using Words = std::span<const std::string_view>;

/// Statements of the format that hold geometry, or shape it.
constexpr std::array<std::string_view, 15> GeometryWords{
    "bsp", "bzp", "call", "cdc", "cdp",  "con",  "csh",       "l",
    "lod", "res", "scrv", "sp",  "bmat", "step", "shadow_obj"};

/// Statements of the format that say how geometry is shown.
constexpr std::array<std::string_view, 12> AttributeWords{
    "s",     "mg",        "bevel",  "c_interp", "d_interp", "ctech",
    "stech", "trace_obj", "maplib", "usemap",   "sl",       "gs"};

/// Statements of libraries that name textures, beside those that begin with "map_".
constexpr std::array<std::string_view, 5> TextureWords{"norm", "disp", "decal", "refl", "ao"};

/// Statements of libraries that say how light meets a material.
constexpr std::array<std::string_view, 12> PropertyWords{
    "ke", "ni", "illum", "sharpness", "aniso", "anisor", "pr", "pm", "ps", "pc", "pcr", "it"};

/// Returns whether a word in small letters is one of some.
bool IsOneOf(std::string_view word, Words words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

const CheckText& TextFor(std::string_view keyword)
{
    if (IsOneOf(keyword, GeometryWords))
        return CheckTexts::GeometryNotRead;
    return IsOneOf(keyword, AttributeWords) ? CheckTexts::AttributesNotRead
                                            : CheckTexts::UnknownNotRead;
}

const CheckText& TextForMtl(std::string_view keyword)
{
    if (keyword == "tr")
        return CheckTexts::TransparencyNotRead;
    if (keyword.starts_with("map_") || IsOneOf(keyword, TextureWords))
        return CheckTexts::TexturesNotRead;
    return IsOneOf(keyword, PropertyWords) ? CheckTexts::PropertiesNotRead
                                           : CheckTexts::UnknownNotRead;
}

void ReportAll(CheckPlace place, const StatementCounts& ignored,
               const CheckText& (*textFor)(std::string_view))
{
    for (const auto& [keyword, lines] : ignored.ByKeyword()) {
        if (keyword.starts_with('#'))
            continue;
        place.line = lines.first;
        place.Report(textFor(keyword), keyword.empty() ? "..." : lines.spelling, lines.count);
    }
}

} // namespace

bool IsLossOfContent(const CObjLineTokenizer& tokenizer)
{
    const char* const keyword = tokenizer.Token(0);
    if (keyword[0] == '#' || IsKeyword(keyword, "end"))
        return false;
    const char* const state = tokenizer.Token(1);
    const bool isOff = state == nullptr || IsKeyword(state, "off") || IsKeyword(state, "0");
    return !IsKeyword(keyword, "s") || !isOff;
}

bool SaysHowToShow(const std::string& keyword)
{
    return std::any_of(AttributeWords.begin(), AttributeWords.end(),
                       [&](std::string_view word) { return IsKeyword(keyword.c_str(), word); });
}

void ReportIgnoredStatements(CheckPlace place, const StatementCounts& ignored)
{
    ReportAll(place, ignored, TextFor);
}

void ReportIgnoredMtlStatements(CheckPlace place, const StatementCounts& ignored)
{
    ReportAll(place, ignored, TextForMtl);
}
