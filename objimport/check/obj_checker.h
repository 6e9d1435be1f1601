#pragma once

#include "objimport/check/end_reasons.h"
#include "objimport/check/face_checks.h"
#include "objimport/check/file_finder.h"
#include "objimport/check/findings.h"
#include "objimport/check/freeform_checks.h"
#include "objimport/check/material_names.h"
#include "objimport/check/statement_counts.h"
#include "objimport/check/vertex_checks.h"
#include "objreader/obj_reading.h"
#include "objreader/plain_statements.h"

#include <set>

/// What a file and its libraries hold.
struct CheckTotals
{
    std::size_t lines = 0;  ///< that are read
    std::size_t unread = 0; ///< after the statement that ends the reading
    StatementCounts statements;
    std::size_t positions = 0;
    std::size_t texCoords = 0;
    std::size_t normals = 0;
    std::size_t faces = 0; ///< that become part of a mesh
    std::size_t curves = 0;
    std::size_t surfaces = 0;
    GK_3dPoint low; ///< of finite positions; above `high` when there is none
    GK_3dPoint high;
    std::size_t groups = 0; ///< different names
    std::size_t objects = 0;
    std::size_t materialsUsed = 0;
    std::size_t materialsDefined = 0;
    std::size_t libraries = 0; ///< that were found
    std::size_t textures = 0;
    std::size_t badIndices = 0; ///< that name nothing that was read before
};

/// Holds one OBJ file, and the libraries that it names, against the format, statement by statement
/// as an import reads them.
class ObjChecker : private ReadingEvents
{
public:
    /// Takes ownership of the open stream. `file` is the file's place in the list of `findings`.
    /// All that is referred to must outlive the object.
    ObjChecker(std::FILE* stream, Findings& findings, int file, FileFinder& finder,
               double tolerance);
    ObjChecker(const ObjChecker&) = delete;
    ObjChecker& operator=(const ObjChecker&) = delete;
    ~ObjChecker() override;

    /// Reads the file and reports what is found; to be called once.
    CheckTotals Check();

private:
    void ReadPlainLines();
    bool ReadPlainLine(PlainText& text);
    bool ReadPlainPosition(PlainText& text);
    bool ReadPlainCorners(PlainText& text);
    void ReadLines();
    bool ReadLine();
    bool HandleLine();
    void AfterStatement(const char* keyword, bool result);
    void AfterPosition();
    void AfterFace(bool result);
    void AfterName(const char* keyword);
    void CheckGroupNames();
    void ReportEnd();
    bool CheckLibrary(const FoundFile& found);
    void FinishTotals();
    void CountPlainLines();

    void OnBogusFace() override {}
    void OnBadCorner(BadField field, int listLength, const char* token) override;
    void OnWrongKnotCount() override { m_told.wrongKnotCount = true; }
    void OnUnsupportedCurve(CurveForm form) override { m_told.form = NameOfForm(form); }
    void OnUnsupportedSurface(CurveForm form) override { m_told.form = NameOfForm(form); }
    void OnMaterialLibrary(const std::string& name) override;

    /// Lines that were read in place.
    struct PlainLines
    {
        std::size_t count = 0;
        std::size_t first = 0;

        void Note(std::size_t line)
        {
            if (count++ == 0)
                first = line;
        }
    };

    CObjLineTokenizer m_tokenizer;
    std::string m_raw; ///< the current line as it stands in the file
    ImportChoices m_choices;
    ObjFile m_file;
    ObjReading m_reading;

    CheckPlace m_place;
    std::size_t m_nextLine = 1;
    FileFinder& m_finder;
    VertexChecks m_vertices;
    FaceChecks m_faces;
    FreeformChecks m_freeform;
    MaterialNames m_materials;
    NameChecks m_names;
    std::set<std::wstring> m_libraries; ///< paths of those that were read
    std::set<std::string> m_librariesTold;
    std::set<std::string, std::less<>> m_groupNames;
    std::set<std::string, std::less<>> m_objectNames;
    StatementCounts m_ignored;
    FaceBlock m_faceBlock; ///< of the face that is being checked
    PlainLines m_plainPositions;
    PlainLines m_plainTexCoords;
    PlainLines m_plainNormals;
    PlainLines m_plainFaces;
    ToldAtEnd m_told;
    Phrase m_why;         ///< reading ends
    int m_badCorners = 0; ///< of the current line
    bool m_anyPoints = false;
    CheckTotals m_totals;
};
