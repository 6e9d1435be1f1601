#include "objimport/exchange/glb_file.h"

#include "objimport/exchange/brep_triangles.h"
#include "objimport/exchange/document_origin.h"
#include "objimport/exchange/drawing_losses.h"
#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/glb_buffer.h"
#include "objimport/exchange/glb_materials.h"
#include "objimport/exchange/glb_notes.h"
#include "objimport/exchange/object_drawing.h"
#include "objimport/exchange/stream_output.h"

#include <limits>
#include <map>
#include <numbers>
#include <ostream>
#include <tiny_gltf.h>

namespace {

/// Makes the model of a document, object by object.
class GlbMaker
{
public:
    explicit GlbMaker(const ExchangeDocument& document)
        : m_document(document), m_origin(OriginForSinglePrecision(document)),
          m_buffer(m_model, m_origin), m_materials(document, m_model, m_buffer), m_notes(document)
    {
        m_model.asset.version = "2.0";
        m_model.asset.generator = "objimport " IMPORTOBJ_VERSION;
    }

    void AddObjects();
    void Finish();

    [[nodiscard]] const tinygltf::Model& Model() const { return m_model; }

    /// Returns about how many bytes of memory the writing of the model takes.
    [[nodiscard]] std::size_t RoomToWrite() const;

    [[nodiscard]] std::string Contents() const;
    [[nodiscard]] std::vector<std::string> Losses() const;

private:
    int AddMesh(const ObjectDrawing& drawing);
    int MeshOfOnePoint(int material);
    int AddPrimitive(tinygltf::Primitive primitive);
    void AddRoot();

