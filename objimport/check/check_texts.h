#pragma once

#include "objimport/check/finding.h"

/// The texts of findings. Where a text is about a thing of which there is a name, the name is an
/// argument.
namespace CheckTexts {

using enum CheckKind;
using enum CheckLevel;

// The file as a whole.
inline constexpr CheckText Utf16{
    NoText, Error, {L"the file is UTF-16 text, which is not read; save it as UTF-8", 41101}};
inline constexpr CheckText OtherFile{NoText, Error, {L"the file is not OBJ text but %s", 41102}};
inline constexpr CheckText Binary{
    NoText, Error, {L"the file is not text: it holds zero bytes", 41103}};
inline constexpr CheckText ReadBreaksOff{
    ReadError, Error, {L"reading ends here with an error of the system", 41104}};
inline constexpr CheckText EndsHere{
    EndsParse, Error, {L"reading ends here: %s; lines that are not read: %s", 41105}};
inline constexpr CheckText Nothing{
    NoGeometry,
    Error,
    {L"the file holds no faces, points, curves or surfaces that are imported", 41106}};

// Statements that are not read.
inline constexpr CheckText GeometryNotRead{
    NotRead,
    Warning,
    {L"lines with \"%s\" are not read (%s in all): their geometry is lost", 41111}};
inline constexpr CheckText AttributesNotRead{
    NotRead, Note, {L"lines with \"%s\" are not read (%s in all): they hold no geometry", 41112}};
inline constexpr CheckText TexturesNotRead{
    NotRead,
    Warning,
    {L"lines with \"%s\" are not read (%s in all): their textures are lost", 41115}};
inline constexpr CheckText PropertiesNotRead{
    NotRead,
    Note,
    {L"lines with \"%s\" are not read (%s in all): imported materials have no such property",
     41116}};
inline constexpr CheckText UnknownNotRead{
    UnknownStatement,
    Warning,
    {L"lines with \"%s\" are not read (%s in all): no such statement is known", 41113}};
inline constexpr CheckText TransparencyNotRead{
    NotRead,
    Warning,
    {L"lines with \"%s\" are not read (%s in all): transparency is taken from \"d\"", 41114}};

// Vertices.
inline constexpr CheckText VertexNotFinite{
    NotFinite, Warning, {L"the vertex is not finite: what uses it is refused", 41121}};
inline constexpr CheckText TexCoordNotFinite{
    NotFinite, Warning, {L"the texture coordinate is not finite and becomes 0 0", 41122}};
inline constexpr CheckText NormalNotFinite{
    NotFinite, Warning, {L"the normal is not finite and becomes 0 0 1", 41123}};
inline constexpr CheckText CoordinateChanges{
    Precision, Warning, {L"the coordinate %s becomes %s in single precision", 41124}};
inline constexpr CheckText SomeColors{
    PartialValues,
    Warning,
    {L"%s of %s vertices have a colour: colours get lost or onto other vertices", 41125}};

// Faces and points.
inline constexpr CheckText BadVertex{
    BadIndex,
    Warning,
    {L"the corner \"%s\" names no vertex and is left out: %s were read before", 41131}};
inline constexpr CheckText CommentAfterFace{BadIndex,
                                            Warning,
                                            {L"the corner \"%s\" names no vertex and is left out: "
                                             L"a comment after a statement is read as corners",
                                             41179}};
inline constexpr CheckText BadTexCoord{
    BadIndex,
    Warning,
    {L"the corner \"%s\" names no texture coordinate and gets none: %s were read before", 41132}};
inline constexpr CheckText BadNormal{
    BadIndex,
    Warning,
    {L"the corner \"%s\" names no normal and gets none: %s were read before", 41133}};
inline constexpr CheckText BadReference{
    BadIndex, Warning, {L"an index in \"%s\" names nothing that was read before", 41134}};
inline constexpr CheckText TooFewCorners{
    RefusedFace, Warning, {L"the face is refused: it has fewer than three corners (%s)", 41135}};
inline constexpr CheckText OtherFields{
    RefusedFace,
    Warning,
    {L"the face is refused: the corner \"%s\" has other fields than those before it", 41136}};
inline constexpr CheckText TooManyFields{
    RefusedFace,
    Warning,
    {L"the face is refused: the corner \"%s\" has more than three fields", 41137}};
inline constexpr CheckText TooFewPlaces{
    FlatFace, Warning, {L"the face is dropped: fewer than three of its corners lie apart", 41138}};
inline constexpr CheckText NoArea{
    FlatFace, Note, {L"the face has no area: its corners lie on a line", 41139}};
inline constexpr CheckText SomeTexCoords{
    PartialValues,
    Warning,
    {L"the mesh \"%s\" gets no texture coordinates: from here on some corners have them and some "
     L"have not",
     41140}};
inline constexpr CheckText SomeNormals{
    PartialValues,
    Warning,
    {L"the mesh \"%s\" gets computed normals: from here on some corners have one and some have not",
     41141}};
inline constexpr CheckText MeshNotFinite{
    MeshRefused,
    Warning,
    {L"the mesh \"%s\" is refused: this face uses a vertex that is not finite", 41142}};
inline constexpr CheckText PointNotFinite{
    PointRefused, Warning, {L"the point is refused: its vertex is not finite", 41143}};
inline constexpr CheckText CloudNotFinite{
    PointRefused, Warning, {L"the point cloud is refused: a vertex of it is not finite", 41144}};
inline constexpr CheckText CloudEmpty{
    PointRefused, Warning, {L"the point cloud is refused: it has no points", 41145}};

// Curves and surfaces.
inline constexpr CheckText CurveUnsound{
    CurveRefused, Warning, {L"the curve is refused: %s", 41151}};
inline constexpr CheckText SurfaceUnsound{
    SurfaceRefused, Warning, {L"the surface is refused: %s", 41152}};
inline constexpr CheckText KnotsMissing{
    SurfaceUnfinished,
    Warning,
    {L"the surface is not finished and is refused: there is no \"parm %s\"", 41153}};
inline constexpr CheckText OuterLoopOpen{
    OpenLoop,
    Warning,
    {L"the surface is refused: its loop does not close between trim %s and trim %s", 41154}};
inline constexpr CheckText HoleOpen{
    OpenLoop,
    Warning,
    {L"the hole is dropped: it does not close between trim %s and trim %s", 41155}};
inline constexpr CheckText LoopEmpty{
    OpenLoop, Warning, {L"the loop is dropped: it has no trim that can be used", 41156}};
inline constexpr CheckText TrimUnsound{
    OpenLoop, Warning, {L"trim %s is dropped: its part of the curve cannot be used", 41157}};

// Names and libraries.
inline constexpr CheckText NameBecomes{
    NameChanged, Warning, {L"the name \"%s\" becomes \"%s\"", 41161}};
inline constexpr CheckText NoLibrary{
    LibraryMissing,
    Warning,
    {L"the library \"%s\" is not found: its materials are missing", 41162}};
inline constexpr CheckText NoLibraryOfNames{
    LibraryMissing,
    Warning,
    {L"the library \"%s\" is not found: all words count as one name", 41163}};
inline constexpr CheckText LibraryUnreadable{
    LibraryMissing,
    Warning,
    {L"the library \"%s\" cannot be read: its materials are missing", 41178}};
inline constexpr CheckText LibraryFoundAs{
    LibraryCase, Note, {L"the library \"%s\" is found as \"%s\"", 41164}};
inline constexpr CheckText LibraryEndsHere{
    LibraryEnds,
    Error,
    {L"reading of the library ends here: \"%s\" has no colour; lines that are not read: %s",
     41165}};
inline constexpr CheckText Undefined{
    MaterialUndefined, Warning, {L"no library defines the material \"%s\"", 41166}};
inline constexpr CheckText UndefinedButCase{
    MaterialUndefined,
    Warning,
    {L"no library defines the material \"%s\"; there is one named \"%s\"", 41167}};
inline constexpr CheckText DefinedAgain{
    MaterialRepeated,
    Warning,
    {L"the material \"%s\" is defined again: the first definition holds, %s:%s", 41168}};
inline constexpr CheckText NoNumber{
    NumberIgnored, Warning, {L"\"%s\" is ignored: no number follows", 41169}};
inline constexpr CheckText NoColorNumber{
    NumberIgnored, Warning, {L"\"%s\" is not a number: 1 is used instead", 41170}};
inline constexpr CheckText TextureOptions{
    TextureName,
    Warning,
    {L"the options of the texture \"%s\" are taken for a part of its name, which becomes \"%s\"",
     41171}};
inline constexpr CheckText TextureBecomes{
    TextureName, Warning, {L"the texture \"%s\" becomes \"%s\", which is there", 41172}};
inline constexpr CheckText TextureBecomesNothing{
    TextureName, Warning, {L"the texture \"%s\" becomes \"%s\", which is not there", 41173}};
inline constexpr CheckText NoTexture{
    TextureMissing, Warning, {L"the texture \"%s\" is not there", 41174}};
inline constexpr CheckText TextureGetsBlank{TextureName,
                                            Warning,
                                            {L"the texture \"%s\" is not found: after \"%s\" its "
                                             L"name gets a blank at its end; \"map_bump\" "
                                             L"takes it as it is",
                                             41177}};
inline constexpr CheckText TextureWithoutName{
    TextureMissing, Warning, {L"\"%s\" is ignored: it names no file", 41175}};
inline constexpr CheckText TextureFoundAs{
    TextureCase, Note, {L"the texture \"%s\" is found as \"%s\"", 41176}};

} // namespace CheckTexts

