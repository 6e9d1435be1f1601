#include "objimport/check/material_names.h"

#include "objimport/check/check_texts.h"
#include "objimport/check/raw_line.h"
#include "objreader/keyword.h"

#include <algorithm>

namespace {

std::string LowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), Lower);
    return text;
}

} // namespace

void MaterialNames::Define(const CheckPlace& place, const std::string& name)
{
    const auto [known, isNew] = m_defined.try_emplace(name, Place{place.file, place.line});
    const Place& first = known->second;
    const auto file = static_cast<std::size_t>(first.file);
    // A library that is named again is the same definition.
    if (!isNew && (first.file != place.file || first.line != place.line))
        place.Report(CheckTexts::DefinedAgain, name, place.findings.Files()[file],
                     std::to_string(first.line));
}

void MaterialNames::Use(const CheckPlace& place, const std::string& name)
{
    m_used.try_emplace(name, Place{place.file, place.line});
}

void MaterialNames::Finish(CheckPlace place) const
{
    std::map<std::string, std::string> byLowerCase;
    for (const auto& [name, where] : m_defined)
        byLowerCase.try_emplace(LowerCase(name), name);
    for (const auto& [name, where] : m_used) {
        if (m_defined.contains(name))
            continue;
        place.line = where.line;
        const auto other = byLowerCase.find(LowerCase(name));
        if (other == byLowerCase.end())
            place.Report(CheckTexts::Undefined, name);
        else
            place.Report(CheckTexts::UndefinedButCase, name, other->second);
    }
}

void NameChecks::Check(const CheckPlace& place, const std::string& raw, const std::string& taken)
{
    // A line that is comment, or path, to its end keeps its blanks.
    if (Trimmed(taken) == Trimmed(raw) || m_reported.contains(raw))
        return;
    m_reported.insert(raw);
    place.Report(CheckTexts::NameBecomes, raw, taken);
}
