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

constexpr std::array<std::string_view, 34> MtlWords{
    "ke",      "ni",     "illum",  "sharpness", "map_ka",   "map_ks",  "map_ns",
    "map_ke",  "map_pr", "map_pm", "map_ps",    "map_rma",  "map_orm", "map_tr",
    "map_aat", "map_ni", "norm",   "disp",      "decal",    "refl",    "aniso",
    "anisor",  "pr",     "pm",     "ps",        "pc",       "pcr",     "map_kn",
    "ao",      "map_ao", "it",     "map_norm",  "map_disp", "map_refl"};

bool IsOneOf(std::string_view word, Words words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

const CheckText& TextFor(std::string_view keyword)
{
    if (IsOneOf(keyword, GeometryWords))
        return CheckTexts::GeometryNotRead;
    return SaysHowToShow(keyword) ? CheckTexts::AttributesNotRead : CheckTexts::UnknownNotRead;
}

const CheckText& TextForMtl(std::string_view keyword)
{
    if (keyword == "tr")
        return CheckTexts::TransparencyNotRead;
    return IsOneOf(keyword, MtlWords) ? CheckTexts::AttributesNotRead : CheckTexts::UnknownNotRead;
}

void ReportAll(CheckPlace place, const StatementCounts& ignored,
               const CheckText& (*textFor)(std::string_view))
{
    for (const auto& [keyword, lines] : ignored.ByKeyword()) {
        if (keyword.starts_with('#'))
            continue;
        place.line = lines.first;
        place.Report(textFor(keyword), keyword.empty() ? "..." : keyword, lines.count);
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

bool SaysHowToShow(std::string_view keyword)
{
    return IsOneOf(keyword, AttributeWords);
}

void ReportIgnoredStatements(CheckPlace place, const StatementCounts& ignored)
{
    ReportAll(place, ignored, TextFor);
}

void ReportIgnoredMtlStatements(CheckPlace place, const StatementCounts& ignored)
{
    ReportAll(place, ignored, TextForMtl);
}
