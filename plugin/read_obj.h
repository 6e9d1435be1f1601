#pragma once

#include "materials/material_libraries.h"
#include "objreader/parse.h"
#include "objreader/stage_times.h"
#include "plugin/face_messages.h"

#include "host/app/doc.h"
#include "host/app/file_type.h"

/// One import of one OBJ file: it is made for the file, `Parse` reads the file into plain data and
/// its libraries into the document, `Build` adds what was read to the document. An allocation that
/// fails while an object is made costs that object; any other passes through as std::bad_alloc, and
/// what was added to the document before stays there.
class CReadOBJ : private ReadingEvents
{
public:
    /// Opens the file, by its full path. The document and the options must outlive the
    /// reader. Never fails:
    /// for a file that cannot be opened `Parse` returns false.
    CReadOBJ(const wchar_t* path, CKelvoDoc& document, const CKelvoFileReadOptions& options);
    CReadOBJ(const CReadOBJ&) = delete;
    CReadOBJ& operator=(const CReadOBJ&) = delete;
    ~CReadOBJ() override;

    ImportChoices choices; ///< to be set before Parse

    CKelvoDoc& doc;                           ///< receives the import
    const CKelvoFileReadOptions& readOptions; ///< of this import, as the host gave them

    /// Reads the whole file. False when the file could not be opened or read, or when a statement
    /// was so wrong that reading ended with it; what was read before is kept. To be called once.
    bool Parse();

    /// Reading broke off with an error of the stream.
    [[nodiscard]] bool ReadFailed() const { return m_tokenizer.ReadFailed(); }

    /// Returns how many distinct combinations of group, object and material name the file has used;
    /// at least one.
    [[nodiscard]] int GroupObjectCount() const { return m_file.groupObjects.Count(); }

    /// Returns how many indices named nothing that was read before them.
    [[nodiscard]] int BogusIndexCount() const { return m_file.BogusIndexCount; }

    /// Adds what was read to the document, record by record in the order of their names. Returns
    /// the outcome of the last object attempted: true when it was added, or when there was none.
    /// To be called once.
    bool Build();

    /// Reads and builds with so many threads, this one being one of them; 0, as at first: one for
    /// each core. The result is the same. To be called before Parse.
    void SetThreadCount(unsigned count) { m_team.SetCount(count); }

    /// Returns how threads are used; to be changed, if at all, before Parse.
    [[nodiscard]] ThreadUse& Threads() { return m_threads; }

    /// Returns what the stages have taken so far.
    [[nodiscard]] const StageTimes& Times() const { return m_times; }

private:
    void OnBogusFace() override;
    void OnBadCorner(BadField field, int listLength, const char* token) override;
    void OnWrongKnotCount() override;
    void OnUnsupportedCurve(CurveForm form) override;
    void OnUnsupportedSurface(CurveForm form) override;
    void OnMaterialLibrary(const std::string& name) override;

    CObjLineTokenizer m_tokenizer;
    ObjFile m_file;
    ObjReading m_reading;
    MaterialLibraries m_libraries;
    FaceMessages m_faceMessages;
    StageTimes m_times;
    ThreadTeam m_team{0};
    ThreadUse m_threads{m_team};
};
