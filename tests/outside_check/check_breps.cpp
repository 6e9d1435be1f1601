#include "objimport/exchange/brep_shape.h"
#include "tests/trimming/brep_walk.h"
#include "tests/trimming/import_text.h"
#include "tests/trimming/random_shapes.h"
#include "tests/trimming/surface_extent.h"

#include <BRepCheck.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Face.hxx>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>

// check_breps FOLDER | --random COUNT [SEED]: imports the OBJ files of a folder, or random ones,
// and has another geometry library check every brep as it was delivered. Names each that is not
// sound; exit status 1 when one is not.

namespace {

std::string NameOf(BRepCheck_Status status)
{
    std::ostringstream name;
    BRepCheck::Print(status, name);
    std::string text = name.str();
    text.erase(text.find_last_not_of(" \n") + 1);
    return text;
}

std::string StatusesOf(const BRepCheck_Analyzer& analyzer, const TopoDS_Shape& shape)
{
    std::map<std::string, int> found;
    for (const TopAbs_ShapeEnum type :
         {TopAbs_SHELL, TopAbs_FACE, TopAbs_WIRE, TopAbs_EDGE, TopAbs_VERTEX})
        for (TopExp_Explorer part(shape, type); part.More(); part.Next()) {
            const Handle(BRepCheck_Result)& result = analyzer.Result(part.Current());
            const auto add = [&](const BRepCheck_ListOfStatus& statuses) {
                for (const BRepCheck_Status status : statuses)
                    if (status != BRepCheck_NoError)
                        ++found[NameOf(status)];
            };
            add(result->Status());
            for (result->InitContextIterator(); result->MoreShapeInContext();
                 result->NextShapeInContext())
                add(result->StatusOnShape());
        }
    std::ostringstream text;
    for (const auto& [what, count] : found)
        text << " " << count << " x " << what << ";";
    return text.str();
}

// Returns what a brep is scaled up by when it is small: the library's precision is a length of
// 1e-7.
double ScaleFor(const GK_Brep& brep)
{
    constexpr double Small = 0.1;
    const double size = SurfaceExtent(*brep.Surface(brep.Face(0).surfaceIndex)).size;
    return size < Small ? 1.0 / size : 1.0;
}

std::string FaultOf(const GK_Brep& brep)
{
    constexpr double Accuracy = 1e-3;
    const double scale = ScaleFor(brep);
    try {
        const TopoDS_Shape shape = ShellsOf(brep, LibraryFaces(brep, {{}, scale}));
        const BRepCheck_Analyzer analyzer(shape);
        if (!analyzer.IsValid())
            return "not valid:" + StatusesOf(analyzer, shape);
        GProp_GProps properties;
        BRepGProp::SurfaceProperties(shape, properties, 1e-3 * Accuracy);
        const double area = properties.Mass() / (scale * scale);
        const double own = AreaOf(brep);
        if (!(std::abs(area - own) <= Accuracy * own))
            return "area " + std::to_string(area) + ", not " + std::to_string(own);
    } catch (const Standard_Failure& failure) {
        return std::string("not taken: ") + failure.GetMessageString();
    }
    return "";
}

class Check
{
public:
    void Text(const std::string& name, const std::string& text, double tolerance)
    {
        const ImportedText file(text, tolerance);
        for (const GK_Brep* brep : file.Breps()) {
            ++m_breps;
            const std::string fault = FaultOf(*brep);
            if (fault.empty())
                continue;
            ++m_faults;
            std::cout << name << ", tolerance " << tolerance << ": " << fault << std::endl;
        }
    }

    [[nodiscard]] int Result() const
    {
        std::cout << m_breps << " breps checked, " << m_faults << " not sound" << std::endl;
        return m_faults == 0 && m_breps > 0 ? 0 : 1;
    }

private:
    int m_breps = 0;
    int m_faults = 0;
};

void CheckFolder(Check& check, const std::string& folder)
{
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".obj")
            continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        check.Text(entry.path().string(), {std::istreambuf_iterator<char>(stream), {}}, 1e-3);
    }
}

void CheckRandom(Check& check, int count, int firstSeed)
{
    for (int i = 0; i < count; ++i) {
        const auto seed = static_cast<std::uint32_t>(firstSeed + i);
        const RandomFile file = MakeRandomFile(seed);
        check.Text("seed " + std::to_string(seed), ObjText(file.shapes, file.writing),
                   file.tolerance);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    Check check;
    if (arguments.size() >= 2 && arguments[0] == "--random")
        CheckRandom(check, std::stoi(arguments[1]),
                    arguments.size() > 2 ? std::stoi(arguments[2]) : 1);
    else if (arguments.size() == 1)
        CheckFolder(check, arguments[0]);
    else
        std::cout << "check_breps FOLDER | --random COUNT [SEED]" << std::endl;
    return check.Result();
}
