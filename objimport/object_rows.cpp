#include "objimport/object_rows.h"

#include "console_host/app/printable.h"
#include "objimport/mesh_faces.h"
#include "objimport/program_texts.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr auto Right = TextTable::Align::Right;
constexpr auto Left = TextTable::Align::Left;
constexpr auto CutAtEnd = TextTable::Cut::AtEnd;

/// The names that stand in the cells of a document's objects.
class NameCells
{
public:
    NameCells(const ConsoleDoc& doc, bool all) : m_doc(doc), m_all(all) {}

    /// Returns the cells that every kind of object has.
    [[nodiscard]] std::vector<std::string> Of(int index) const;

private:
    [[nodiscard]] std::string Shown(const GK_wString& name) const
    {
        return Shortened(PrintableLine(name.Utf8()), LongestName(m_all));
    }

    template <class Table, class NameOf>
    [[nodiscard]] std::string NameAt(const Table& table, int index, NameOf nameOf) const
    {
        return index >= 0 && index < table.Count() ? Shown(nameOf(table[index])) : NoCell;
    }

    [[nodiscard]] std::string GroupNames(const std::vector<int>& groups) const;

    const ConsoleDoc& m_doc;
    bool m_all; ///< nothing is cut
};

std::string NameCells::GroupNames(const std::vector<int>& groups) const
{
    constexpr std::size_t MostNames = 3;
    const auto longest = static_cast<std::size_t>(LongestName(m_all));
    std::string text;
    std::size_t shown = 0;
    for (; shown < groups.size() && text.size() < longest && (m_all || shown < MostNames); ++shown)
        text.append(shown > 0 ? ", " : "")
            .append(NameAt(m_doc.Groups(), groups[shown], [](const auto& g) { return g.name; }));
    if (groups.size() > shown)
        text.append(" + ").append(Number(groups.size() - shown));
    return text.empty() ? NoCell : text;
}

std::vector<std::string> NameCells::Of(int index) const
{
    const GK_MdxObjectAttributes& attributes = *m_doc.Object(index).attributes;
    const bool own = attributes.MaterialSource() == GK::material_from_object;
    const bool oneLayer = m_doc.Layers().Count() == 1;
    return {std::to_string(index), attributes.name.IsEmpty() ? NoCell : Shown(attributes.name),
            oneLayer ? NoCell
                     : NameAt(m_doc.Layers(), attributes.layerIndex,
                              [](const auto& l) { return l.name; }),
            GroupNames(attributes.Groups()),
            own ? NameAt(m_doc.Materials(), attributes.materialIndex,
                         [](const auto& m) { return m.Name(); })
                : NoCell};
}

std::string YesOrNo(bool value)
{
    return Say(value ? Texts::Yes : Texts::No);
}

std::string Count(int count)
{
    return Number(static_cast<std::size_t>(std::max(count, 0)));
}

std::string PerVertexLists(const GK_Mesh& mesh)
{
    std::string text;
    const auto add = [&text](bool has, const char* letter) {
        if (has)
            text.append(text.empty() ? "" : " ").append(letter);
    };
    add(!mesh.textureCoordinates.IsEmpty(), "t");
    add(!mesh.normals.IsEmpty(), "n");
    add(!mesh.colors.IsEmpty(), "c");
    return text.empty() ? NoCell : text;
}

/// The size of an object: the cells that only its kind has.
struct SizeCells
{
    std::vector<std::string> operator()(const GK_Mesh* mesh) const
    {
        const FaceCounts faces = CountFaces(*mesh);
        return {Count(mesh->VertexCount()), Number(faces.All()),
                faces.ngons > 0 ? Number(faces.ngons) : NoCell, PerVertexLists(*mesh),
                YesOrNo(mesh->IsClosed())};
    }

    std::vector<std::string> operator()(const GK_Curve* curve) const
    {
        const GK_NurbsCurve* nurbs = GK_NurbsCurve::Cast(curve);
        return {Count(curve->Degree() + 1),
                nurbs != nullptr ? Count(nurbs->controlPointCount) : NoCell,
                YesOrNo(nurbs != nullptr && nurbs->rational), YesOrNo(curve->IsClosed())};
    }

    std::vector<std::string> operator()(const GK_3dPoint* point) const
    {
        return {Coordinate(point->x), Coordinate(point->y), Coordinate(point->z)};
    }

    std::vector<std::string> operator()(const GK_PointCloud* cloud) const
    {
        return {Count(cloud->points.Count())};
    }

