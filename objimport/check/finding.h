#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
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

/// A text with its arguments, in UTF-8.
struct Phrase
{
    LocalText text{};
    std::vector<std::string> arguments;
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

/// Return a value as it stands in a text: digits in groups of three; a number as it reads back.
std::string ShownCount(std::size_t count);
std::string ShownNumber(double value);

/// Returns a text as it stands between quotation marks, shortened when it is long.
std::string ShownName(std::string_view text);