/// Reasons for which reading ends, or an object is refused.
namespace CheckReasons {

inline constexpr LocalText TooFewNumbers{L"\"%s\" needs %s numbers", 41201};
inline constexpr LocalText NotANumber{L"\"%s\" is not a number", 41202};
inline constexpr LocalText PointNamesNothing{L"\"p\" names no vertex", 41203};
inline constexpr LocalText NamesNoVertex{L"\"%s\" names none of the %s vertices before it", 41204};
inline constexpr LocalText NamesNoParamPoint{
    L"\"%s\" names none of the %s parameter points (vp) before it", 41205};
inline constexpr LocalText NamesNoCurve{
    L"\"%s\" names none of the %s curves in the parameter plane (curv2) before it", 41206};
inline constexpr LocalText WrongWordCount{L"\"%s\" needs one or two words", 41207};
inline constexpr LocalText NoSuchForm{L"\"%s\" is not a form of curves and surfaces", 41208};
inline constexpr LocalText FormNotSupported{
    L"curves and surfaces of the form \"%s\" are not supported", 41209};
inline constexpr LocalText NoForm{L"no \"cstype\" before \"%s\" names a form", 41210};
inline constexpr LocalText TooFewWords{L"\"%s\" is followed by too little", 41211};
inline constexpr LocalText WrongKnotCount{
    L"the curve needs %s knots, or two more, and \"parm\" has %s", 41212};
inline constexpr LocalText NeitherUNorV{L"\"parm\" does not fit: \"%s\" is not its direction",
                                        41213};
inline constexpr LocalText NoOwner{L"there is no curve or surface that \"%s\" could belong to",
                                   41214};
inline constexpr LocalText NoFaceYet{
    L"\"%s\" stands before both \"parm u\" and \"parm v\" of its surface", 41215};
inline constexpr LocalText NoTriples{L"\"%s\" needs three numbers for each trim", 41216};
inline constexpr LocalText Senseless{L"\"%s\" makes no sense here", 41217};

inline constexpr LocalText DegreeTooLow{L"its degree%s is %s; at least 1 is needed", 41231};
inline constexpr LocalText OrderTooHigh{L"its degree%s is above %s", 41232};
inline constexpr LocalText TooFewPoints{L"it has %s control points%s; %s are needed", 41233};
inline constexpr LocalText PointsMissing{L"it has %s of its %s control points", 41234};
inline constexpr LocalText PointNotFinite{L"control point %s is not finite", 41235};
inline constexpr LocalText WeightNotPositive{L"the weight %s of control point %s is not positive",
                                             41236};
inline constexpr LocalText NoKnots{L"it has no knots%s", 41237};
inline constexpr LocalText OtherKnotCount{L"it has %s knots%s; %s are needed", 41238};
inline constexpr LocalText KnotNotFinite{L"a knot%s is not finite", 41239};
inline constexpr LocalText KnotsDecrease{L"its knots%s decrease from %s to %s", 41240};
inline constexpr LocalText EmptyDomain{L"its domain%s is empty", 41241};
inline constexpr LocalText KnotTooOften{L"its knot %s stands too often%s", 41242};

} // namespace CheckReasons

/// Kinds of files that are not text.
namespace FileSorts {

inline constexpr LocalText Archive{L"an archive", 41301};
inline constexpr LocalText Image{L"an image", 41302};
inline constexpr LocalText Document{L"a document", 41303};
inline constexpr LocalText Program{L"a program", 41304};
inline constexpr LocalText OtherScene{L"a binary file of another program", 41305};

} // namespace FileSorts
