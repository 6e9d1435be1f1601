#include "objimport/often_texts.h"

#include "console_host/app/printable.h"
#include "objimport/text_table.h"

#include <utility>

/// Returns what stands for a text, or null when there are enough others.
OftenTexts::OftenText* OftenTexts::FindOrAdd(const KindAndText& text)
{
    if (m_last < m_texts.size() && m_texts[m_last].text == text)
        return &m_texts[m_last];
    auto place = m_places.find(text);
    if (place == m_places.end()) {
        if (m_texts.size() == m_most)
            return nullptr;
        place = m_places.emplace(text, m_texts.size()).first;
        m_texts.push_back({text});
    }
    m_last = place->second;
    return &m_texts[m_last];
}

void OftenTexts::Add(std::string_view kind, std::string_view text, std::size_t times)
{
    if (OftenText* const often = FindOrAdd({kind, text}))
        often->count += times;
    else
        m_leftOut += times;
}

void OftenTexts::Add(std::string_view kind, std::string_view text, int number,
                     const ProgramText& mark, std::string_view name)
{
    constexpr std::size_t MostNumbers = 5;
    Add(kind, text);
    OftenText* const often = FindOrAdd({kind, text});
    if (often == nullptr || number <= 0 || often->numbers.size() == MostNumbers)
        return;
    often->mark = &mark;
    often->numbers.emplace_back(number, name);
}

/// Returns " (7 times: no. 1, 2 "wall", 5, 8, 9, ...)".
std::string OftenTexts::HowOften(const OftenText& often)
{
    constexpr int LongestName = 60;
    std::string text = often.count > 1 ? Say(Texts::Times, {Number(often.count)}) : "";
    std::string before = (text.empty() ? "" : ": ") + Say(*often.mark);
    for (const auto& [number, name] : often.numbers) {
        text += std::exchange(before, ", ") + std::to_string(number);
        if (!name.empty())
            text.append(" \"").append(Shortened(PrintableLine(name), LongestName)).append("\"");
    }
    if (!often.numbers.empty() && often.count > often.numbers.size())
        text += ", ...";
    return text.empty() ? "" : " (" + text + ")";
}

void OftenTexts::Write(const Page& page,
                       std::string (*inWords)(std::string_view kind, std::string_view text)) const
{
    for (const OftenText& often : m_texts)
        page.Line("    " + inWords(often.text.first, often.text.second) + HowOften(often));
    if (m_leftOut > 0)
        page.Line("    " + Say(Texts::LeftOutOfTable, {Number(m_leftOut)}));
}
