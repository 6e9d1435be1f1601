#include "materials/mtl_statements.h"

#include "objreader/keyword.h"

#include <algorithm>
#include <array>

namespace {

/// How a keyword in a file is compared with a name.
enum class Match
{
    Whole,
    FirstTwo, ///< whatever follows the first two characters
    Shortened ///< down to one character
};

struct Row
{
    std::string_view name;
    Match match;
    MtlStatement statement;
};

/// The first row that matches decides, so the order counts where shortened names begin alike.
constexpr std::array Rows{
    Row{"ka", Match::FirstTwo, MtlStatement::AmbientColor},
    Row{"kd", Match::FirstTwo, MtlStatement::DiffuseColor},
    Row{"ks", Match::FirstTwo, MtlStatement::SpecularColor},
    Row{"tf", Match::FirstTwo, MtlStatement::TransparentColor},
    Row{"ns", Match::FirstTwo, MtlStatement::Shine},
    Row{"newmtl", Match::Shortened, MtlStatement::NewMaterial},
    Row{"d", Match::Whole, MtlStatement::Opacity},
    Row{"map_ka", Match::Shortened, MtlStatement::Ignored},
    Row{"map_kd", Match::Shortened, MtlStatement::DiffuseTexture},
    Row{"map_ks", Match::Shortened, MtlStatement::Ignored},
    Row{"map_ns", Match::Shortened, MtlStatement::Ignored},
    Row{"map_d", Match::Shortened, MtlStatement::TransparencyTexture},
    Row{"map_bump", Match::Shortened, MtlStatement::BumpTexture},
    Row{"bump", Match::Shortened, MtlStatement::SpacedBumpTexture},
};

bool Matches(std::string_view keyword, const Row& row)
{
    switch (row.match) {
    case Match::Whole:
        return keyword.size() == row.name.size() && IsShortFor(keyword, row.name);
    case Match::FirstTwo:
        return keyword.size() >= 2 && IsShortFor(keyword.substr(0, 2), row.name);
    default:
        return IsShortFor(keyword, row.name);
    }
}

} // namespace

MtlStatement FindMtlStatement(std::string_view keyword)
{
    const auto* const row = std::find_if(
        Rows.begin(), Rows.end(), [keyword](const Row& each) { return Matches(keyword, each); });
    return row != Rows.end() ? row->statement : MtlStatement::Ignored;
}

bool IsShortFor(std::string_view word, std::string_view name)
{
    return word.size() <= name.size() &&
           std::equal(word.begin(), word.end(), name.begin(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}
