#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>

/// What is said of a document that is written. Each "%s" of a text stands for an argument, in
/// order.
namespace ExchangeTexts {

/// A text for a person, with the id of its translations.
struct Text
{
    const wchar_t* english;
    int id;
};

/// The text for one and for another number of things; the number is its first argument.
struct CountedText
{
    Text one;
    Text many;
};

/// Returns a text in the user's language, in UTF-8, with its arguments in place. As all that is
/// localized: on the user-interface thread only.
std::string Say(const Text& text, std::initializer_list<std::string> arguments = {});

/// Returns a number in groups of three digits.
std::string Number(std::size_t count);

/// Returns the text for a number of things, whose second argument may be a reason or names: "2
/// textures are missing: a.png, b.png".
std::string Counted(std::size_t count, const CountedText& text, const std::string& second = {});

inline constexpr Text ThousandsMark{L",", 41501};

// What is in a file.
inline constexpr CountedText Objects{{L"%s object", 41502}, {L"%s objects", 41503}};
inline constexpr CountedText Vertices{{L"%s vertex", 41504}, {L"%s vertices", 41505}};
inline constexpr CountedText Triangles{{L"%s triangle", 41506}, {L"%s triangles", 41507}};
inline constexpr CountedText Materials{{L"%s material", 41508}, {L"%s materials", 41509}};
inline constexpr CountedText Images{{L"%s image", 41510}, {L"%s images", 41511}};
inline constexpr Text ObjectsWith{L"%s with %s and %s", 41512};
inline constexpr CountedText Surfaces{{L"%s surface", 41513}, {L"%s surfaces", 41514}};
inline constexpr CountedText Faces{{L"%s face", 41515}, {L"%s faces", 41516}};
inline constexpr Text SurfacesWith{L"%s with %s", 41517};
inline constexpr CountedText Curves{{L"%s curve", 41518}, {L"%s curves", 41519}};
inline constexpr CountedText Points{{L"%s point", 41520}, {L"%s points", 41521}};
inline constexpr Text Pixels{L"%s x %s pixels, %s", 41522};
inline constexpr Text NothingSeen{L"empty: there is nothing in the document to be seen", 41523};

// What a form cannot hold.
inline constexpr CountedText FacesLeftOut{{L"%s face of a brep is left out: %s", 41531},
                                          {L"%s faces of breps are left out: %s", 41532}};
inline constexpr CountedText CoarseCurves{
    {L"%s curve is not followed within the tolerance: it would take too many points", 41533},
    {L"%s curves are not followed within the tolerance: it would take too many points", 41534}};
inline constexpr CountedText CoarseSurfaces{
    {L"%s surface is not followed within the tolerance: it would take too many triangles", 41535},
    {L"%s surfaces are not followed within the tolerance: it would take too many triangles",
     41536}};
inline constexpr CountedText ClampedCoordinates{
    {L"%s coordinate lies beyond single precision, at whose limit it stands now", 41537},
    {L"%s coordinates lie beyond single precision, at whose limits they stand now", 41538}};
inline constexpr CountedText TexturesMissing{{L"%s texture is missing: %s", 41539},
                                             {L"%s textures are missing: %s", 41540}};
inline constexpr CountedText TexturesBroken{{L"%s texture could not be read: %s", 41541},
                                            {L"%s textures could not be read: %s", 41542}};
inline constexpr CountedText BumpsLeftOut{{L"%s bump texture is left out: glTF has none", 41543},
                                          {L"%s bump textures are left out: glTF has none", 41544}};
inline constexpr CountedText TexturesLeftOut{
    {L"%s texture is left out: glTF has one of a kind in a material", 41545},
    {L"%s textures are left out: glTF has one of a kind in a material", 41546}};
inline constexpr CountedText GroupsLeftOut{
    {L"the groups of %s object are left out: there are too many of them", 41547},
    {L"the groups of %s objects are left out: there are too many of them", 41548}};
inline constexpr CountedText MeshesLeftOut{
    {L"%s mesh is left out: the STEP file holds surfaces, curves and points", 41549},
    {L"%s meshes are left out: the STEP file holds surfaces, curves and points", 41550}};
inline constexpr CountedText SurfacesLeftOut{{L"%s surface is left out: %s", 41551},
                                             {L"%s surfaces are left out: %s", 41552}};
inline constexpr CountedText CurvesLeftOut{{L"%s curve is left out: %s", 41553},
                                           {L"%s curves are left out: %s", 41554}};
inline constexpr CountedText TooFarOff{
    {L"%s corner or point lies too far off to be shown", 41555},
    {L"%s corners or points lie too far off to be shown", 41556}};
inline constexpr CountedText PictureTexturesMissing{{L"%s texture is missing", 41557},
                                                    {L"%s textures are missing", 41558}};
inline constexpr CountedText PictureTexturesBroken{{L"%s texture cannot be read", 41559},
                                                   {L"%s textures cannot be read", 41560}};

// Why something is left out.
inline constexpr Text DegreeTooHigh{L"its degree is %s, above %s", 41571};
inline constexpr Text CurveUnsound{L"one of its curves is not sound", 41572};
inline constexpr Text SurfaceUnsound{L"its surface is not a sound B-spline", 41573};
inline constexpr Text DividedDifferently{L"it was divided differently from its neighbour", 41574};
inline constexpr Text NoFiniteSize{L"it has no size, or one beyond all numbers", 41575};
inline constexpr Text TooManyPieces{L"its loops consist of %s pieces, more than %s", 41576};
inline constexpr Text NoTriangles{L"the geometry library finds no triangles that cover it", 41577};
inline constexpr Text LibrarySays{L"the geometry library says: %s", 41578};
inline constexpr Text WithoutLibrary{L"this build was made without Open CASCADE", 41579};

} // namespace ExchangeTexts
