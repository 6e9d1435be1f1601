#include "objimport/check/finding.h"

#include <array>
#include <charconv>

namespace {

struct Kind
{
    std::string_view name;
    LocalText description;
};

/// In the order of CheckKind.
constexpr std::array<Kind, CheckKindCount> Kinds{{
    {"no-text", {L"The file is not text", 41001}},
    {"read-error", {L"The file cannot be read to its end", 41002}},
    {"ends-parse", {L"A statement is so wrong that reading ends with it", 41003}},
    {"no-geometry", {L"The file holds nothing that is imported", 41004}},
    {"bad-index", {L"An index names nothing that was read before", 41005}},
    {"refused-face", {L"A face is refused", 41006}},
    {"flat-face", {L"A face has no area", 41007}},
    {"not-finite", {L"A number is not finite", 41008}},
    {"precision", {L"A coordinate changes by more than the tolerance", 41009}},
    {"not-read", {L"Statements are not read", 41010}},
    {"unknown-statement", {L"Statements are not known", 41011}},
    {"number-ignored", {L"A number cannot be read and is ignored", 41012}},
    {"partial-values", {L"Some vertices of a mesh lack what others have", 41013}},
    {"curve-refused", {L"A curve is refused", 41014}},
    {"surface-refused", {L"A surface is refused", 41015}},
    {"surface-unfinished", {L"A surface is not finished", 41016}},
    {"open-loop", {L"A trim loop does not close", 41017}},
    {"mesh-refused", {L"A mesh is refused", 41018}},
    {"point-refused", {L"A point is refused", 41019}},
    {"name-changed", {L"A name changes", 41020}},
    {"library-missing", {L"A material library is missing", 41021}},
    {"library-case", {L"A material library is written differently on disk", 41022}},
    {"library-ends", {L"A statement is so wrong that reading of the library ends", 41023}},
    {"material-undefined", {L"No library defines a material", 41024}},
    {"material-repeated", {L"A material is defined more than once", 41025}},
    {"texture-name", {L"The name of a texture changes", 41026}},
    {"texture-missing", {L"A texture is missing", 41027}},
    {"texture-case", {L"A texture is written differently on disk", 41028}},
}};

} // namespace

std::string_view NameOf(CheckKind kind)
{
    return Kinds[static_cast<std::size_t>(kind)].name;
}

LocalText DescriptionOf(CheckKind kind)
{
    return Kinds[static_cast<std::size_t>(kind)].description;
}

std::string ShownNumber(double value)
{
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end.ptr};
}

std::string ShownName(std::string_view text)
{
    constexpr std::size_t Most = 120;
    constexpr std::size_t Part = 50;
    std::string shown(text);
    if (shown.size() > Most)
        shown = shown.substr(0, Part) + "..." + shown.substr(shown.size() - Part);
    return shown;
}
