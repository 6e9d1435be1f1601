#include "materials/split_outcomes.h"

#include "materials/texture_splitting.h"

bool SplitOutcomes::Split(GK_Texture& diffuse, GK_Texture& alpha)
{
    const std::wstring source(diffuse.filename.View());
    std::wstring& lastSource = m_sources[source.substr(0, source.rfind(L'.'))];
    const auto earlier = m_outcomes.find(source);
    if (earlier != m_outcomes.end() && lastSource == source) {
        diffuse = earlier->second.diffuse;
        alpha = earlier->second.alpha;
        return earlier->second.result;
    }
    const bool result = SplitTexture(diffuse, alpha);
    m_outcomes[source] = {result, diffuse, alpha};
    lastSource = source;
    return result;
}
