#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>

/// A text of the program for a person, with the id by which a table of texts replaces it. Each "%s"
/// stands for an argument, in order.
struct ProgramText
{
    const wchar_t* english;
    int id;
};

/// The words for one and for another number of things; "%s" is the number.
struct CountedText
{
    ProgramText one;
    ProgramText many;
};

/// Returns a text in the user's language, in UTF-8, with its arguments in place.
std::string Say(const ProgramText& text, std::span<const std::string> arguments);
std::string Say(const ProgramText& text, std::initializer_list<std::string> arguments = {});

/// Returns a count in groups of three digits.
std::string Number(std::size_t count);

/// Returns "1 mesh", "1,200 meshes".
std::string Counted(std::size_t count, const CountedText& text);

/// What the summary is made of.
namespace Texts {

inline constexpr ProgramText ThousandsMark{L",", 60001};
inline constexpr ProgramText Importing{L"Importing %s", 60002};
inline constexpr ProgramText Imported{L"imported", 60003};
inline constexpr ProgramText Cancelled{L"cancelled", 60004};
inline constexpr ProgramText Failed{L"the import failed", 60005};
inline constexpr ProgramText ImportedInPart{L"out of memory; imported in part", 60006};
inline constexpr ProgramText OutOfMemory{L"out of memory; the import failed", 60007};
inline constexpr ProgramText NotImported{L"not imported: %s", 60008};
inline constexpr ProgramText NotWritten{L"imported, but not written", 60009};

inline constexpr ProgramText Refused{L"refused: %s", 60010};
inline constexpr ProgramText Inconsistencies{L"inconsistencies: %s", 60011};
inline constexpr ProgramText Times{L"%s times", 60012};
inline constexpr ProgramText NumberMark{L"no. ", 60013};
inline constexpr ProgramText BrepNumberMark{L"brep no. ", 60014};
inline constexpr ProgramText LeftOut{L"... and %s more", 60015};
inline constexpr ProgramText LeftOutOfTable{L"... and %s more; --all shows them", 60016};
inline constexpr ProgramText NotRead{L"not read: %s; --check names them", 60017};
inline constexpr ProgramText LinesOf{L"%s (%s)", 60018};
inline constexpr ProgramText UndefinedMaterials{L"%s wanted, but defined by no library: %s", 60019};
inline constexpr ProgramText MissingTextures{L"missing textures: %s", 60020};
inline constexpr ProgramText Reading{L"%s: %s %% read", 60021};
inline constexpr ProgramText Building{L"%s: making objects", 60022};
inline constexpr ProgramText Writing{L"writing %s", 60023};

inline constexpr ProgramText ReadingEnded{L"reading ended at line %s: %s", 60024};
inline constexpr ProgramText EndedAtLine{L"ended at line %s", 60025};
inline constexpr CountedText LinesNotRead{{L"%s line after it was not read", 60026},
                                          {L"%s lines after it were not read", 60027}};

inline constexpr CountedText NamesChanged{{L"%s name changes; --check names it", 60028},
                                          {L"%s names change; --check names them", 60029}};
inline constexpr CountedText FacesMissing{
    {L"%s face of the file was not imported; --check says why", 60122},
    {L"%s faces of the file were not imported; --check says why", 60123}};
inline constexpr ProgramText StandardInput{L"standard input", 60125};
inline constexpr ProgramText CheckSaysWhy{L"--check says why", 60124};

/// What the module prints when it stops reading a file early.
inline constexpr ProgramText ReadingErrors{
    L"Errors occurred reading this file, may be incomplete.\n", 24465};

inline constexpr CountedText Objects{{L"%s object", 60030}, {L"%s objects", 60031}};
inline constexpr CountedText Meshes{{L"%s mesh", 60032}, {L"%s meshes", 60033}};
inline constexpr CountedText Curves{{L"%s curve", 60034}, {L"%s curves", 60035}};
inline constexpr CountedText Points{{L"%s point", 60036}, {L"%s points", 60037}};
inline constexpr CountedText Clouds{{L"%s point cloud", 60038}, {L"%s point clouds", 60039}};
inline constexpr CountedText Breps{{L"%s brep", 60040}, {L"%s breps", 60041}};
inline constexpr CountedText Materials{{L"%s material", 60042}, {L"%s materials", 60043}};
inline constexpr CountedText Layers{{L"%s layer", 60044}, {L"%s layers", 60045}};
inline constexpr CountedText Groups{{L"%s group", 60046}, {L"%s groups", 60047}};
inline constexpr CountedText Textures{{L"%s texture", 60048}, {L"%s textures", 60049}};
inline constexpr CountedText Vertices{{L"%s vertex", 60050}, {L"%s vertices", 60051}};
inline constexpr CountedText Faces{{L"%s face", 60052}, {L"%s faces", 60053}};
inline constexpr CountedText Triangles{{L"%s triangle", 60054}, {L"%s triangles", 60055}};
inline constexpr CountedText Quads{{L"%s quad", 60056}, {L"%s quads", 60057}};
inline constexpr CountedText Ngons{{L"%s n-gon", 60058}, {L"%s n-gons", 60059}};
inline constexpr CountedText Lines{{L"%s line", 60060}, {L"%s lines", 60061}};
inline constexpr CountedText Messages{{L"%s message", 60062}, {L"%s messages", 60063}};
inline constexpr CountedText RefusedCount{{L"%s refused", 60064}, {L"%s refused", 60065}};
inline constexpr CountedText Names{{L"%s name", 60068}, {L"%s names", 60069}};
inline constexpr CountedText Files{{L"%s file", 60066}, {L"%s files", 60067}};

inline constexpr ProgramText InMeshes{L"in meshes: %s, %s", 60070};
inline constexpr ProgramText Size{L"size: %s x %s x %s", 60071};
inline constexpr ProgramText Corners{L"from (%s, %s, %s) to (%s, %s, %s)", 60072};
inline constexpr ProgramText Legend{L"has: t texture coordinates, n normals, c colours", 60073};
inline constexpr ProgramText Missing{L"missing", 60074};
inline constexpr ProgramText Yes{L"yes", 60075};
inline constexpr ProgramText No{L"no", 60076};

inline constexpr ProgramText NameColumn{L"name", 60080};
inline constexpr ProgramText LayerColumn{L"layer", 60081};
inline constexpr ProgramText GroupsColumn{L"groups", 60082};
inline constexpr ProgramText MaterialColumn{L"material", 60083};
inline constexpr ProgramText VerticesColumn{L"vertices", 60084};
inline constexpr ProgramText FacesColumn{L"faces", 60085};
inline constexpr ProgramText NgonsColumn{L"n-gons", 60086};
inline constexpr ProgramText HasColumn{L"has", 60087};
inline constexpr ProgramText ClosedColumn{L"closed", 60088};
inline constexpr ProgramText OrderColumn{L"order", 60089};
inline constexpr ProgramText PointsColumn{L"points", 60090};
inline constexpr ProgramText RationalColumn{L"rational", 60091};
inline constexpr ProgramText LoopsColumn{L"loops", 60092};
inline constexpr ProgramText TrimsColumn{L"trims", 60093};
inline constexpr ProgramText OrdersColumn{L"orders", 60094};
inline constexpr ProgramText DiffuseColumn{L"diffuse", 60095};
inline constexpr ProgramText ShineColumn{L"shine", 60096};
inline constexpr ProgramText TransparencyColumn{L"transparency", 60097};
inline constexpr ProgramText KindColumn{L"kind", 60098};
inline constexpr ProgramText FileColumn{L"file", 60099};
inline constexpr ProgramText OutcomeColumn{L"outcome", 60100};
inline constexpr ProgramText ObjectsColumn{L"objects", 60101};
inline constexpr ProgramText LostColumn{L"lost", 60102};

inline constexpr ProgramText Mesh{L"mesh", 60110};
inline constexpr ProgramText Curve{L"curve", 60111};
inline constexpr ProgramText Point{L"point", 60112};
inline constexpr ProgramText Cloud{L"point cloud", 60113};
inline constexpr ProgramText Brep{L"brep", 60114};
inline constexpr ProgramText Loop{L"loop", 60115};
inline constexpr ProgramText Image{L"image", 60116};
inline constexpr ProgramText Bitmap{L"bitmap", 60117};
inline constexpr ProgramText Bump{L"bump", 60118};
inline constexpr ProgramText Transparency{L"transparency", 60119};
inline constexpr ProgramText Host{L"host", 60120};
inline constexpr ProgramText Pushup{L"trim", 60121};

} // namespace Texts
