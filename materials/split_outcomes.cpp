#include "materials/split_outcomes.h"

#include "materials/texture_splitting.h"

#include "host/runtime/file.h"

bool SplitOutcomes::Split(GK_Texture& diffuse, GK_Texture& alpha)
{
    const GK_wString source = diffuse.filename;
    const Outcome& outcome = OutcomeOf(diffuse);
    diffuse = outcome.diffuse;
    diffuse.filename = outcome.WroteColor() ? ColorFileOf(source) : source;
    alpha = outcome.alpha;
    if (outcome.WroteAlpha())
        alpha.filename = AlphaFileOf(source);
    if (const auto files = m_filesOf.find(&outcome); files != m_filesOf.end())
        files->second->named = &outcome;
    return outcome.result;
}

void SplitOutcomes::Finish()
{
    for (auto& [path, files] : m_files) {
        if (files.written == files.named)
            continue;
        GK_Texture diffuse;
        diffuse.filename = files.named->source;
        GK_Texture alpha;
        SplitTexture(diffuse, alpha);
        files.written = files.named;
    }
}

const SplitOutcomes::Outcome& SplitOutcomes::OutcomeOf(const GK_Texture& texture)
{
    const std::wstring_view name = texture.filename.View();
    auto known = m_named.find(name);
    if (known == m_named.end())
        known = m_named.emplace(name, &SplitOnce(texture)).first;
    return *known->second;
}

const SplitOutcomes::Outcome& SplitOutcomes::SplitOnce(const GK_Texture& texture)
{
    const GK_wString& source = texture.filename;
    Key key(FileKey(source.Array()), FileKey(ColorFileOf(source).Array()));
    const auto [place, isNew] = m_outcomes.try_emplace(key);
    Outcome& outcome = place->second;
    if (!isNew)
        return outcome;
    outcome.source = source;
    outcome.diffuse = texture;
    outcome.result = SplitTexture(outcome.diffuse, outcome.alpha);
    if (outcome.WroteColor() || outcome.WroteAlpha()) {
        Files& files = m_files[key.second];
        files.written = &outcome;
        m_filesOf[&outcome] = &files;
    }
    return outcome;
}
