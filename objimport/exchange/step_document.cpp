#include "objimport/exchange/step_document.h"

#include "objimport/exchange/brep_shape.h"
#include "objimport/exchange/library_failure.h"
#include "objimport/exchange/step_part.h"
#include "objimport/exchange/step_writer.h"

#include <Quantity_Color.hxx>
#include <TDF_Label.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace {

TCollection_ExtendedString LibraryText(const std::string& utf8)
{
    return {utf8.c_str(), Standard_True};
}

template <class Table>
const auto* EntryOf(const Table& table, int index)
{
    const bool isThere = index >= 0 && static_cast<std::size_t>(index) < table.size();
    return isThere ? &table[static_cast<std::size_t>(index)] : nullptr;
}

} // namespace

class StepDocument::Assembly
{
public:
    explicit Assembly(const ExchangeDocument& document)
        : m_document(document), m_library(new TDocStd_Document("objimport"))
    {
        XCAFDoc_DocumentTool::Set(m_library->Main(), Standard_False);
        XCAFDoc_ShapeTool::SetAutoNaming(Standard_False);
        m_shapes = XCAFDoc_DocumentTool::ShapeTool(m_library->Main());
        m_root = m_shapes->NewShape();
        const std::string name =
            document.sources.empty() ? "document" : FileNameOf(document.sources.front().file);
        TDataStd_Name::Set(m_root, LibraryText(name));
        for (std::size_t i = 0; i < document.objects.size();)
            i += AddObject(i);
        m_shapes->UpdateAssemblies();
    }
    Assembly(const Assembly&) = delete;
    Assembly& operator=(const Assembly&) = delete;

    /// Without this, references between the parts would keep them all.
    ~Assembly() { m_library->Main().Root().ForgetAllAttributes(Standard_True); }

    [[nodiscard]] std::string Write(std::FILE* stream) const
    {
        return WriteAssembly(m_library, stream);
    }

    Counts written;
    Left left;

private:
    static std::string FileNameOf(const std::string& path)
    {
        return path.substr(path.find_last_of("/\\") + 1);
    }

    std::size_t AddObject(std::size_t index);
    std::size_t AddPoints(std::size_t index);
    void AddBrep(std::size_t index, const GK_Brep& brep);
    void AddCurve(std::size_t index, const GK_Curve& curve);
    void AddCloud(std::size_t index, const GK_PointCloud& cloud);
    void AddPart(std::size_t index, const TopoDS_Shape& shape, const char* kind,
                 XCAFDoc_ColorType colored);
    void SetColor(const TDF_Label& part, const GK_MdxObjectAttributes& attributes,
                  XCAFDoc_ColorType colored);

    const ExchangeDocument& m_document;
    Handle(TDocStd_Document) m_library;
    Handle(XCAFDoc_ShapeTool) m_shapes;
    TDF_Label m_root;
};

// Returns how many objects were added, from this one on.
std::size_t StepDocument::Assembly::AddObject(std::size_t index)
{
    const ExchangeGeometry& geometry = m_document.objects[index].geometry;
    if (std::holds_alternative<const GK_3dPoint*>(geometry))
        return AddPoints(index);
    if (const auto* brep = std::get_if<const GK_Brep*>(&geometry))
        AddBrep(index, **brep);
    else if (const auto* curve = std::get_if<const GK_Curve*>(&geometry))
        AddCurve(index, **curve);
    else if (const auto* cloud = std::get_if<const GK_PointCloud*>(&geometry))
        AddCloud(index, **cloud);
    else
        ++left.meshes;
    return 1;
}

std::size_t StepDocument::Assembly::AddPoints(std::size_t index)
{
    const GK_MdxObjectAttributes& attributes = *m_document.objects[index].attributes;
    std::vector<GK_3dPoint> points;
    for (std::size_t i = index; i < m_document.objects.size(); ++i) {
        const ExchangeObject& object = m_document.objects[i];
        const auto* point = std::get_if<const GK_3dPoint*>(&object.geometry);
        const bool isAlike = object.attributes == &attributes || *object.attributes == attributes;
        if (point == nullptr || !isAlike)
            break;
        points.push_back(**point);
    }
    AddPart(index, PointsPart(points), "points", XCAFDoc_ColorCurv);
    written.points += points.size();
    return points.size();
}

void StepDocument::Assembly::AddBrep(std::size_t index, const GK_Brep& brep)
{
    const auto failure = FailureOf([&] {
        AddPart(index, ShellsOf(brep, LibraryFaces(brep, {})), "surface", XCAFDoc_ColorSurf);
    });
    if (failure) {
        ++left.surfaces[*failure];
        return;
    }
    ++written.surfaces;
    written.faces += static_cast<std::size_t>(brep.FaceCount());
}

void StepDocument::Assembly::AddCurve(std::size_t index, const GK_Curve& curve)
{
    const auto failure =
        FailureOf([&] { AddPart(index, CurvePart(curve), "curve", XCAFDoc_ColorCurv); });
    if (failure)
        ++left.curves[*failure];
    else
        ++written.curves;
}

void StepDocument::Assembly::AddCloud(std::size_t index, const GK_PointCloud& cloud)
{
    const std::vector<GK_3dPoint> points(cloud.points.begin(), cloud.points.end());
    AddPart(index, PointsPart(points), "points", XCAFDoc_ColorCurv);
    written.points += points.size();
}

// Adds a part; one without a name is named by what it is and by the object's number.
void StepDocument::Assembly::AddPart(std::size_t index, const TopoDS_Shape& shape, const char* kind,
                                     XCAFDoc_ColorType colored)
{
    const GK_MdxObjectAttributes& attributes = *m_document.objects[index].attributes;
    const std::string name = attributes.name.IsEmpty()
                                 ? std::string(kind) + " " + std::to_string(index + 1)
                                 : attributes.name.Utf8();
    const TDF_Label part = m_shapes->AddShape(shape, Standard_False, Standard_False);
    TDataStd_Name::Set(part, LibraryText(name));
    SetColor(part, attributes, colored);
    if (const GK_Layer* layer = EntryOf(m_document.layers, attributes.layerIndex))
        XCAFDoc_DocumentTool::LayerTool(m_library->Main())
            ->SetLayer(part, LibraryText(layer->name.Utf8()));
    const TDF_Label component = m_shapes->AddComponent(m_root, part, TopLoc_Location());
    TDataStd_Name::Set(component, LibraryText(name));
}

void StepDocument::Assembly::SetColor(const TDF_Label& part,
                                      const GK_MdxObjectAttributes& attributes,
                                      XCAFDoc_ColorType colored)
{
    constexpr double Brightest = 255.0;
    const GK_Material* material = EntryOf(m_document.materials, attributes.materialIndex);
    if (material == nullptr || attributes.MaterialSource() != GK::material_from_object)
        return;
    const GK_Color& color = material->Diffuse();
    XCAFDoc_DocumentTool::ColorTool(m_library->Main())
        ->SetColor(part,
                   Quantity_Color(color.Red() / Brightest, color.Green() / Brightest,
                                  color.Blue() / Brightest, Quantity_TOC_sRGB),
                   colored);
}

StepDocument::StepDocument(const ExchangeDocument& document)
    : m_assembly(std::make_unique<Assembly>(document))
{
}

StepDocument::~StepDocument() = default;

const StepDocument::Counts& StepDocument::Written() const
{
    return m_assembly->written;
}

const StepDocument::Left& StepDocument::LeftOut() const
{
    return m_assembly->left;
}

std::string StepDocument::Write(std::FILE* stream) const
{
    return m_assembly->Write(stream);
}
