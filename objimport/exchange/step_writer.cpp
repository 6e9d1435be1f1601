#include "objimport/exchange/step_writer.h"

#include "objimport/exchange/library_failure.h"
#include "objimport/exchange/step_seams.h"
#include "objimport/exchange/step_text.h"
#include "objimport/exchange/stream_output.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <Interface_CheckIterator.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <StepData_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepData_StepWriter.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TDocStd_Document.hxx>
#include <XSControl_WorkSession.hxx>
#include <array>
#include <cstdlib>
#include <ctime>
#include <ostream>
#include <stdexcept>

namespace {

// Sets up the library, which prints on standard output and keeps its settings for the whole
// process.
void SetUpLibrary()
{
    Message::DefaultMessenger()->ChangePrinters().Clear();
    STEPControl_Controller::Init();
    Interface_Static::SetCVal("write.step.schema", "AP214IS");
    Interface_Static::SetCVal("write.step.unit", "MM");
    Interface_Static::SetIVal("write.surfacecurve.mode", 1); // with the 2D curves
    Interface_Static::SetIVal("write.precision.mode", 1);    // the largest tolerance of a part
}

std::string TimeStamp()
{
    std::time_t time = std::time(nullptr);
    // The environment does not change.
    if (const char* epoch = std::getenv("SOURCE_DATE_EPOCH")) // NOLINT(concurrency-mt-unsafe)
        time = static_cast<std::time_t>(std::strtoll(epoch, nullptr, 10));
    std::array<char, 32> text{};
    const std::tm* utc = std::gmtime(&time); // NOLINT(concurrency-mt-unsafe): as above
    if (utc == nullptr || std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", utc) == 0)
        return "1970-01-01T00:00:00";
    return text.data();
}

void FillHeader(const Handle(StepData_StepModel) & model)
{
    const auto text = [](const std::string& value) {
        return new TCollection_HAsciiString(value.c_str());
    };
    APIHeaderSection_MakeHeader header(model);
    header.SetName(text("document"));
    header.SetTimeStamp(text(TimeStamp()));
    header.SetAuthorValue(1, text(""));
    header.SetOrganizationValue(1, text(""));
    header.SetPreprocessorVersion(text("Open CASCADE"));
    header.SetOriginatingSystem(text("objimport " IMPORTOBJ_VERSION));
    header.SetAuthorisation(text(""));
    header.SetDescriptionValue(1, text("surfaces, curves and points"));
}

// Numbers the parts from 1: the library counts those of all assemblies of the process.
void NumberParts(const StepData_StepModel& model)
{
    int number = 0;
    for (int i = 1; i <= model.NbEntities(); ++i) {
        const auto part = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model.Value(i));
        if (!part.IsNull())
            part->SetId(new TCollection_HAsciiString(++number));
    }
}

void WriteModel(const Handle(XSControl_WorkSession) & session, std::ostream& stream)
{
    const Handle(StepData_StepModel) model = Handle(StepData_StepModel)::DownCast(session->Model());
    const Handle(StepData_Protocol) protocol =
        Handle(StepData_Protocol)::DownCast(session->Protocol());
    if (model.IsNull() || protocol.IsNull())
        throw std::runtime_error("the geometry library makes no STEP model of it");
    FillHeader(model);
    NumberParts(*model);
    DropPlaneCurvesAtPoles(*model);
    StepData_StepWriter writer(model);
    writer.SendModel(protocol);
    if (writer.CheckList().Status() == Interface_CheckFail)
        throw std::runtime_error("the geometry library does not write its STEP model");
    writer.Print(stream);
}

} // namespace

std::string WriteAssembly(const Handle(TDocStd_Document) & assembly, std::FILE* stream)
{
    StreamOutput output(stream);
    StepText text(output);
    const auto failure = FailureOf([&] {
        SetUpLibrary();
        STEPCAFControl_Writer writer;
        if (!writer.Transfer(assembly, STEPControl_AsIs))
            throw std::runtime_error("the geometry library makes no STEP parts of it");
        std::ostream formatted(&text);
        WriteModel(writer.ChangeWriter().WS(), formatted);
        text.Finish();
    });
    return failure ? *failure : output.Finish();
}
