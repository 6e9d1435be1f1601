#pragma once

#include "console_host/app/document_tables.h"

#include "host/app/doc.h"

#include <deque>
#include <variant>
#include <vector>

/// The geometry of something in a document, by its kind; null when there is none.
using AnyGeometry = std::variant<const GK_Mesh*, const GK_Curve*, const GK_3dPoint*,
                                 const GK_PointCloud*, const GK_Brep*>;

/// A view of something in a document; valid until the document changes.
struct DocumentObject
{
    const GK_MdxObjectAttributes* attributes;
    AnyGeometry geometry;
};

/// Returns the geometry of an object, null while it has none.
AnyGeometry GeometryOf(const CKelvoObject& object);

/// Returns the kind of geometry in one word: "mesh", "curve", "point", "point_cloud", "brep".
const char* KindOf(const AnyGeometry& geometry);

/// A view of a document; the console shows none, so it only knows what it would show.
class CKelvoView
{
public:
    GK_BoundingBox shown;
};

/// The console host's document: what was added, in its order, and one view of it.
class ConsoleDoc final : public CKelvoDoc
{
public:
    explicit ConsoleDoc(double absoluteTolerance);

    [[nodiscard]] double AbsoluteTolerance() const override { return m_absoluteTolerance; }
    CKelvoLayerTable& LayerTable() override { return m_layers; }
    CKelvoGroupTable& GroupTable() override { return m_groups; }
    CKelvoMaterialTable& MaterialTable() override { return m_materials; }
    bool AddObject(std::unique_ptr<CKelvoObject> object, bool reference, bool selected) override;
    bool AddPointObject(const GK_3dPoint& point, const GK_MdxObjectAttributes& attributes,
                        const CKelvoHistory* history, bool reference) override;
    void GetViewList(CKelvoViewList& views, bool modelViews, bool pageViews) override;
    void Redraw() override;

    [[nodiscard]] const GK_ClassArray<GK_Layer>& Layers() const { return m_layers.Layers(); }
    [[nodiscard]] const GK_ClassArray<GK_Group>& Groups() const { return m_groups.Groups(); }
    [[nodiscard]] const GK_ClassArray<GK_Material>& Materials() const
    {
        return m_materials.Materials();
    }

    /// Objects and points together, in the order of adding.
    [[nodiscard]] int ObjectCount() const { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] DocumentObject Object(int index) const;

    [[nodiscard]] const CKelvoView& View() const { return m_view; }

private:
    /// An object, or a point when there is no object; points that follow each other share equal
    /// attributes, since there may be very many of them.
    struct Entry
    {
        std::unique_ptr<CKelvoObject> object;
        const GK_MdxObjectAttributes* pointAttributes = nullptr;
        GK_3dPoint point;
    };

    void CheckAttributes(const char* call, const GK_MdxObjectAttributes& attributes) const;

    double m_absoluteTolerance;
    ::LayerTable m_layers;
    ::GroupTable m_groups;
    ::MaterialTable m_materials;
    std::vector<Entry> m_entries;
    std::deque<GK_MdxObjectAttributes> m_pointAttributes;
    CKelvoView m_view;
};
