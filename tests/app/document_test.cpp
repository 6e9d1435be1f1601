#include "console_host/app/console_app.h"
#include "console_host/app/document.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double Infinite = std::numeric_limits<double>::infinity();

std::unique_ptr<GK_Mesh> Triangle()
{
    auto mesh = std::make_unique<GK_Mesh>();
    for (const GK_3dPoint& point : {GK_3dPoint{0, 0, 0}, GK_3dPoint{1, 0, 0}, GK_3dPoint{0, 1, 0}})
        mesh->DoublePrecisionVertices().Append(point);
    mesh->SetDoublePrecisionVerticesAsValid();
    mesh->UpdateSinglePrecisionVertices();
    mesh->faces.Append(GK_MeshFace{{0, 1, 2, 2}});
    return mesh;
}

class Document : public testing::Test
{
protected:
    Document() { ConsoleApp::Instance().TakeJournal(); }

    /// Passes an object to the document; returns why the document refuses it.
    template <class Object, class Give>
    std::string Add(Give give)
    {
        auto object = std::make_unique<Object>(attributes);
        give(*object);
        const int before = doc.ObjectCount();
        const bool added = doc.AddObject(std::move(object), false, false);
        EXPECT_EQ(doc.ObjectCount(), before + (added ? 1 : 0));
        std::string refused = Refused();
        EXPECT_EQ(refused.empty(), added);
        return refused;
    }

    std::string AddMesh(std::unique_ptr<GK_Mesh> mesh)
    {
        return Add<CKelvoMeshObject>([&](auto& object) { object.SetMesh(std::move(mesh)); });
    }

    std::string AddCloud(const GK_PointCloud& cloud)
    {
        return Add<CKelvoPointCloudObject>([&](auto& object) { object.SetPointCloud(cloud); });
    }

    /// Returns what was refused since the last call, one after the other.
    static std::string Refused()
    {
        std::string text;
        for (const auto& refusal : ConsoleApp::Instance().TakeJournal().refused)
            text += refusal.type + ": " + refusal.reason;
        return text;
    }

    ConsoleDoc doc{0.001};
    GK_MdxObjectAttributes attributes;
};

TEST_F(Document, NotesTheNamesOfTheFirstThatItRefuses)
{
    const auto refusePoint = [this](const std::wstring& name) {
        attributes.name = GK_wString(name);
        EXPECT_FALSE(doc.AddPointObject({NAN, 0, 0}, attributes, nullptr, false));
    };
    refusePoint(L"");
    refusePoint(L"w\x00E4nd");
    refusePoint(std::wstring(2000, L'x'));
    for (int i = 0; i < 5000; ++i)
        refusePoint(L"many");
    const ImportJournal journal = ConsoleApp::Instance().TakeJournal();
    EXPECT_EQ(journal.refused.size(), 5003U);
    const auto& names = journal.refusedNames;
    EXPECT_EQ(names.size(), 1000U);
    EXPECT_EQ(names.begin()->first, 1U);
    EXPECT_EQ(names.begin()->second, "w\xC3\xA4nd");
    EXPECT_EQ(std::next(names.begin())->first, 3U);
}

TEST_F(Document, RefusesWhatIsNotSoundAndSaysWhy)
{
    EXPECT_EQ(AddMesh(Triangle()), "");
    auto mesh = Triangle();
    mesh->faces.Empty();
    EXPECT_EQ(AddMesh(std::move(mesh)), "mesh: the mesh has no faces");
    mesh = Triangle();
    mesh->DoublePrecisionVertices()[2].z = std::nan("");
    EXPECT_THAT(AddMesh(std::move(mesh)),
                HasSubstr("mesh: the mesh has a vertex that is not finite"));

    GK_PointCloud cloud;
    EXPECT_EQ(AddCloud(cloud), "point_cloud: the point cloud has no points");
    cloud.AppendPoint({0, -Infinite, 0});
    EXPECT_THAT(AddCloud(cloud), HasSubstr("point_cloud: "));

    EXPECT_FALSE(doc.AddPointObject({Infinite, 0, 0}, attributes, nullptr, false));
    EXPECT_EQ(Refused(), "point: the point is not finite");
}

TEST_F(Document, RepairsDirectionsThatAreNotFinite)
{
    auto mesh = Triangle();
    const auto infinity = static_cast<float>(Infinite);
    mesh->normals = {{1, 0, 0}, {infinity, 0, 0}, {0, std::nanf(""), 0}};
    mesh->textureCoordinates = {{0.5F, 1}, {infinity, 1}, {0, 0}};
    ASSERT_EQ(AddMesh(std::move(mesh)), "");
    const auto* added = std::get<const GK_Mesh*>(doc.Object(0).geometry);
    EXPECT_THAT(std::vector(added->normals.begin(), added->normals.end()),
                ElementsAre(GK_3fVector{1, 0, 0}, GK_3fVector{0, 0, 1}, GK_3fVector{0, 0, 1}));
    EXPECT_EQ(added->textureCoordinates[0], (GK_2fPoint{0.5F, 1}));
    EXPECT_EQ(added->textureCoordinates[1], (GK_2fPoint{0, 0}));
}

