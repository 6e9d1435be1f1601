#include "objimport/check/findings.h"

#include <algorithm>
#include <numeric>
#include <tuple>

void Findings::BeginGroup()
{
    m_firstOfGroup = m_kept.size();
    m_groupCounts = {};
}

int Findings::AddFile(std::string name)
{
    m_files.push_back(std::move(name));
    return static_cast<int>(m_files.size()) - 1;
}

bool Findings::Count(const CheckText& text)
{
    const auto kind = static_cast<std::size_t>(text.kind);
    m_anyLoss = m_anyLoss || text.level != CheckLevel::Note;
    ++m_counts[kind];
    return ++m_groupCounts[kind] <= m_mostOfAKind;
}

std::size_t Findings::LeftOut() const
{
    return std::accumulate(m_counts.begin(), m_counts.end(), std::size_t{0}) - m_kept.size();
}

std::vector<const Finding*> Findings::OfGroup() const
{
    std::vector<const Finding*> findings;
    for (std::size_t i = m_firstOfGroup; i < m_kept.size(); ++i)
        findings.push_back(&m_kept[i]);
    std::stable_sort(findings.begin(), findings.end(), [](const Finding* a, const Finding* b) {
        return std::tie(a->file, a->line) < std::tie(b->file, b->line);
    });
    return findings;
}
