#include "plugin/read_obj.h"

#include "geometry/document_objects.h"
#include "plugin/unsupported_form.h"

#include "host/app/app.h"
#include "host/app/localize.h"
#include "host/framework/wait_cursor.h"

CReadOBJ::CReadOBJ(const wchar_t* path, CKelvoDoc& document, const CKelvoFileReadOptions& options)
    : doc(document), readOptions(options), m_tokenizer(path),
      m_reading(m_tokenizer, choices, *this, m_file),
      m_libraries(path, choices, document.MaterialTable())
{
}

CReadOBJ::~CReadOBJ() = default;

bool CReadOBJ::Parse()
{
    const CWaitCursor waitCursor;
    const bool result = ParseStatements(m_reading, m_threads);
    m_times.Add(m_reading.times);
    m_libraries.FinishTextures();
    return result;
}

bool CReadOBJ::Build()
{
    ThreadTeam* const team = m_threads.TeamAfter(m_tokenizer.Source().Reader().BytesRead());
    return DocumentObjects(m_file, choices, doc, m_threads, team, m_times).Build();
}

void CReadOBJ::OnBogusFace()
{
    m_faceMessages.PrintBogusFace();
}

void CReadOBJ::OnBadCorner(BadField field, int listLength, const char* token)
{
    m_faceMessages.PrintBadCorner(field, listLength, token);
}

void CReadOBJ::OnWrongKnotCount()
{
    KelvoApp().Print(KvLocalizeString(
        L"Knot count does not correspond with control point count in the curve.\n", 25987));
}

void CReadOBJ::OnUnsupportedCurve(CurveForm form)
{
    ShowUnsupportedCurve(form);
}

void CReadOBJ::OnUnsupportedSurface(CurveForm form)
{
    ShowUnsupportedSurface(form);
}

void CReadOBJ::OnMaterialLibrary(const std::string& name)
{
    m_libraries.ReadMaterialLibrary(name);
}
