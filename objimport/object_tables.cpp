#include "objimport/object_tables.h"

#include "objimport/mesh_faces.h"
#include "objimport/object_rows.h"
#include "objimport/program_texts.h"
#include "objimport/text_table.h"

#include <array>
#include <string>
#include <utility>

namespace {

/// The words for each kind of geometry, by its place in AnyGeometry.
constexpr std::array KindTexts = {Texts::Meshes, Texts::Curves, Texts::Points, Texts::Clouds,
                                  Texts::Breps};
constexpr std::size_t MeshKind = 0;

void WriteKind(const Page& page, const ConsoleDoc& doc, std::size_t kind)
{
    TextTable table(ObjectColumns(kind));
    std::size_t count = 0;
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        if (doc.Object(i).geometry.index() != kind)
            continue;
        ++count;
        if (page.Shown(count) == count)
            table.AddRow(ObjectRow(doc, i, page.ShowsAll()));
    }
    if (count == 0)
        return;
    page.Heading(Counted(count, KindTexts[kind]));
    table.LeaveOutColumnsOf(NoCell);
    page.Write(table);
    page.LeftOut(count);
    if (kind == MeshKind)
        page.Line("  " + Say(Texts::Legend));
}

/// The meshes of a document in all.
struct MeshTotals
{
    std::size_t vertices = 0;
    FaceCounts faces;

    void Add(const GK_Mesh& mesh)
    {
        const FaceCounts counts = CountFaces(mesh);
        vertices += static_cast<std::size_t>(mesh.VertexCount());
        faces.triangles += counts.triangles;
        faces.quads += counts.quads;
        faces.ngons += counts.ngons;
    }

    [[nodiscard]] std::string Text() const
    {
        std::string kinds;
        for (const auto& [count, text] :
             {std::pair(faces.triangles, Texts::Triangles), std::pair(faces.quads, Texts::Quads),
              std::pair(faces.ngons, Texts::Ngons)})
            if (count > 0)
                kinds.append(kinds.empty() ? " (" : ", ").append(Counted(count, text));
        return Say(Texts::InMeshes, {Counted(vertices, Texts::Vertices),
                                     Counted(faces.All(), Texts::Faces) + kinds + ")"});
    }
};

void WriteSize(const Page& page, ConsoleDoc& doc)
{
    const GK_BoundingBox box = KvZoomExtentsBoundingBox(doc);
    if (box.min.x > box.max.x)
        return;
    page.Line(
        Say(Texts::Size, {Extent(box.min.x, box.max.x), Extent(box.min.y, box.max.y),
                          Extent(box.min.z, box.max.z)}) +
        ", " +
        Say(Texts::Corners, {Coordinate(box.min.x), Coordinate(box.min.y), Coordinate(box.min.z),
                             Coordinate(box.max.x), Coordinate(box.max.y), Coordinate(box.max.z)}));
}

} // namespace

void WriteObjectTables(const Page& page, const ConsoleDoc& doc)
{
    for (std::size_t kind = 0; kind < KindTexts.size(); ++kind)
        WriteKind(page, doc, kind);
}

void WriteTotals(const Page& page, ConsoleDoc& doc)
{
    MeshTotals meshes;
    std::array<std::size_t, KindTexts.size()> counts{};
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const AnyGeometry geometry = doc.Object(i).geometry;
        ++counts[geometry.index()];
        if (const auto* mesh = std::get_if<const GK_Mesh*>(&geometry))
            meshes.Add(**mesh);
    }
    std::string text = Counted(static_cast<std::size_t>(doc.ObjectCount()), Texts::Objects);
    const char* before = ": ";
    for (std::size_t kind = 0; kind < counts.size(); ++kind)
        if (counts[kind] > 0)
            text.append(std::exchange(before, ", ")).append(Counted(counts[kind], KindTexts[kind]));
    page.Line(text);
    if (counts[MeshKind] > 0)
        page.Line(meshes.Text());
    if (doc.ObjectCount() > 0)
        WriteSize(page, doc);
}
