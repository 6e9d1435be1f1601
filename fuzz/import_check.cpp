#include "fuzz/import_check.h"

#include "console_host/app/console_app.h"
#include "console_host/framework/work_note.h"
#include "fuzz/own_folder.h"
#include "objimport/document_json.h"
#include "objimport/file_report.h"
#include "objimport/summary.h"
#include "plugin/read_obj.h"
#include "tests/json_values.h"

#include "host/app/doc.h"

namespace {

/// What is written to a stream.
template <class Write>
std::string Written(Write write)
{
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* const stream = open_memstream(&text, &size);
    {
        TextOutput output(stream);
        write(output);
        Expect(output.Finish().empty());
    }
    std::fclose(stream);
    std::string written(text, size);
    std::free(text);
    return written;
}

void CheckWrittenForms(ConsoleDoc& doc, const ImportRecord& record)
{
    const std::span imports(&record, 1);
    const std::string text =
        Written([&](TextOutput& output) { WriteDocumentJson(output, imports, doc); });
    const auto holds = [&](const char* place, std::size_t count) {
        Expect(JsonCount(text, place) == count);
    };
    holds("/objects", static_cast<std::size_t>(doc.ObjectCount()));
    holds("/groups", static_cast<std::size_t>(doc.Groups().Count()));
    holds("/materials", static_cast<std::size_t>(doc.Materials().Count()));
    holds("/imports/0/prints", record.journal.prints.size());
    const std::string summary = Written([&](TextOutput& output) {
        WriteFileReport(Page(output), record, doc);
        WriteSummary(Page(output), doc);
    });
    constexpr std::size_t LongestSummary = 100'000;
    Expect(summary.size() < LongestSummary);
}

/// What was imported is shown whole.
void CheckView(ConsoleDoc& doc)
{
    CKelvoViewList views;
    doc.GetViewList(views, true, false);
    KvZoomExtentsHelper(KvZoomExtentsBoundingBox(doc), doc, views);
    doc.Redraw();
    const GK_BoundingBox& box = doc.View().shown;
    Expect(doc.ObjectCount() == 0 ||
           (box.min.x <= box.max.x && box.min.y <= box.max.y && box.min.z <= box.max.z));
}

} // namespace

void SetOptions(CReadOBJ& reader, unsigned int choice)
{
    reader.choices.HowToAddGs = static_cast<int>(choice % 4);
    reader.choices.UseONames = (choice & 4U) != 0;
    reader.choices.ImportAsMorphTarget = (choice & 24U) == 24U;
    reader.choices.ReverseGroupOrder = (choice & 32U) != 0;
    reader.choices.ZUp = (choice & 64U) != 0;
    reader.choices.IgnoreTextures = (choice & 128U) != 0;
    reader.choices.Split32bitTextures = true;
}

void ImportAndCheck(const wchar_t* path, unsigned int options)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.SetPrintStream(nullptr);
    app.TakeJournal();
    ConsoleDoc doc(0.001);
    const CKelvoFileReadOptions readOptions;
    ImportRecord record{"fuzz.obj", false, {}};
    {
        CReadOBJ reader(path, doc, readOptions);
        SetOptions(reader, options);
        reader.Parse();
        record.result = reader.Build();
    }
    CheckView(doc);
    record.journal = app.TakeJournal();
    for (const ImportJournal::KernelError& error : record.journal.kernelErrors)
        Expect(error.source != "host"); // a rule of the host was broken
    Expect(WorkNote::Instance().Depth() == 0);
    CheckWrittenForms(doc, record);
}
