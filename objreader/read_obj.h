#pragma once

#include "objreader/corner.h"
#include "objreader/name_table.h"
#include "objreader/obj_line_tokenizer.h"

#include "host/app/doc.h"
#include "host/app/file_type.h"
#include "host/geokit/class_array.h"
#include "host/geokit/color.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/string.h"
#include "host/geokit/xform.h"
#include "host/vxkit/brep.h"
#include "host/vxkit/nurbs_curve.h"
#include "host/vxkit/nurbs_surface.h"

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <span>
#include <string>

class MaterialLibraries;
class SplitOutcomes;

/// All state of one import of one OBJ file: it is made for the file, `Parse` reads the file's
/// statements into it, `Build` adds what they gathered to the document. One reader serves one
/// import. Running out of memory passes through as std::bad_alloc; what was added to the document
/// before stays there.
class CReadOBJ
{
public:
    struct Group_Object;
    struct Geometry;
    struct Face;
    struct GroupNames;

    /// Opens the file, by its full path. All three arguments must outlive the reader. Never fails:
    /// a file that cannot be opened makes `Parse` give false.
    CReadOBJ(const wchar_t* path, CKelvoDoc& document, const CKelvoFileReadOptions& options);
    CReadOBJ(const CReadOBJ&) = delete;
    CReadOBJ& operator=(const CReadOBJ&) = delete;
    ~CReadOBJ();

    // The import options, to be set before Parse.

    int HowToAddGs = 1;    ///< what group names become: 0 nothing, 1 groups, 2 layers, 3 names
    bool UseONames = true; ///< object names become names of document objects
    bool IgnoreTextures = false; ///< "usemtl" statements are ignored
    bool ImportAsMorphTarget =
        false; ///< the whole file becomes one mesh, without normals or textures
    bool ReverseGroupOrder = false;  ///< the last, not the first, name of a "g" statement counts
    bool ZUp = false;                ///< meshes are turned from Y up to Z up
    bool Split32bitTextures = false; ///< textures with an alpha channel become two files

    /// How many indices named nothing that was read so far.
    int BogusIndexCount = 0;

    /// Reads the whole file. False when the file could not be opened or read, or when a statement
    /// was so wrong that reading ended with it; what was read before is kept.
    bool Parse();

    /// How many distinct combinations of group, object and material name the file has used; at
    /// least one.
    [[nodiscard]] int GroupObjectCount() const { return static_cast<int>(groupObjects.size()); }

    /// Adds what was read to the document, record by record in the order of their names. Gives the
    /// outcome of the last object attempted: true when it was added, or when there was none.
    bool Build();

    /// Makes the geometry of a record's mesh from its faces. False when there is no mesh to add.
    bool BuildMesh(Group_Object& record);

    /// Makes a mesh fit for a document: lists in step, no useless faces or vertices, unit normals,
    /// facing outward when closed. False when nothing is left of it.
    [[nodiscard]] bool FinishMesh(GK_Mesh* mesh) const;

    /// Sets the layer, groups and name that the options give a record's objects. False for an
    /// unknown `HowToAddGs`.
    bool MakeAttributes(Group_Object& record, GK_MdxObjectAttributes& attributes);

    // Reading indices.

    /// Turns an OBJ index (from 1, or negative and counting back from the last of `count` elements)
    /// into a 0-based one. False when it names no element: the index is then -1 and has been
    /// counted.
    bool ResolveIndex(int& index, int count)
    {
        if (index >= 1 && index <= count) {
            --index;
            return true;
        }
        if (index < 0 && index >= -count) {
            index += count;
            return true;
        }
        index = -1;
        ++BogusIndexCount;
        return false;
    }

    /// Which field of a corner named nothing.
    enum BadField : int
    {
        BadFieldNone = 0,
        BadFieldVertex = 1,
        BadFieldTexture = 2,
        BadFieldNormal = 3
    };

    /// Reads one corner, "v", "v/vt", "v/vt/vn" or "v//vn"; gives how many fields it has. An empty
    /// field's index is -1. Behind a bad field nothing more is read. A corner of more than
    /// three fields is not read at all.
    int ParseCorner(const char* token, int& vi, int& ti, int& ni, int& bad_field);

    // Records, by the names in force.

    /// Makes the record of these names current, adding it when it is new.
    bool FindOrAddGroupObject(const GK_String* group, const GK_String* object,
                              const GK_String* material);

