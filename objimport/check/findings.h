#pragma once

#include "objimport/check/finding.h"

#include <array>
#include <concepts>
#include <limits>
#include <span>

/// All findings of a run, of which the first ones of each kind are kept and the others counted.
class Findings
{
public:
    static constexpr std::size_t All = std::numeric_limits<std::size_t>::max();

    /// Takes how many of a kind are kept for each group of files.
    explicit Findings(std::size_t mostOfAKind) : m_mostOfAKind(mostOfAKind) {}

    /// Begins a new group: a file to be imported, and the libraries that it names.
    void BeginGroup();

    /// Adds a file by its name in UTF-8; returns its place in the list of files.
    int AddFile(std::string name);

    /// Counts a finding, and keeps it when there are few of its kind so far. Arguments are texts in
    /// UTF-8, counts and numbers.
    template <class... Arguments>
    void Add(int file, std::size_t line, const CheckText& text, const Arguments&... arguments)
    {
        AddBecause(file, line, text, Phrase{}, arguments...);
    }

    /// Adds a finding with a reason, which is the text's first argument.
    template <class... Arguments>
    void AddBecause(int file, std::size_t line, const CheckText& text, Phrase why,
                    const Arguments&... arguments)
    {
        if (Count(text))
            m_kept.push_back({text.kind,
                              text.level,
                              file,
                              line,
                              {text.text, {ShownArgument(arguments)...}},
                              std::move(why)});
    }

    /// Counts a finding; returns whether it is to be kept.
    bool Count(const CheckText& text);

    [[nodiscard]] const std::vector<std::string>& Files() const { return m_files; }

    /// Returns what was kept, in no order between kinds.
    [[nodiscard]] std::span<const Finding> Kept() const { return m_kept; }

    /// Return how many findings of a kind there are, in all and since the last BeginGroup.
    [[nodiscard]] std::size_t CountOf(CheckKind kind) const
    {
        return m_counts[static_cast<std::size_t>(kind)];
    }
    [[nodiscard]] std::size_t CountInGroup(CheckKind kind) const
    {
        return m_groupCounts[static_cast<std::size_t>(kind)];
    }

    /// Returns how many findings were counted and not kept.
    [[nodiscard]] std::size_t LeftOut() const;

    /// Returns whether something of the files is lost or changed.
    [[nodiscard]] bool AnyLoss() const { return m_anyLoss; }

    /// Returns what was kept since the last BeginGroup, file by file in the order of lines.
    [[nodiscard]] std::vector<const Finding*> OfGroup() const;

private:
    static PhraseArgument ShownArgument(std::string_view text) { return ShownName(text); }
    static PhraseArgument ShownArgument(std::integral auto count)
    {
        return static_cast<std::size_t>(count);
    }
    static PhraseArgument ShownArgument(double value) { return ShownNumber(value); }

    std::size_t m_mostOfAKind;
    std::vector<std::string> m_files;
    std::vector<Finding> m_kept;
    std::size_t m_firstOfGroup = 0;
    std::array<std::size_t, CheckKindCount> m_counts{};
    std::array<std::size_t, CheckKindCount> m_groupCounts{};
    bool m_anyLoss = false;
};

/// Where a checker stands, and what it reports to.
struct CheckPlace
{
    Findings& findings;
    int file = 0;
    std::size_t line = 0; ///< the first of the statement

    template <class... Arguments>
    void Report(const CheckText& text, const Arguments&... arguments) const
    {
        findings.Add(file, line, text, arguments...);
    }
};