    const ExchangeDocument& m_document;
    GK_3dPoint m_origin;
    tinygltf::Model m_model;
    GlbBuffer m_buffer;
    GlbMaterials m_materials;
    GlbNotes m_notes;
    std::map<int, int> m_onePoints; ///< meshes of one point at the origin, by their materials
    std::size_t m_vertices = 0;
    std::size_t m_triangles = 0;
    DrawingLosses m_losses;
};

int GlbMaker::AddPrimitive(tinygltf::Primitive primitive)
{
    tinygltf::Mesh mesh;
    mesh.primitives.push_back(std::move(primitive));
    m_model.meshes.push_back(std::move(mesh));
    return static_cast<int>(m_model.meshes.size()) - 1;
}

/// Returns a mesh that nodes put to the places of single points, which there may be very many of.
int GlbMaker::MeshOfOnePoint(int material)
{
    const auto known = m_onePoints.find(material);
    if (known != m_onePoints.end())
        return known->second;
    tinygltf::Primitive primitive;
    primitive.mode = TINYGLTF_MODE_POINTS;
    primitive.material = material;
    primitive.attributes["POSITION"] = m_buffer.AddPositions({&m_origin, 1});
    return m_onePoints[material] = AddPrimitive(std::move(primitive));
}

/// Returns the mesh of a drawing, or -1 when there is nothing to be seen.
int GlbMaker::AddMesh(const ObjectDrawing& drawing)
{
    const bool isMesh = drawing.kind == ObjectDrawing::Kind::Triangles;
    const bool isLine = drawing.kind == ObjectDrawing::Kind::Line;
    if (drawing.positions.size() < (isLine ? 2 : 1) || (isMesh && drawing.triangles.empty()))
        return -1;
    tinygltf::Primitive primitive;
    primitive.mode = isMesh   ? TINYGLTF_MODE_TRIANGLES
                     : isLine ? TINYGLTF_MODE_LINE_STRIP
                              : TINYGLTF_MODE_POINTS;
    primitive.material = m_materials.MaterialFor(drawing.material);
    primitive.attributes["POSITION"] = m_buffer.AddPositions(drawing.positions);
    if (!drawing.normals.empty())
        primitive.attributes["NORMAL"] = m_buffer.AddNormals(drawing.normals);
    if (!drawing.textureCoordinates.empty())
        primitive.attributes["TEXCOORD_0"] =
            m_buffer.AddTextureCoordinates(drawing.textureCoordinates);
    if (!drawing.colors.empty())
        primitive.attributes["COLOR_0"] = m_buffer.AddColors(drawing.colors);
    if (isMesh)
        primitive.indices = m_buffer.AddTriangles(drawing.triangles, drawing.positions.size());
    m_vertices += drawing.positions.size();
    m_triangles += drawing.triangles.size();
    return AddPrimitive(std::move(primitive));
}

void GlbMaker::AddObjects()
{
    m_model.nodes.reserve(m_document.objects.size() + 1);
    for (std::size_t i = 0; i < m_document.objects.size(); ++i) {
        const ExchangeObject& object = m_document.objects[i];
        const ObjectDrawing drawing = DrawObject(object, m_document.tolerance);
        m_losses.Note(drawing);
        tinygltf::Node node;
        node.name = object.attributes->name.Utf8();
        node.extras = m_notes.NotesFor(i);
        if (const auto* point = std::get_if<const GK_3dPoint*>(&object.geometry)) {
            const GK_3dVector place = **point - m_origin;
            node.translation = {place.x, place.y, place.z};
            node.mesh = MeshOfOnePoint(m_materials.MaterialFor(drawing.material));
            ++m_vertices;
        } else {
            node.mesh = AddMesh(drawing);
        }
        m_model.nodes.push_back(std::move(node));
    }
}

/// Puts a node above all others where the document has to be turned or moved.
void GlbMaker::AddRoot()
{
    const auto count = static_cast<int>(m_model.nodes.size());
    std::vector<int> nodes(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        nodes[static_cast<std::size_t>(i)] = i;
    m_model.scenes.emplace_back();
    m_model.defaultScene = 0;
    if (!m_document.isZUp && m_origin == GK_origin) {
        m_model.scenes.front().nodes = std::move(nodes);
        return;
    }
    tinygltf::Node root;
    root.name = "document";
    root.children = std::move(nodes);
    const GK_3dPoint& at = m_origin;
    if (m_document.isZUp) { // a quarter turn about X, from Z to Y
        constexpr double HalfRoot = std::numbers::sqrt2 / 2.0;
        root.rotation = {-HalfRoot, 0.0, 0.0, HalfRoot};
    }
    if (!(at == GK_origin))
        root.translation =
            m_document.isZUp ? std::vector{at.x, at.z, -at.y} : std::vector{at.x, at.y, at.z};
    m_model.nodes.push_back(std::move(root));
    m_model.scenes.front().nodes = {count};
}

void GlbMaker::Finish()
{
    m_materials.SetFirstImageView(m_buffer.Finish());
    if (!m_model.nodes.empty())
        AddRoot();
}

std::size_t GlbMaker::RoomToWrite() const
{
    // What the description of each part takes, as a tree and as text.
    constexpr std::size_t OfNode = 1500;
    constexpr std::size_t OfMesh = 1500;
    constexpr std::size_t OfAccessor = 1000;
    constexpr std::size_t OfMaterial = 4000;
    constexpr std::size_t CopiesOfText = 6;
    std::size_t text = m_notes.TextSize();
    for (const tinygltf::Node& node : m_model.nodes)
        text += node.name.size();
    const std::size_t data = m_model.buffers.empty() ? 0 : m_model.buffers.front().data.size();
    return OfNode * m_model.nodes.size() + OfMesh * m_model.meshes.size() +
           OfAccessor * m_model.accessors.size() + OfMaterial * m_model.materials.size() +
           CopiesOfText * text + data;
}

std::string GlbMaker::Contents() const
{
    std::string text =
        Say(ExchangeTexts::ObjectsWith, {Counted(m_document.objects.size(), ExchangeTexts::Objects),
                                         Counted(m_vertices, ExchangeTexts::Vertices),
                                         Counted(m_triangles, ExchangeTexts::Triangles)});
    if (!m_model.materials.empty())
        text += ", " + Counted(m_model.materials.size(), ExchangeTexts::Materials);
    if (!m_model.images.empty())
        text += ", " + Counted(m_model.images.size(), ExchangeTexts::Images);
    return text;
}

std::vector<std::string> GlbMaker::Losses() const
{
    std::vector<std::string> losses;
    m_losses.AppendTo(losses);
    if (m_buffer.ClampedCount() > 0)
        losses.push_back(Counted(m_buffer.ClampedCount(), ExchangeTexts::ClampedCoordinates));
    m_materials.AddLosses(losses);
    m_notes.AddLosses(losses);
    return losses;
}

/// Throws std::bad_alloc unless so much memory is free. The JSON that tinygltf builds ends the
/// program when memory runs out while it is destroyed.
void CheckMemory(std::size_t size)
{
    unsigned char* volatile room = new unsigned char[size];
    delete[] room;
}

} // namespace

void WriteGlb(const ExchangeRequest& request, ExchangeOutcome& outcome)
{
    // The description of an object takes several KB of memory while it is put together.
    constexpr std::size_t MostObjects = 1'000'000;
    if (request.document->objects.size() > MostObjects) {
        outcome.error = "the document has " +
                        ExchangeTexts::Number(request.document->objects.size()) +
                        " objects; a GLB is written of up to " + ExchangeTexts::Number(MostObjects);
        return;
    }
    GlbMaker maker(*request.document);
    maker.AddObjects();
    maker.Finish();
    CheckMemory(maker.RoomToWrite());
    StreamOutput output(request.stream);
    std::ostream stream(&output);
    tinygltf::TinyGLTF().WriteGltfSceneToStream(&maker.Model(), stream, false, true);
    outcome.error = output.Finish();
    if (outcome.error.empty() && output.Written() > std::numeric_limits<std::uint32_t>::max())
        outcome.error = "the document is too large for a GLB, which ends at 4 GB";
    outcome.contents = maker.Contents();
    outcome.losses = maker.Losses();
}
