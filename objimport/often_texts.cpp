#include "objimport/often_texts.h"

#include <utility>

void OftenTexts::Add(const std::string& text, int number, const ProgramText& mark)
{
    constexpr std::size_t MostNumbers = 5;
    auto place = m_places.find(text);
    if (place == m_places.end()) {
        if (m_texts.size() == m_most) {
            ++m_leftOut;
            return;
        }
        place = m_places.emplace(text, m_texts.size()).first;
        m_texts.push_back({text, &mark});
    }
    OftenText& often = m_texts[place->second];
    ++often.count;
    if (number > 0 && often.numbers.size() < MostNumbers)
        often.numbers.push_back(number);
}

/// Returns " (7 times: no. 1, 2, 5, 8, 9, ...)".
std::string OftenTexts::HowOften(const OftenText& often)
{
    std::string text = often.count > 1 ? Say(Texts::Times, {Number(often.count)}) : "";
    std::string before = (text.empty() ? "" : ": ") + Say(*often.mark);
    for (const int number : often.numbers)
        text += std::exchange(before, ", ") + std::to_string(number);
    if (!often.numbers.empty() && often.count > often.numbers.size())
        text += ", ...";
    return text.empty() ? "" : " (" + text + ")";
}

void OftenTexts::Write(const Page& page) const
{
    for (const OftenText& often : m_texts)
        page.Line("    " + often.text + HowOften(often));
    if (m_leftOut > 0)
        page.Line("    " + Say(Texts::LeftOutOfTable, {Number(m_leftOut)}));
}
