#include "tests/objimport/sample_document.h"

#include "objimport/text_output.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

template <class Object, class Give>
void Add(ConsoleDoc& doc, const GK_MdxObjectAttributes& attributes, Give give)
{
    auto object = std::make_unique<Object>(attributes);
    give(*object);
    if (!doc.AddObject(std::move(object), false, false))
        throw std::runtime_error("the sample is not sound");
}

std::unique_ptr<GK_Mesh> Mesh()
{
    auto mesh = std::make_unique<GK_Mesh>();
    for (const GK_3dPoint& point : {GK_3dPoint{0, 0, -0.0}, GK_3dPoint{1, 0, 0},
                                    GK_3dPoint{1, 1, 1e22}, GK_3dPoint{0.1, 1.0 / 3, 0}})
        mesh->DoublePrecisionVertices().Append(point);
    mesh->SetDoublePrecisionVerticesAsValid();
    mesh->UpdateSinglePrecisionVertices();
    mesh->faces = {GK_MeshFace{{0, 1, 2, 2}}, GK_MeshFace{{0, 2, 3, 3}}};
    mesh->normals = {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0.1F, 0, 1}};
    mesh->textureCoordinates = {{0, 0}, {1, 0}, {1, 1}, {0.3F, 1}};
    mesh->colors = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {1, 2, 3}};
    const GK_MeshNgon ngon = mesh->ModifyNgonList()->AddNgon(4);
    for (int i = 0; i < 4; ++i)
        ngon.vi[static_cast<std::size_t>(i)] = i;
    ngon.fi[0] = 0;
    ngon.fi[1] = 1;
    return mesh;
}

std::unique_ptr<GK_Curve> Curve()
{
    auto curve = std::make_unique<GK_NurbsCurve>();
    curve->Create(3, true, 3, 3);
    for (int i = 0; i < 3; ++i) {
        const double values[] = {static_cast<double>(i), 2, 3, i == 1 ? 0.5 : 1.0};
        curve->SetCV(i, GK::euclidean_rational, values);
    }
    curve->knots = {0, 0, 1, 1};
    return curve;
}

std::unique_ptr<GK_Brep> Brep()
{
    auto surface = std::make_unique<GK_NurbsSurface>();
    surface->Create(false, 2, 2);
    surface->SetControlPointCount(0, 2);
    surface->SetControlPointCount(1, 2);
    surface->ReserveCVCapacity(2 * 2 * surface->ControlPointStride());
    for (int v = 0; v < 2; ++v)
        for (int u = 0; u < 2; ++u) {
            const double values[] = {u * 10.0, v * 5.0, 0};
            surface->SetCV(u, v, GK::not_rational, values);
        }
    surface->SetKnots(0, {0, 1});
    surface->SetKnots(1, {0, 2});
    auto brep = std::make_unique<GK_Brep>();
    brep->NewFace(brep->AddSurface(std::move(surface)));
    int vertices[] = {-1, -1, -1, -1};
    int edges[] = {-1, -1, -1, -1};
    bool reversed[] = {false, false, false, false};
    brep->NewOuterLoop(0, vertices, edges, reversed);
    return brep;
}

} // namespace

void FillSampleDocument(ConsoleDoc& doc)
{
    GK_MdxObjectAttributes attributes;
    for (const wchar_t* name : {L"wall", L"north"})
        attributes.AddToGroup(doc.GroupTable().AddGroup({GK_wString(name)}, false));
    GK_Layer layer;
    layer.name = L"upper";
    attributes.layerIndex = doc.LayerTable().AddLayer(layer, false);
    GK_Material material;
    material.SetName(L"brick");
    material.SetDiffuse({255, 128, 0});
    material.SetShine(GK_Material::MaxShine() / 2);
    material.SetTransparency(0.25);
    GK_Texture texture;
    texture.filename = L"C:\\models\\wood.png";
    material.AddTexture(texture);
    attributes.materialIndex = doc.MaterialTable().AddMaterial(material, false);
    attributes.SetMaterialSource(GK::material_from_object);
    attributes.name = L"h\u00E4use\x1B\n";

    Add<CKelvoMeshObject>(doc, attributes, [](auto& object) { object.SetMesh(Mesh()); });
    attributes.Default();
    Add<CKelvoCurveObject>(doc, attributes, [](auto& object) { object.SetCurve(Curve()); });
    doc.AddPointObject({1, 2.5, -3}, attributes, nullptr, false);
    GK_PointCloud cloud;
    cloud.AppendPoint({1, 2, 3});
    cloud.AppendPoint({4, 5, 6});
    Add<CKelvoPointCloudObject>(doc, attributes,
                                [&](auto& object) { object.SetPointCloud(cloud); });
    Add<CKelvoBrepObject>(doc, attributes, [](auto& object) { object.SetBrep(Brep()); });
}

ImportRecord SampleImport()
{
    ImportRecord import;
    import.file = "sc\xC3\xA4ne.obj";
    import.result = true;
    import.journal.prints = {"a \"line\"\n"};
    import.journal.boxes = {{ "text", "caption", 48 }};
    import.journal.kernelErrors = {{"mesh", "Bogus.\n"}, { "mesh", "Bogus.\n" }};
    import.journal.refused = {{ "curve", "the curve has no knots" }};
    import.journal.redrawn = true;
    return import;
}

std::string Written(const std::function<void(TextOutput&)>& write)
{
    std::FILE* stream = std::tmpfile();
    {
        TextOutput output(stream);
        write(output);
        if (!output.Finish().empty())
            throw std::runtime_error("writing failed");
    }
    std::rewind(stream);
    std::string text;
    for (int byte = std::fgetc(stream); byte != EOF; byte = std::fgetc(stream))
        text += static_cast<char>(byte);
    std::fclose(stream);
    return text;
}
