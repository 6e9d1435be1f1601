#pragma once

#include <string_view>

/// What a line of a material library says.
enum class MtlStatement
{
    Ignored,
    NewMaterial,
    AmbientColor,
    DiffuseColor,
    SpecularColor,
    TransparentColor,
    Shine,
    Opacity,
    DiffuseTexture,
    TransparencyTexture,
    BumpTexture,      ///< "map_Bump", whose tokens form the file name with nothing between them
    SpacedBumpTexture ///< "bump", whose tokens form it with a space after each
};

/// The statement that a keyword stands for. Keywords count without regard to case; some count by
/// their first two characters, some may be shortened.
MtlStatement FindMtlStatement(std::string_view keyword);

/// `word` is the beginning of `name`, or all of it, without regard to case.
bool IsShortFor(std::string_view word, std::string_view name);
