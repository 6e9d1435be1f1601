#include "objimport/exchange/step_file.h"

#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/step_document.h"

namespace {

std::string ContentsOf(const StepDocument::Counts& counts)
{
    std::string text;
    const auto add = [&](std::size_t count, const std::string& counted) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + counted;
    };
    add(counts.surfaces,
        Say(ExchangeTexts::SurfacesWith, {Counted(counts.surfaces, ExchangeTexts::Surfaces),
                                          Counted(counts.faces, ExchangeTexts::Faces)}));
    add(counts.curves, Counted(counts.curves, ExchangeTexts::Curves));
    add(counts.points, Counted(counts.points, ExchangeTexts::Points));
    return text;
}

std::vector<std::string> LossesOf(const StepDocument::Left& left)
{
    std::vector<std::string> losses;
    if (left.meshes > 0)
        losses.push_back(Counted(left.meshes, ExchangeTexts::MeshesLeftOut));
    for (const auto& [why, count] : left.surfaces)
        losses.push_back(Counted(count, ExchangeTexts::SurfacesLeftOut, why));
    for (const auto& [why, count] : left.curves)
        losses.push_back(Counted(count, ExchangeTexts::CurvesLeftOut, why));
    return losses;
}

} // namespace

const char* WhyStepIsMissing()
{
    return nullptr;
}

void WriteStep(const ExchangeRequest& request, ExchangeOutcome& outcome)
{
    const StepDocument step(*request.document);
    outcome.contents = ContentsOf(step.Written());
    outcome.losses = LossesOf(step.LeftOut());
    outcome.error = outcome.contents.empty()
                        ? "the document holds no surface, curve or point that a STEP file can hold"
                        : step.Write(request.stream);
}