    /// Less than, equal to or greater than 0: by group name, then object name, then material name.
    static int CompareGroupObjects(const Group_Object& a, const Group_Object& b);

    // Materials.

    /// Reads the material library that the current "mtllib" statement names into the document's
    /// material table. False when the statement names none or the library cannot be opened, which
    /// is then printed.
    bool ReadMaterialLibrary();

    /// Brings the files of textures that were split to their final state; to be called when all
    /// libraries have been read.
    void FinishTextures();

    /// Puts the OBJ file's drive and folder before a file name and turns each '/' into '\'. False,
    /// with the name unchanged, for an empty name, for one that has drive, folder, name and
    /// extension, and for one with a part of more than 255 characters.
    bool CompletePath(GK_wString& path) const;

    // What the file has given so far. Lists only grow, in the order of the file.

    CObjLineTokenizer tokenizer;
    CKelvoDoc& doc;
    const CKelvoFileReadOptions& readOptions;
    const wchar_t* fileName;

    GK_wString drive; ///< parts of `fileName`, which together are `fileName` again
    GK_wString dir;
    GK_wString fname;
    GK_wString ext;

    GK_SimpleArray<GK_3dPoint> vertices; ///< positions, each coordinate rounded to single precision
    GK_SimpleArray<double> vertexWeights; ///< one for each position
    bool hasVertexColors = false;
    GK_SimpleArray<GK_Color> vertexColors;  ///< of those positions that carry one
    GK_SimpleArray<GK_2dPoint> paramPoints; ///< points in the parameter space of surfaces
    GK_SimpleArray<double> paramWeights;    ///< one for each parameter point
    GK_SimpleArray<GK_2fPoint> texCoords;
    GK_SimpleArray<GK_3fVector> normals; ///< as in the file, of any length

    /// Sorts records by CompareGroupObjects, and lets a record on the stack serve as search key.
    struct ByNames
    {
        using is_transparent = void;
        using Pointer = std::unique_ptr<Group_Object>;
        bool operator()(const Pointer& a, const Pointer& b) const { return (*this)(*a, *b); }
        bool operator()(const Pointer& a, const Group_Object& b) const { return (*this)(*a, b); }
        bool operator()(const Group_Object& a, const Pointer& b) const { return (*this)(a, *b); }
        bool operator()(const Group_Object& a, const Group_Object& b) const
        {
            return CompareGroupObjects(a, b) < 0;
        }
    };

    /// One record for each distinct combination of names, always in the order of the names. Records
    /// never move.
    std::set<std::unique_ptr<Group_Object>, ByNames> groupObjects;
    Group_Object* currentGroup = nullptr; ///< receives geometry; never null

    const GK_String* groupName = nullptr; ///< the names in force
    const GK_String* objectName = nullptr;
    const GK_String* materialName = nullptr;
    std::shared_ptr<GroupNames> groupNames; ///< all names of the last "g" statement

    // Free-form statements.

    /// Forms of curves and surfaces, as "cstype" names them.
    enum CurveForm : int
    {
        FormNone = 0,
        FormBasisMatrix = 1,
        FormBezier = 2,
        FormBSpline = 3,
        FormCardinal = 4,
        FormTaylor = 5
    };

    /// The free-form element begun last, which "parm", "trim" and "hole" apply to.
    enum FreeformKind : int
    {
        FreeformNone = 0,
        FreeformCurve = 4,
        FreeformParamCurve = 5,
        FreeformSurface = 6
    };

    int cstype = FormNone; ///< set by "cstype", as is the next
    bool rational = false; ///< control points carry weights
    int degreeU = -1;      ///< set by "deg"; -1: not given
    int degreeV = -1;
    int freeformKind = FreeformNone;
    GK_ClassArray<VX_NurbsCurve> trimCurves; ///< of all "curv2" statements, in their order
    bool parmUSet = false;                   ///< knots in u were given since the last "surf"
    bool parmVSet = false;

    std::shared_ptr<MaterialLibraries> materialLibraries; ///< null until one is named
    std::shared_ptr<SplitOutcomes> splitOutcomes;         ///< null until a texture is split

    double tolerance; ///< the document's absolute tolerance
    GK_Xform ObjYToZ; ///< (x, y, z) becomes (x, -z, y)

    static constexpr int faceMessageLimit = 25;
    int faceMessageCount = 0;
    bool faceMessagesStopped = false;

