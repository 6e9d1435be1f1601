#include "tests/trimming/check_shape.h"

#include "tests/trimming/brep_walk.h"
#include "tests/trimming/import_text.h"

#include <cmath>
#include <sstream>

namespace {

int EdgesWithTrims(const GK_Brep& brep, int trims)
{
    int count = 0;
    for (int i = 0; i < brep.EdgeCount(); ++i)
        count += brep.Edge(i).trimIndices.Count() == trims ? 1 : 0;
    return count;
}

class Comparison
{
public:
    Comparison(const Writing& writing, double tolerance)
        : m_accuracy(writing.digits < 9 ? 1e-3 : 1e-4), m_tolerance(tolerance)
    {
    }

    void Compare(const TrimmedShape& shape, const GK_Brep& brep)
    {
        const std::vector<std::string> faults = FaultsOf(brep, m_tolerance);
        m_faults.insert(m_faults.end(), faults.begin(), faults.end());
        Expect("faces", brep.FaceCount(), shape.faces);
        Expect("vertices", brep.VertexCount(), shape.vertices);
        Expect("edges with one trim", EdgesWithTrims(brep, 1), shape.borders);
        Expect("edges with two trims", EdgesWithTrims(brep, 2), shape.seams);
        const double area = AreaOf(brep);
        if (shape.area >= 0.0 && !(std::abs(area - shape.area) <= m_accuracy * shape.area))
            Fault("the area is ", area, ", not ", shape.area);
    }

    void Expect(const char* what, int count, int expected)
    {
        if (expected >= 0 && count != expected)
            Fault(what, ": ", count, ", not ", expected);
    }

    template <class... Parts>
    void Fault(const Parts&... parts)
    {
        std::ostringstream text;
        (text << ... << parts);
        m_faults.push_back(text.str());
    }

    [[nodiscard]] const std::vector<std::string>& Faults() const { return m_faults; }

private:
    double m_accuracy;
    double m_tolerance;
    std::vector<std::string> m_faults;
};

} // namespace

std::vector<std::string> ImportFaults(const std::vector<TrimmedShape>& shapes,
                                      const Writing& writing, double tolerance)
{
    const ImportedText file(ObjText(shapes, writing), tolerance);
    Comparison comparison(writing, tolerance);
    if (!file.Parsed())
        comparison.Fault("the file was not read to its end");
    const std::vector<const GK_Brep*> breps = file.Breps();
    int taken = 0;
    int refused = 0;
    int dropped = 0;
    for (const TrimmedShape& shape : shapes) {
        (shape.faces != 0 ? taken : refused) += 1;
        dropped += shape.dropped;
    }
    comparison.Expect("breps", static_cast<int>(breps.size()), taken);
    comparison.Expect("refused breps", file.Refusals("brep"), refused);
    comparison.Expect("dropped loops", file.Refusals("loop"), dropped);
    std::size_t next = 0;
    for (const TrimmedShape& shape : shapes)
        if (shape.faces != 0 && next < breps.size())
            comparison.Compare(shape, *breps[next++]);
    if (!comparison.Faults().empty() && !file.Refused().empty())
        comparison.Fault("refused: ", file.Refused());
    return comparison.Faults();
}

TrimmedShape Placed(TrimmedShape shape, double scale, double offset)
{
    shape.surface = Placed(std::move(shape.surface), scale, offset);
    shape.area *= scale * scale;
    return shape;
}
