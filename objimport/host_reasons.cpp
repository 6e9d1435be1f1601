#include "objimport/host_reasons.h"

#include "objimport/program_texts.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {

/// The host's reasons, and parts of them. Of two that a reason matches, the first counts.
constexpr ProgramText Reasons[] = {
    {L"out of memory", 60201},
    {L"there is no geometry", 60202},
    {L"the mesh has no faces", 60203},
    {L"the mesh has a vertex that is not finite", 60204},
    {L"the point is not finite", 60205},
    {L"the point cloud has no points", 60206},
    {L"the point cloud has a point that is not finite", 60207},
    {L"the brep has no face", 60208},
    {L"the brep has no face: %s", 60209},
    {L"a face has no B-spline surface", 60210},
    {L"trim %s is not sound: %s", 60211},
    {L"edge %s is not sound: %s", 60212},
    {L"it has no curve", 60213},
    {L"its part of the curve is empty", 60214},
    {L"the %s has degree %s; at least 1 is needed", 60215},
    {L"the %s has order %s; at most %s is supported", 60216},
    {L"the %s has %s control points%s; degree %s needs at least %s", 60217},
    {L"the %s has no knots%s", 60218},
    {L"the %s has %s knots%s where %s are needed", 60219},
    {L"the %s has a knot%s that is not finite", 60220},
    {L"the %s's knots%s decrease, from %s to %s", 60221},
    {L"the %s's domain%s is empty", 60222},
    {L"the %s's knot %s stands more than %s times, the degree", 60223},
    {L"the %s has %s of its %s control points", 60224},
    {L"the %s's control point %s was never set", 60225},
    {L"the %s's control point %s is not finite", 60226},
    {L"the %s's control point %s has weight %s; it must be positive", 60227},
    {L"the curve has no control points", 60228},
    {L"inner loop %s of the brep %s", 60229},
    {L"outer loop %s of the brep %s", 60230},
    {L"no loop bounds the face", 60231},
    {L"loop %s runs around the surface, and nothing bounds the face on its other side", 60232},
    {L"loops %s and %s run around the surface in different directions", 60233},
    {L"more than 100 inner loops bound nothing at its seams", 60234},
    {L"loop %s %s", 60235},
    {L"encloses no area", 60236},
    {L"crosses an outer loop", 60237},
    {L"lies in no outer loop", 60238},
    {L"crosses another inner loop", 60239},
    {L"lies within another inner loop", 60240},
    {L"crosses another loop", 60241},
    {L"has no trims", 60242},
    {L"runs along seams and poles alone", 60243},
    {L"runs along a curve that others already run along twice", 60244},
    {L"stays at one place", 60245},
    {L"runs around the surface more than once", 60246},
    {L"runs around the surface too far", 60247},
    {L"does not close: trim %s ends where trim %s starts, but elsewhere in the parameter plane",
     60248},
    {L"does not close: trim %s ends %s away from the start of trim %s (tolerance %s)", 60249},
    {L"leaves the surface's domain: %s reaches %s, and the domain begins at %s", 60250},
    {L"leaves the surface's domain: %s reaches %s, and the domain ends at %s", 60251},
    {L"%s: %s x %s pixels in a file of %s bytes are out of proportion", 60252},
    {L"A trim was left out, as its curve is not sound: %s.", 60253},
    {L"A trim was left out, as it asks for the part from %s to %s of a curve that goes from %s to "
     L"%s.",
     60254},
    {L"A trim was left out, as the surface is not finite along its curve.", 60255},
    {L"A trim was left out, as its edge would take too many control points to stay within the "
     L"tolerance.",
     60256},
    {L"Trims were left out, as their edges would take more work in all than a file of this size "
     L"may ask for.",
     60257},
    {L"it does not lie in a parameter plane", 60258},
    {L"Bogus vertex index.", 60259},
    {L"Bogus normal index.", 60260},
    {L"Bogus texture index.", 60261},
    {L"Bogus color index.", 60262},
    {L"curve", 60263},
    {L"surface", 60264},
};

/// Returns whether a character of a text in UTF-8 is one of ASCII.
bool IsSame(char a, wchar_t b)
{
    return static_cast<wchar_t>(a) == b;
}

bool StartsWith(std::string_view text, std::wstring_view ascii)
{
    return text.size() >= ascii.size() &&
           std::equal(ascii.begin(), ascii.end(), text.begin(),
                      [](wchar_t a, char b) { return IsSame(b, a); });
}

bool EndsWith(std::string_view text, std::wstring_view ascii)
{
    return text.size() >= ascii.size() &&
           StartsWith(text.substr(text.size() - ascii.size()), ascii);
}

/// Takes off a pattern what stands before its next placeholder, or all of it, and returns that.
std::wstring_view TakeLiteral(std::wstring_view& pattern)
{
    const std::wstring_view literal = pattern.substr(0, pattern.find(L"%s"));
    pattern.remove_prefix(literal.size());
    return literal;
}

/// Returns what stands for the placeholders of a pattern in a text; none when it does not match.
std::optional<std::vector<std::string_view>> Match(std::string_view text, std::wstring_view pattern)
{
    const std::wstring_view first = TakeLiteral(pattern);
    if (!StartsWith(text, first))
        return std::nullopt;
    text.remove_prefix(first.size());
    std::vector<std::string_view> found;
    while (!pattern.empty()) {
        pattern.remove_prefix(2);
        const std::wstring_view literal = TakeLiteral(pattern);
        const auto* const place =
            pattern.empty() && EndsWith(text, literal)
                ? text.end() - std::ssize(literal)
                : std::search(text.begin(), text.end(), literal.begin(), literal.end(), IsSame);
        if (place == text.end() && !literal.empty())
            return std::nullopt;
        const auto size = static_cast<std::size_t>(place - text.begin());
        found.push_back(text.substr(0, size));
        text.remove_prefix(size + literal.size());
    }
    return text.empty() ? std::optional(found) : std::nullopt;
}

} // namespace

std::string LocalReason(std::string_view reason)
{
    for (const ProgramText& known : Reasons) {
        const auto parts = Match(reason, known.english);
        if (!parts)
            continue;
        std::vector<std::string> local;
        for (const std::string_view part : *parts)
            local.push_back(part.size() < reason.size() ? LocalReason(part) : std::string(part));
        return Say(known, local);
    }
    return std::string(reason);
}
