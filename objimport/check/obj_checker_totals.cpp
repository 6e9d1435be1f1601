#include "objimport/check/check_texts.h"
#include "objimport/check/mtl_checker.h"
#include "objimport/check/obj_checker.h"

#include "host/runtime/file.h"

void ObjChecker::OnMaterialLibrary(const std::string& name)
{
    const bool isNew = m_librariesTold.insert(name).second;
    const auto found = m_finder.FindLibrary(name);
    if (!found) {
        const bool manyWords = name.find(' ') != std::string::npos;
        m_place.Report(manyWords ? CheckTexts::NoLibraryOfNames : CheckTexts::NoLibrary, name);
        return;
    }
    if (isNew && !found->sameCase)
        m_place.Report(CheckTexts::LibraryFoundAs, name, found->writtenAs);
    if (m_libraries.contains(found->path))
        return;
    if (CheckLibrary(*found))
        m_libraries.insert(found->path);
    else
        m_place.Report(CheckTexts::LibraryUnreadable, name);
}

/// Checks a library; returns false when it cannot be opened.
bool ObjChecker::CheckLibrary(const FoundFile& found)
{
    std::FILE* const stream = _wfopen(found.path.c_str(), L"rb");
    if (stream == nullptr)
        return false;
    Findings& findings = m_place.findings;
    MtlChecker library(stream, {findings, findings.AddFile(found.name), 0}, m_finder, m_materials,
                       m_names);
    library.Check();
    m_totals.textures += library.TextureCount();
    return true;
}

/// Counts the lines that were read in place with the others.
void ObjChecker::CountPlainLines()
{
    StatementCounts& statements = m_totals.statements;
    const auto count = [&statements](const char* keyword, const PlainLines& lines) {
        if (lines.count > 0)
            statements.CountLines(keyword, lines.first, lines.count);
    };
    count("v", m_plainPositions);
    count("vt", m_plainTexCoords);
    count("vn", m_plainNormals);
    count("f", m_plainFaces);
}

void ObjChecker::FinishTotals()
{
    CountPlainLines();
    const VertexLists& lists = m_file.lists;
    m_totals.lines = m_nextLine - 1 - m_totals.unread;
    m_totals.positions = static_cast<std::size_t>(lists.vertices.Count());
    m_totals.texCoords = static_cast<std::size_t>(lists.texCoords.Count());
    m_totals.normals = static_cast<std::size_t>(lists.normals.Count());
    m_totals.faces = m_faces.MeshFaces();
    m_totals.curves = m_freeform.CurveCount();
    m_totals.surfaces = m_freeform.SurfaceCount();
    m_totals.low = m_vertices.Low();
    m_totals.high = m_vertices.High();
    m_totals.groups = m_groupNames.size();
    m_totals.objects = m_objectNames.size();
    m_totals.materialsUsed = m_materials.UsedCount();
    m_totals.materialsDefined = m_materials.DefinedCount();
    m_totals.libraries = m_libraries.size();
    m_totals.badIndices = static_cast<std::size_t>(m_file.BogusIndexCount);
}
