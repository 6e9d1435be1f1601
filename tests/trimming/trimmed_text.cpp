#include "tests/trimming/trimmed_shapes.h"

#include <cstdio>
#include <map>

namespace {

class Writer
{
public:
    explicit Writer(const Writing& writing) : m_writing(writing) {}

    void Add(const TrimmedShape& shape)
    {
        // Curves come first: a surface takes its loops right after its knots.
        std::vector<std::string> loops;
        for (const TrimLoop& loop : shape.loops)
            loops.push_back(LoopLine(loop));
        AddSurface(shape.surface);
        for (const std::string& loop : loops)
            m_text += loop;
        m_text += "end\n";
    }

    [[nodiscard]] const std::string& Text() const { return m_text; }

private:
    [[nodiscard]] std::string Number(double value) const
    {
        char text[40];
        std::snprintf(text, sizeof text, " %.*g", m_writing.digits, value);
        return text;
    }

    [[nodiscard]] std::string Numbers(const std::vector<double>& values) const
    {
        std::string text;
        for (const double value : values)
            text += Number(value);
        return text;
    }

    // Returns a parameter of the unit square in the written domain; direction 0 is the written u.
    [[nodiscard]] double Mapped(double t, std::size_t direction) const
    {
        const auto& [low, high] = m_writing.domain[direction];
        return low + t * (high - low);
    }

    static std::string Type(bool rational)
    {
        return rational ? "cstype rat bspline\n" : "cstype bspline\n";
    }

    std::string LoopLine(const TrimLoop& loop)
    {
        std::string line;
        line.append(loop.isHole ? "hole" : "trim");
        for (const TrimPiece& piece : loop.pieces)
            line += Number(piece.from) + Number(piece.to) + " " + std::to_string(CurveOf(piece));
        return line + "\n";
    }

    int CurveOf(const TrimPiece& piece)
    {
        std::string points;
        for (const auto& [u, v, weight] : piece.points) {
            points += "vp";
            points += Number(Mapped(m_writing.swapped ? v : u, 0)) +
                      Number(Mapped(m_writing.swapped ? u : v, 1));
            if (piece.IsRational())
                points += Number(weight);
            points += '\n';
        }
        std::string curve =
            Type(piece.IsRational()) + "deg " + std::to_string(piece.degree) + "\ncurv2";
        for (std::size_t i = piece.points.size(); i > 0; --i)
            curve.append(" -").append(std::to_string(i));
        curve += "\nparm u" + Numbers(piece.knots) + "\nend\n";
        const auto [entry, isNew] =
            m_curves.emplace(points + curve, static_cast<int>(m_curves.size()) + 1);
        if (isNew)
            m_text += entry->first;
        return entry->second;
    }

    void AddSurface(const ShapeSurface& surface)
    {
        for (const auto& point : surface.points) {
            m_text += 'v' + Numbers({point[0], point[1], point[2]});
            if (surface.rational)
                m_text += Number(point[3]);
            m_text += '\n';
        }
        const std::size_t first = m_writing.swapped ? 1 : 0;
        m_text += Type(surface.rational) + "deg " + std::to_string(surface.degree[first]) + " " +
                  std::to_string(surface.degree[1 - first]) + "\nsurf" +
                  Numbers({Mapped(0, 0), Mapped(1, 0), Mapped(0, 1), Mapped(1, 1)}) +
                  Corners(surface) + "\n";
        AddKnots("parm u", surface.knots[first], 0);
        AddKnots("parm v", surface.knots[1 - first], 1);
    }

    [[nodiscard]] std::string Corners(const ShapeSurface& surface) const
    {
        const std::size_t count = surface.points.size();
        const std::size_t rowLength =
            surface.knots[0].size() - static_cast<std::size_t>(surface.degree[0]) - 1;
        const std::size_t rows = count / rowLength;
        std::string corners;
        for (std::size_t k = 0; k < count; ++k) {
            const std::size_t point = m_writing.swapped ? k % rows * rowLength + k / rows : k;
            corners.append(" -").append(std::to_string(count - point));
        }
        return corners;
    }

    void AddKnots(const char* statement, const std::vector<double>& knots, std::size_t direction)
    {
        m_text += statement;
        for (const double knot : knots)
            m_text += Number(Mapped(knot, direction));
        m_text += "\n";
    }

    const Writing& m_writing;
    std::string m_text;
    std::map<std::string, int> m_curves;
};

} // namespace

std::string ObjText(const std::vector<TrimmedShape>& shapes, const Writing& writing)
{
    Writer writer(writing);
    for (const TrimmedShape& shape : shapes)
        writer.Add(shape);
    return writer.Text();
}
