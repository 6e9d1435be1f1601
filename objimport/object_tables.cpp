#include "objimport/object_tables.h"

#include "console_host/app/printable.h"
#include "objimport/text_table.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

constexpr int LongestName = 32;
constexpr auto Right = TextTable::Align::Right;

std::string Shown(const GK_wString& name)
{
    return Shortened(PrintableLine(name.Utf8()), LongestName);
}

template <class Table, class NameOf>
std::string NameAt(const Table& table, int index, NameOf nameOf)
{
    return index >= 0 && index < table.Count() ? Shown(nameOf(table[index])) : "-";
}

std::string GroupNames(const ConsoleDoc& doc, const std::vector<int>& groups)
{
    return FirstFew(groups, [&doc](int group) {
        return NameAt(doc.Groups(), group, [](const auto& g) { return g.name; });
    });
}

/// The cells that every kind of object has.
std::vector<std::string> CommonCells(const ConsoleDoc& doc, int index)
{
    const GK_MdxObjectAttributes& attributes = *doc.Object(index).attributes;
    const bool own = attributes.MaterialSource() == GK::material_from_object;
    return {attributes.name.IsEmpty() ? "-" : Shown(attributes.name),
            NameAt(doc.Layers(), attributes.layerIndex, [](const auto& l) { return l.name; }),
            GroupNames(doc, attributes.Groups()),
            own ? NameAt(doc.Materials(), attributes.materialIndex,
                         [](const auto& m) { return m.Name(); })
                : "-"};
}

std::string YesOrNo(bool value)
{
    return value ? "yes" : "no";
}

std::string Number(int count)
{
    return ::Number(static_cast<std::size_t>(std::max(count, 0)));
}

std::string Coordinate(double value)
{
    constexpr int Digits = 6;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                   std::chars_format::general, Digits);
    return {text.data(), end.ptr};
}

/// The size of an object: the cells that only its kind has.
struct SizeCells
{
    std::vector<std::string> operator()(const GK_Mesh* mesh) const
    {
        const GK_MeshNgonList* ngons = mesh->NgonList();
        return {Number(mesh->VertexCount()), Number(mesh->FaceCount()),
                Number(ngons != nullptr ? ngons->Count() : 0), YesOrNo(mesh->IsClosed())};
    }

    std::vector<std::string> operator()(const GK_Curve* curve) const
    {
        const GK_NurbsCurve* nurbs = GK_NurbsCurve::Cast(curve);
        return {Number(curve->Degree() + 1),
                nurbs != nullptr ? Number(nurbs->controlPointCount) : "-",
                YesOrNo(nurbs != nullptr && nurbs->rational), YesOrNo(curve->IsClosed())};
    }

    std::vector<std::string> operator()(const GK_3dPoint* point) const
    {
        return {Coordinate(point->x), Coordinate(point->y), Coordinate(point->z)};
    }

    std::vector<std::string> operator()(const GK_PointCloud* cloud) const
    {
        return {Number(cloud->points.Count())};
    }

    std::vector<std::string> operator()(const GK_Brep* brep) const
    {
        std::string orders = "-";
        std::string points = "-";
        if (const auto* surface = GK_NurbsSurface::Cast(brep->Surface(0))) {
            orders = Number(surface->Order(0)) + " x " + Number(surface->Order(1));
            points = Number(surface->ControlPointCount(0)) + " x " +
                     Number(surface->ControlPointCount(1));
        }
        return {Number(brep->FaceCount()), Number(brep->LoopCount()), Number(brep->TrimCount()),
                orders, points};
    }
};

/// The words for a kind of geometry and the columns of its size, by its place in AnyGeometry.
struct Kind
{
    const char* one;
    const char* many;
    std::vector<TextTable::Column> size;
};

const std::vector<Kind>& Kinds()
{
    static const std::vector<Kind> kinds = {
        {"mesh", "meshes", {{"vertices", Right}, {"faces", Right}, {"n-gons", Right}, {"closed"}}},
        {"curve", "curves", {{"order", Right}, {"points", Right}, {"rational"}, {"closed"}}},
        {"point", "points", {{"x", Right}, {"y", Right}, {"z", Right}}},
        {"point cloud", "point clouds", {{"points", Right}}},
        {"brep",
         "breps",
         {{"faces", Right}, {"loops", Right}, {"trims", Right}, {"orders"}, {"points"}}}};
    return kinds;
}

void WriteKind(TextOutput& output, const ConsoleDoc& doc, std::size_t index)
{
    const Kind& kind = Kinds()[index];
    std::vector<TextTable::Column> columns = {
        {"#", Right}, {"name"}, {"layer"}, {"groups"}, {"material"}};
    columns.insert(columns.end(), kind.size.begin(), kind.size.end());
    TextTable table(columns);
    std::size_t count = 0;
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const DocumentObject object = doc.Object(i);
        if (object.geometry.index() != index || ++count > ShownRows)
            continue;
        std::vector<std::string> row = CommonCells(doc, i);
        row.insert(row.begin(), std::to_string(i));
        for (std::string& cell : std::visit(SizeCells(), object.geometry))
            row.push_back(std::move(cell));
        table.AddRow(std::move(row));
    }
    if (count == 0)
        return;
    output.Write('\n');
    output.Write(Counted(count, kind.one, kind.many));
    output.Write('\n');
    table.Write(output);
    WriteLeftOut(output, count);
}

} // namespace

std::string Number(std::size_t count)
{
    std::string digits = std::to_string(count);
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, 1, ',');
    }
    return digits;
}

std::string Counted(std::size_t count, const char* one, const char* many)
{
    return Number(count).append(" ").append(count == 1 ? one : many);
}

void WriteLeftOut(TextOutput& output, std::size_t count)
{
    if (count <= ShownRows)
        return;
    output.Write("  ... and ");
    output.Write(Number(count - ShownRows));
    output.Write(" more\n");
}

void WriteObjectTables(TextOutput& output, const ConsoleDoc& doc)
{
    for (std::size_t kind = 0; kind < Kinds().size(); ++kind)
        WriteKind(output, doc, kind);
}

std::string Totals(const ConsoleDoc& doc)
{
    std::size_t vertices = 0;
    std::size_t faces = 0;
    std::vector<std::size_t> counts(Kinds().size());
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const AnyGeometry geometry = doc.Object(i).geometry;
        ++counts[geometry.index()];
        if (const auto* mesh = std::get_if<const GK_Mesh*>(&geometry)) {
            vertices += static_cast<std::size_t>((*mesh)->VertexCount());
            faces += static_cast<std::size_t>((*mesh)->FaceCount());
        }
    }
    std::string text = Counted(static_cast<std::size_t>(doc.ObjectCount()), "object", "objects");
    const char* before = ": ";
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i] > 0)
            text.append(std::exchange(before, ", "))
                .append(Counted(counts[i], Kinds()[i].one, Kinds()[i].many));
    if (counts[0] > 0)
        text.append("; in meshes ")
            .append(Counted(vertices, "vertex", "vertices"))
            .append(" and ")
            .append(Counted(faces, "face", "faces"));
    return text;
}