TEST_F(Document, NotesFaultsOfItsGuest)
{
    testing::internal::CaptureStderr();
    EXPECT_FALSE(doc.AddObject(nullptr, false, false));
    EXPECT_FALSE(doc.AddObject(std::make_unique<CKelvoMeshObject>(attributes), false, false));
    attributes.layerIndex = 1;
    attributes.materialIndex = 0;
    attributes.AddToGroup(0);
    EXPECT_TRUE(doc.AddPointObject({}, attributes, nullptr, false));
    const std::string notes = testing::internal::GetCapturedStderr();
    EXPECT_THAT(notes, HasSubstr("AddObject: no object"));
    EXPECT_THAT(notes, HasSubstr("AddObject: an object without geometry"));
    for (const char* kind : {"layer", "material", "group"})
        EXPECT_THAT(notes, HasSubstr(std::string("AddPointObject: a ") + kind + " index"));
    EXPECT_EQ(CurrentJournal().kernelErrors.size(), 5U);
    EXPECT_EQ(CurrentJournal().kernelErrors[0].source, "host");
}

TEST_F(Document, FindsNamesExactlyAndTheLowestIndex)
{
    GK_Layer layer;
    layer.name = L"Wall";
    const int top = doc.LayerTable().AddLayer(layer, false);
    EXPECT_EQ(layer.id, GK_nil_uuid);
    const GK_UUID topId = doc.Layers()[top].id;
    EXPECT_EQ(doc.LayerTable().AddLayer(layer, false), top + 1);
    layer.parentId = topId;
    layer.name = L"inner";
    const int inner = doc.LayerTable().AddLayer(layer, false);

    EXPECT_NE(topId, GK_nil_uuid);
    EXPECT_NE(topId, doc.Layers()[inner].id);
    EXPECT_EQ(doc.LayerTable().FindLayer(GK_nil_uuid, L"Default", true), 0);
    EXPECT_EQ(doc.LayerTable().FindLayer(GK_nil_uuid, L"Wall", true), top);
    EXPECT_EQ(doc.LayerTable().FindLayer(GK_nil_uuid, L"wall", true), -1);
    EXPECT_EQ(doc.LayerTable().FindLayer(GK_nil_uuid, L"inner", true), -1);
    EXPECT_EQ(doc.LayerTable().FindLayer(topId, L"inner", true), inner);
    EXPECT_EQ(doc.LayerTable().CurrentLayerIndex(), 0);

    GK_Material material;
    material.SetName(L"brick");
    EXPECT_EQ(doc.MaterialTable().AddMaterial(material, false), 0);
    EXPECT_EQ(doc.MaterialTable().AddMaterial(material, false), 1);
    EXPECT_EQ(doc.MaterialTable().FindMaterial(L"brick", true), 0);
    EXPECT_EQ(doc.MaterialTable().FindMaterial(L"Brick", true), -1);
}

TEST_F(Document, ObjectsAreInAGroupOnce)
{
    for (int i = 0; i < 1000; ++i)
        attributes.AddToGroup(i % 400);
    ASSERT_EQ(attributes.Groups().size(), 400U);
    for (int i = 0; i < 400; ++i)
        EXPECT_EQ(attributes.Groups()[static_cast<std::size_t>(i)], i);
}

TEST_F(Document, ObjectsShareNameAndGroups)
{
    attributes.name = L"wall";
    attributes.AddToGroup(doc.GroupTable().AddGroup({L"house"}, false));
    for (int i = 0; i < 2; ++i)
        Add<CKelvoMeshObject>([](CKelvoMeshObject& object) { object.SetMesh(Triangle()); });
    const GK_MdxObjectAttributes& first = *doc.Object(0).attributes;
    EXPECT_EQ(first.name.Array(), doc.Object(1).attributes->name.Array());
    EXPECT_EQ(&first.Groups(), &doc.Object(1).attributes->Groups());
    // What changes in one is as it was in the others.
    attributes.name += L"s";
    attributes.AddToGroup(7);
    EXPECT_EQ(first.name, GK_wString(L"wall"));
    EXPECT_THAT(first.Groups(), ElementsAre(0));
}

TEST_F(Document, ZoomsToWhatItHolds)
{
    const GK_BoundingBox empty = KvZoomExtentsBoundingBox(doc);
    EXPECT_GT(empty.min.x, empty.max.x);
    ASSERT_TRUE(doc.AddPointObject({-1, 5, 2}, attributes, nullptr, false));
    ASSERT_EQ(AddMesh(Triangle()), "");
    CKelvoViewList views;
    doc.GetViewList(views, true, true);
    ASSERT_EQ(views.Count(), 1);
    KvZoomExtentsHelper(KvZoomExtentsBoundingBox(doc), doc, views);
    doc.Redraw();
    EXPECT_EQ(doc.View().shown.min, (GK_3dPoint{-1, 0, 0}));
    EXPECT_EQ(doc.View().shown.max, (GK_3dPoint{1, 5, 2}));
    EXPECT_TRUE(CurrentJournal().zoomed && CurrentJournal().redrawn);
}

} // namespace
