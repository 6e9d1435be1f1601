#include "objimport/exchange/step_file.h"

#include "objimport/exchange/counted.h"
#include "objimport/exchange/step_document.h"

namespace {

std::string ContentsOf(const StepDocument::Counts& counts)
{
    std::string text;
    const auto add = [&](std::size_t count, const char* one, const char* many) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + Counted(count, one, many);
    };
    add(counts.surfaces, "surface", "surfaces");
    if (counts.surfaces > 0)
        text += " with " + Counted(counts.faces, "face", "faces");
    add(counts.curves, "curve", "curves");
    add(counts.points, "point", "points");
    return text;
}

std::vector<std::string> LossesOf(const StepDocument::Left& left)
{
    std::vector<std::string> losses;
    if (left.meshes > 0)
        losses.push_back(Counted(left.meshes, "mesh is", "meshes are") +
                         " left out: the STEP file holds surfaces, curves and points");
    for (const auto& [why, count] : left.surfaces)
        losses.push_back(Counted(count, "surface is", "surfaces are") + " left out: " + why);
    for (const auto& [why, count] : left.curves)
        losses.push_back(Counted(count, "curve is", "curves are") + " left out: " + why);
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