    std::vector<std::string> operator()(const GK_Brep* brep) const
    {
        std::string orders = NoCell;
        std::string points = NoCell;
        if (const auto* surface = GK_NurbsSurface::Cast(brep->Surface(0))) {
            orders = Count(surface->Order(0)) + " x " + Count(surface->Order(1));
            points =
                Count(surface->ControlPointCount(0)) + " x " + Count(surface->ControlPointCount(1));
        }
        return {Count(brep->FaceCount()), Count(brep->LoopCount()), Count(brep->TrimCount()),
                orders, points};
    }
};

/// Returns the columns of a kind's size, in the order of SizeCells.
std::vector<TextTable::Column> SizeColumns(std::size_t kind)
{
    const std::vector<std::vector<TextTable::Column>> columns = {
        {{Say(Texts::VerticesColumn), Right},
         {Say(Texts::FacesColumn), Right},
         {Say(Texts::NgonsColumn), Right},
         {Say(Texts::HasColumn)},
         {Say(Texts::ClosedColumn)}},
        {{Say(Texts::OrderColumn), Right},
         {Say(Texts::PointsColumn), Right},
         {Say(Texts::RationalColumn)},
         {Say(Texts::ClosedColumn)}},
        {{"x", Right}, {"y", Right}, {"z", Right}},
        {{Say(Texts::PointsColumn), Right}},
        {{Say(Texts::FacesColumn), Right},
         {Say(Texts::LoopsColumn), Right},
         {Say(Texts::TrimsColumn), Right},
         {Say(Texts::OrdersColumn)},
         {Say(Texts::PointsColumn)}}};
    return columns[kind];
}

/// Returns how many decimals a number is written with; very many when it is written with an
/// exponent.
int Decimals(const std::string& number)
{
    if (number.find('e') != std::string::npos)
        return std::numeric_limits<int>::max();
    const std::size_t point = number.find('.');
    return point == std::string::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

/// Writes a number by `toChars(first, last)`.
template <class ToChars>
std::string Digits(ToChars toChars)
{
    std::array<char, 64> text{};
    const auto end = toChars(text.data(), text.data() + text.size());
    return {text.data(), end.ptr};
}

} // namespace

std::vector<TextTable::Column> ObjectColumns(std::size_t kind)
{
    std::vector<TextTable::Column> columns = {{"#", Right},
                                              {Say(Texts::NameColumn), Left, CutAtEnd},
                                              {Say(Texts::LayerColumn), Left, CutAtEnd},
                                              {Say(Texts::GroupsColumn), Left, CutAtEnd},
                                              {Say(Texts::MaterialColumn), Left, CutAtEnd}};
    for (TextTable::Column& column : SizeColumns(kind))
        columns.push_back(std::move(column));
    return columns;
}

std::vector<std::string> ObjectRow(const ConsoleDoc& doc, int index, bool all)
{
    std::vector<std::string> row = NameCells(doc, all).Of(index);
    for (std::string& cell : std::visit(SizeCells(), doc.Object(index).geometry))
        row.push_back(std::move(cell));
    return row;
}

std::string Coordinate(double value)
{
    constexpr double Least = 1e-5;
    constexpr double Most = 1e15;
    const double size = std::abs(value);
    const bool isUsual = size == 0.0 || (size >= Least && size < Most);
    const auto format = isUsual ? std::chars_format::fixed : std::chars_format::scientific;
    const bool fitsSingle = size <= static_cast<double>(std::numeric_limits<float>::max());
    const float single = fitsSingle ? static_cast<float>(value) : 0.0F;
    return Digits([&](char* first, char* last) {
        return static_cast<double>(single) == value ? std::to_chars(first, last, single, format)
                                                    : std::to_chars(first, last, value, format);
    });
}

std::string Extent(double from, double to)
{
    constexpr int MostDigits = 6;
    constexpr int MostDecimals = 15; // six digits show nothing of what lies beyond
    const int decimals = std::max(Decimals(Coordinate(from)), Decimals(Coordinate(to)));
    double extent = to - from;
    if (decimals <= MostDecimals) {
        const std::string rounded = Digits([&](char* first, char* last) {
            return std::to_chars(first, last, extent, std::chars_format::fixed, decimals);
        });
        std::from_chars(rounded.data(), rounded.data() + rounded.size(), extent);
    }
    return Digits([&](char* first, char* last) {
        return std::to_chars(first, last, extent, std::chars_format::general, MostDigits);
    });
}