    /// Document objects are added as ordinary ones, not as references to a linked file.
    static constexpr bool AddAsReference = false;

private:
    struct Statement;
    static const Statement* FindStatement(const char* keyword);
    bool ParseStatements();
    bool HandleStatement();

    // Lines of numbers or corners with spaces between them, as nearly all are, are read in place,
    // without being cut into tokens. Any other line, also a faulty one, these leave as it is for
    // the handlers, and give false.

    bool ReadPlainStatement();
    bool ReadPlainVertex(const char* text);
    bool ReadPlainTexCoord(const char* text);
    bool ReadPlainNormal(const char* text);
    bool ReadPlainFace(const char* text);

    bool ReadVertex();
    using VertexValues = std::array<double, 6>;
    void AddVertex(const VertexValues& values, int count);
    bool ReadParamVertex();
    bool ReadTexCoord();
    bool ReadNormal();

    bool ReadFace();
    bool ReadCorner(const char* token, int& fieldCount, V_TN_IDX& corner);
    bool NewGroupMesh();
    bool ReadPoint();
    bool ReadPointCloud(Geometry& geometry);
    bool ReadVertexIndex(const char* token, int& index);

    bool MayPrintFaceMessage(int closingMessageId);
    void PrintBogusFace();
    void PrintBadCorner(int badField, const char* token);

    bool ReadGroupName();
    bool ReadObjectName();
    bool ReadMaterialUse();
    bool ReadJoinedName(const GK_String*& name);
    bool SelectGroupObject();

    bool ReadCSType();
    bool ReadDegree();
    /// The degree and one, kept within 32 bits.
    static int OrderOf(int degree);
    bool ReadCurve(bool bParameterSpace);
    bool ReadSpaceCurve() { return ReadCurve(false); }
    bool ReadParamCurve() { return ReadCurve(true); }
    bool ReadControlPoints(VX_NurbsCurve& curve, int firstToken, bool bParameterSpace);
    bool ReadParm();
    bool ReadCurveParm();
    bool ReadBSplineKnots(GK_NurbsCurve& curve);
    void ReadBezierKnots(GK_NurbsCurve& curve);
    [[nodiscard]] VX_NurbsCurve* CurrentCurve();

    bool ReadSurface();
    bool NewSurface();
    bool ReadSurfaceParm();
    bool ReadBSplineKnots(GK_NurbsSurface& surface, int direction);
    bool ReadBezierKnots(GK_NurbsSurface& surface, int direction);
    void CompleteSurface(VX_Brep& brep, GK_NurbsSurface& surface);

    bool ReadTrimLoop();
    bool ReadTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex, int firstToken);
    void AddTrim(VX_Brep& brep, const VX_NurbsSurface& surface, int loopIndex, int curveIndex,
                 const GK_Interval& part);
    [[nodiscard]] VX_Brep* CurrentBrep();

    void MakeMeshVertices(Geometry& geometry);
    bool MakeMeshFaces(Geometry& geometry);
    bool AddNgon(GK_Mesh& mesh, std::span<const int> corners);

    void BuildRecord(Group_Object& record, GK_MdxObjectAttributes& attributes, bool& result);
    void AddMesh(Group_Object& record, const GK_MdxObjectAttributes& attributes, bool& result);
    void AddPoints(const Geometry& geometry, const GK_MdxObjectAttributes& attributes,
                   bool& result);
    bool AddPointCloud(std::span<const int> indices, const GK_MdxObjectAttributes& attributes);
    void AddCurves(Geometry& geometry, const GK_MdxObjectAttributes& attributes, bool& result);
    void AddBreps(Geometry& geometry, const GK_MdxObjectAttributes& attributes, bool& result);
    void SetName(GK_MdxObjectAttributes& attributes, const GK_String* name);
    void EnterGroupNames(GroupNames* names);
    int FindOrAddGroup(const GK_wString& name);
    int FindOrAddLayer(const GK_wString& name, GK_UUID& parentId);

    NameTable m_names;
    const GK_String* m_wideNameOf = nullptr; ///< whose wide form the following is
    GK_wString m_wideName;
    std::string m_joinedName; ///< scratch, as are the following: kept to be used again
    GK_SimpleArray<int> meshFaceIndices;
    GK_SimpleArray<double> m_polygonPoints;
    GK_SimpleArray<int> m_polygonTriangles;
};
