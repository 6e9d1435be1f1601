#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What a finding is about. The order is that of the summary.
enum class CheckKind : int
{
    NoText,
    ReadError,
    EndsParse,
    NoGeometry,
    BadIndex,
    RefusedFace,
    FlatFace,
    NotFinite,
    Precision,
    NotRead,
    UnknownStatement,
    NumberIgnored,
    PartialValues,
    CurveRefused,
    SurfaceRefused,
    SurfaceUnfinished,
    OpenLoop,
    MeshRefused,
    PointRefused,
    NameChanged,
    LibraryMissing,
    LibraryCase,
    LibraryEnds,
    MaterialUndefined,
    MaterialRepeated,
    TextureName,
    TextureMissing,
    TextureCase
};

inline constexpr std::size_t CheckKindCount = static_cast<std::size_t>(CheckKind::TextureCase) + 1;

/// How bad a finding is.
enum class CheckLevel
{
    Note,    ///< nothing of the file is lost
    Warning, ///< something is lost or changed
    Error    ///< much of the file is lost
};

/// A text for a person, with the id of its translations. Each "%s" stands for an argument, in
/// order.
struct LocalText
{
    const wchar_t* text;
    int id;
};

/// One row of the table of what can be found.
struct CheckText
{
    CheckKind kind;
    CheckLevel level;
    LocalText text;
};

/// What stands for a "%s": a text in UTF-8, or a count, whose digits are grouped as the user's
/// language does.
using PhraseArgument = std::variant<std::string, std::size_t>;

/// A text with its arguments.
struct Phrase
{
    LocalText text{};
    std::vector<PhraseArgument> arguments;
};

/// Something that an import loses or changes.
struct Finding
{
    CheckKind kind;
    CheckLevel level;
    int file;         ///< into the list of files
    std::size_t line; ///< from 1; 0: the file as a whole
    Phrase what;
    Phrase why; ///< the first argument of `what`, unless its text is null
};

/// Returns a kind's name, as it stands in brackets after each finding.
std::string_view NameOf(CheckKind kind);

/// Returns what a kind is about.
LocalText DescriptionOf(CheckKind kind);

/// Returns a number in as many digits as it takes to read the same number back.
std::string ShownNumber(double value);

/// Returns a text as it stands between quotation marks, shortened when it is long.
std::string ShownName(std::string_view text);
