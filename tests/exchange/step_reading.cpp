#include "tests/exchange/step_reading.h"

#include "objimport/exchange/step_file.h"
#include "objimport/saved_forms.h"
#include "tests/temporary_folder.h"

#include <BRepCheck_Analyzer.hxx>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TColStd_HSequenceOfExtendedString.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>

#ifdef __SANITIZE_ADDRESS__
#include <STEPCAFControl_Controller.hxx>
#include <sanitizer/lsan_interface.h>

// What the library makes once, and the directions that its writer keeps, are not ours to release.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libTKSTEP\n";
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

namespace {

[[maybe_unused]] const bool isPrepared = [] {
    __lsan_disable();
    STEPCAFControl_Controller::Init();
    __lsan_enable();
    return true;
}();

} // namespace
#endif

namespace {

std::string TextOf(const TCollection_ExtendedString& text)
{
    return TCollection_AsciiString(text).ToCString();
}

std::string NameOf(const TDF_Label& label)
{
    Handle(TDataStd_Name) name;
    return label.FindAttribute(TDataStd_Name::GetID(), name) ? TextOf(name->Get()) : "";
}

std::string ColorOf(const TDF_Label& label)
{
    const auto tool = XCAFDoc_DocumentTool::ColorTool(label);
    Quantity_Color color;
    for (const auto kind : {XCAFDoc_ColorSurf, XCAFDoc_ColorCurv})
        if (tool->GetColor(label, kind, color)) {
            double r = 0.0;
            double g = 0.0;
            double b = 0.0;
            color.Values(r, g, b, Quantity_TOC_sRGB);
            return std::to_string(std::lround(255 * r)) + " " +
                   std::to_string(std::lround(255 * g)) + " " +
                   std::to_string(std::lround(255 * b));
        }
    return "";
}

std::string LayerOf(const TDF_Label& label)
{
    Handle(TColStd_HSequenceOfExtendedString) layers = new TColStd_HSequenceOfExtendedString;
    XCAFDoc_DocumentTool::LayerTool(label)->GetLayers(label, layers);
    return layers->IsEmpty() ? "" : TextOf(layers->First());
}

int Count(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind, TopAbs_ShapeEnum but = TopAbs_SHAPE)
{
    int count = 0;
    for (TopExp_Explorer part(shape, kind, but); part.More(); part.Next())
        ++count;
    return count;
}

StepPart PartOf(const TDF_Label& label)
{
    constexpr double Accuracy = 1e-9;
    const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
    StepPart part;
    part.name = NameOf(label);
    part.layer = LayerOf(label);
    part.color = ColorOf(label);
    part.shells = Count(shape, TopAbs_SHELL);
    part.faces = Count(shape, TopAbs_FACE);
    part.edges = Count(shape, TopAbs_EDGE);
    part.vertices = Count(shape, TopAbs_VERTEX, TopAbs_EDGE);
    part.isValid = BRepCheck_Analyzer(shape).IsValid();
    GProp_GProps surfaces;
    BRepGProp::SurfaceProperties(shape, surfaces, Accuracy);
    part.area = surfaces.Mass();
    GProp_GProps lines;
    BRepGProp::LinearProperties(shape, lines);
    part.length = lines.Mass();
    return part;
}

/// A document whose attributes, which refer to each other, are destroyed with it.
struct LibraryDocument
{
    Handle(TDocStd_Document) document = new TDocStd_Document("test");

    LibraryDocument() = default;
    LibraryDocument(const LibraryDocument&) = delete;
    LibraryDocument& operator=(const LibraryDocument&) = delete;
    ~LibraryDocument() { document->Main().Root().ForgetAllAttributes(Standard_True); }
};

} // namespace

StepReading ReadStep(const std::string& text)
{
    const TemporaryFolder folder;
    const auto path = folder.Path() / "read.step";
    std::ofstream(path, std::ios::binary) << text;
    const LibraryDocument owner;
    Handle(TDocStd_Document) document = owner.document;
    XCAFDoc_DocumentTool::Set(document->Main(), Standard_False);
    STEPCAFControl_Reader reader;
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone || !reader.Transfer(document))
        throw std::runtime_error("the STEP file cannot be read");
    const auto shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    TDF_LabelSequence roots;
    shapes->GetFreeShapes(roots);
    if (roots.Length() != 1)
        throw std::runtime_error("the STEP file has not one assembly");
    TDF_LabelSequence components;
    XCAFDoc_ShapeTool::GetComponents(roots.First(), components);
    StepReading reading{NameOf(roots.First()), {}};
    for (int i = 1; i <= components.Length(); ++i) {
        TDF_Label part;
        XCAFDoc_ShapeTool::GetReferredShape(components.Value(i), part);
        reading.parts.push_back(PartOf(part));
    }
    return reading;
}

StepWriting WriteStepOf(const ConsoleDoc& doc)
{
    const TemporaryFolder folder;
    const auto path = folder.Path() / "written.step";
    const ExchangeDocument view = ViewForExchange(doc, {});
    StepWriting writing;
    {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(path.c_str(), "wb"),
                                                                     &std::fclose);
        ExchangeRequest request;
        request.form = ExchangeForm::Step;
        request.document = &view;
        request.stream = stream.get();
        WriteStep(request, writing.outcome);
    }
    std::ifstream stream(path, std::ios::binary);
    writing.text.assign(std::istreambuf_iterator<char>(stream), {});
    return writing;
}
