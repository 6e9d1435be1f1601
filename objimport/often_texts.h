#pragma once

#include "objimport/page.h"
#include "objimport/program_texts.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Texts about kinds of things, such as why meshes were refused, that occur once or more often. One
/// file can cause very many, so they are put into words only when they are written.
class OftenTexts
{
public:
    /// Takes how many different texts are kept.
    explicit OftenTexts(std::size_t most) : m_most(most) {}

    /// Adds a text about a kind of thing that occurred a number of times. Kind and text must
    /// outlive the object.
    void Add(std::string_view kind, std::string_view text, std::size_t times = 1);

    /// Adds a text about one thing, whose number is 0 when it has none, and stands after the mark,
    /// with its name, if it has one, which must outlive the object.
    void Add(std::string_view kind, std::string_view text, int number, const ProgramText& mark,
             std::string_view name = {});

    /// Writes the texts, each once, in the order in which they first occurred. `inWords` returns
    /// what a person reads for a kind and a text.
    void Write(const Page& page,
               std::string (*inWords)(std::string_view kind, std::string_view text)) const;

private:
    using KindAndText = std::pair<std::string_view, std::string_view>;

    using NumberAndName = std::pair<int, std::string_view>;

    struct OftenText
    {
        KindAndText text;
        const ProgramText* mark = &Texts::NumberMark; ///< of the numbers
        std::size_t count = 0;
        std::vector<NumberAndName> numbers{}; ///< the first few
    };

    OftenText* FindOrAdd(const KindAndText& text);
    static std::string HowOften(const OftenText& often);

    std::size_t m_most;
    std::vector<OftenText> m_texts;
    std::map<KindAndText, std::size_t> m_places;
    std::size_t m_last = 0;    ///< the place of the text that was added last
    std::size_t m_leftOut = 0; ///< texts that occurred when there were enough
};
