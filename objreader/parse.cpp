#include "objreader/parse.h"

#include "objreader/plain_lines.h"
#include "objreader/read_ahead.h"
#include "objreader/statement_table.h"

#include <optional>

namespace {

/// Hands the current line to its handler. False ends the parse.
bool HandleStatement(ObjReading& reading)
{
    const Statement* const statement = FindStatement(reading.tokenizer.Token(0));
    if (statement == nullptr || statement->handler(reading))
        return true;
    if (statement->onFailure == OnFailure::ReportBogusFace)
        reading.events.OnBogusFace();
    return statement->onFailure != OnFailure::EndParse;
}

/// Has the other threads stop, also when an exception ends the reading.
struct StopAtEnd
{
    ReadAhead& ahead;
    ~StopAtEnd() { ahead.Stop(); }
};

/// Counts relative indices, which are counted from the beginning of a segment's lists, from the
/// beginning of the file. `before` says how many elements that is.
void MakeAbsolute(const FaceRun& faces, const ListCounts& before)
{
    int* const values = faces.block->values.Array();
    for (int row = faces.firstValue; row < faces.EndValue(); row += faces.form.stride) {
        values[row] += before.vertices;
        if (faces.form.textureAt != 0)
            values[row + faces.form.textureAt] += before.texCoords;
        if (faces.form.normalAt != 0)
            values[row + faces.form.normalAt] += before.normals;
    }
}

/// Adds the faces of plain lines to the current record.
void AddFaces(ObjReading& reading, FaceRun faces)
{
    if (faces.faceCount == 0)
        return;
    if (reading.choices.ImportAsMorphTarget)
        faces.form.textureAt = faces.form.normalAt = 0;
    reading.currentGroup->GeometryToFill().AddFaces(faces);
}

/// Takes the lines at the cursor from what was read ahead. False, and nothing done, when none were,
/// or when one of their faces has an index of no element.
bool TakeLinesReadAhead(ObjReading& reading)
{
    CObjLineTokenizer& tokenizer = reading.tokenizer;
    const PlainRun* const run = tokenizer.RunAtCursor();
    if (run == nullptr)
        return false;
    Segment& segment = tokenizer.CurrentSegment();
    VertexLists& lists = reading.file.lists;
    const ListCounts first = segment.ListsBefore(*run);
    const ListCounts before = CountsOf(lists) - first;
    if (!run->needs.AreMetBy(before.vertices, before.texCoords, before.normals))
        return false;
    if (segment.faces)
        reading.file.faceBlocks.Add(std::move(segment.faces));
    if (run->needs.relative)
        MakeAbsolute(run->faces, before);
    AppendLists(lists, segment.lists, first, run->listEnds);
    AddFaces(reading, run->faces);
    tokenizer.SkipTo(run->end);
    return true;
}

/// Reads the lines at the cursor that are plain ones, which nearly all lines of a file are. False,
/// and nothing done, when the next one is not.
bool ReadPlainStatements(ObjReading& reading)
{
    CObjLineTokenizer& tokenizer = reading.tokenizer;
    const PlainTarget target{reading.file.lists, reading.file.faceBlocks.BlockToFill(), true};
    const PlainRun run =
        ReadPlainLines(tokenizer.Front(), tokenizer.Cursor(), tokenizer.NextRunOrEnd(), target);
    AddFaces(reading, run.faces);
    tokenizer.SkipTo(run.end);
    return !run.IsEmpty();
}

/// Times the stages of reading in some of the segments, which stand for all.
class ReadingLaps
{
public:
    explicit ReadingLaps(ObjReading& reading) : m_reading(reading) {}

    /// Begins with the current segment.
    void BeginSegment()
    {
        m_reading.times.Add(m_reading.tokenizer.CurrentSegment().times);
        m_laps.emplace(m_reading.times, m_sampling.NextWeight());
    }

    void Lap(ImportStage stage)
    {
        if (m_laps)
            m_laps->Lap(stage);
    }

private:
    static constexpr int SamplingInterval = 7;

    ObjReading& m_reading;
    StageSampling m_sampling{SamplingInterval};
    std::optional<StageLaps> m_laps;
};

/// Reads one statement, or many that are plain lines. False when reading ends with it.
bool ReadStatements(ObjReading& reading, ReadingLaps& laps)
{
    if (TakeLinesReadAhead(reading)) {
        laps.Lap(ImportStage::JoinBlocks);
        return true;
    }
    const bool isPlain = ReadPlainStatements(reading);
    laps.Lap(ImportStage::PlainLines);
    if (isPlain)
        return true;
    reading.tokenizer.ReadLine();
    const bool result = reading.tokenizer.TokenCount() == 0 || HandleStatement(reading);
    laps.Lap(ImportStage::OtherLines);
    return result;
}

/// Reads until the end of the file, until `mayGoOn` says no, or until a statement ends the parse,
/// which is false.
template <class MayGoOn>
bool ParseLines(ObjReading& reading, const MayGoOn& mayGoOn)
{
    CObjLineTokenizer& tokenizer = reading.tokenizer;
    ReadingLaps laps(reading);
    bool result = true;
    while (result && !tokenizer.AtEnd() && mayGoOn()) {
        const bool newSegment = tokenizer.AtSegmentEnd();
        if (!tokenizer.FetchLine())
            return false;
        if (newSegment)
            laps.BeginSegment();
        result = ReadStatements(reading, laps);
    }
    return result;
}

/// Reads the rest of the file with all threads of the team: plain lines are read ahead by all of
/// them, everything else by this one.
bool ParseWithTeam(ObjReading& reading, const ThreadUse& threads)
{
    SegmentSource& source = reading.tokenizer.Source();
    constexpr std::size_t SegmentsPerThread = 2;
    ReadAhead ahead(source.Reader(), threads.blockSize,
                    SegmentsPerThread * threads.team.ThreadCount());
    const SegmentSource::AheadUse use(source, ahead);
    bool result = false;
    threads.team.Run([&](unsigned thread) {
        if (thread != 0)
            return ahead.Work();
        const StopAtEnd stop{ahead};
        result = ParseLines(reading, [] { return true; });
    });
    return result;
}

} // namespace

bool ParseStatements(ObjReading& reading)
{
    return ParseLines(reading, [] { return true; }) && !reading.tokenizer.ReadFailed();
}

bool ParseStatements(ObjReading& reading, const ThreadUse& threads)
{
    if (threads.team.ThreadCount() < 2)
        return ParseStatements(reading);
    SegmentReader& reader = reading.tokenizer.Source().Reader();
    const auto isSmall = [&] { return reader.BytesRead() < threads.startAfter; };
    return ParseLines(reading, isSmall) &&
           (reading.tokenizer.AtEnd() || ParseWithTeam(reading, threads)) &&
           !reading.tokenizer.ReadFailed();
}
