#pragma once

#include "objimport/page.h"
#include "objimport/program_texts.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// Texts that occur once or more often, and what they are about. One file can cause very many.
class OftenTexts
{
public:
    /// Takes how many different texts are kept.
    explicit OftenTexts(std::size_t most) : m_most(most) {}

    /// Adds a text of something; its number is 0 when it has none, and stands after the mark.
    void Add(const std::string& text, int number = 0, const ProgramText& mark = Texts::NumberMark);

    /// Writes the texts, each once, in the order in which they first occurred.
    void Write(const Page& page) const;

private:
    struct OftenText
    {
        std::string text;
        const ProgramText* mark; ///< of the numbers
        std::size_t count = 0;
        std::vector<int> numbers{}; ///< the first few
    };

    static std::string HowOften(const OftenText& often);

    std::size_t m_most;
    std::vector<OftenText> m_texts;
    std::map<std::string, std::size_t> m_places;
    std::size_t m_leftOut = 0; ///< texts that occurred when there were enough
};
