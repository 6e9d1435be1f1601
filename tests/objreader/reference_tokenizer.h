#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The tokens of each logical line of a text, cut byte by byte, however slowly. Shares nothing with
/// the tokenizer but the rules.
class ReferenceTokenizer
{
public:
    static std::vector<std::vector<std::string>> Cut(std::string_view text)
    {
        std::vector<std::vector<std::string>> lines;
        const std::vector<std::string> physical = PhysicalLines(text);
        for (std::size_t next = 0; next < physical.size();) {
            ReferenceTokenizer line;
            do
                line.CutPhysicalLine(physical[next++]);
            while (line.m_continued && next < physical.size());
            lines.push_back(line.m_tokens);
        }
        return lines;
    }

private:
    enum class Place
    {
        BetweenTokens,
        InToken,
        BehindTokensEnd ///< in a token whose text a backslash has ended
    };

    /// Returns the lines of a text; what follows the last line end is one too, even when it is
    /// empty.
    static std::vector<std::string> PhysicalLines(std::string_view text)
    {
        std::vector<std::string> lines(1);
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char byte = text[i];
            if (byte != '\n' && byte != '\r' && byte != '\0') {
                lines.back() += byte;
                continue;
            }
            if (byte == '\r' && text.substr(i + 1, 1) == "\n")
                ++i;
            lines.emplace_back();
        }
        return lines;
    }

    static bool IsPrintable(char byte) { return byte >= '!' && byte <= '~'; }

    void CutPhysicalLine(std::string_view line)
    {
        m_continued = false;
        m_place = Place::BetweenTokens;
        if (line.substr(0, 1) == "#")
            return;
        for (std::size_t i = 0; i < line.size(); ++i)
            CutByte(line[i], i + 1 < line.size() ? line[i + 1] : '\0');
    }

    void CutByte(char byte, char next)
    {
        if (byte == '\\' && !IsPrintable(next)) {
            m_continued = true;
            if (m_place == Place::InToken)
                m_place = Place::BehindTokensEnd;
            return;
        }
        m_pathMode = m_pathMode || byte == '\\';
        const bool keptSpace = byte == ' ' && m_pathMode;
        if (IsPrintable(byte) && m_place == Place::BetweenTokens) {
            m_tokens.emplace_back();
            m_place = Place::InToken;
        } else if (!IsPrintable(byte) && !keptSpace) {
            m_place = Place::BetweenTokens;
        }
        if (m_place == Place::InToken)
            m_tokens.back() += byte;
    }

    std::vector<std::string> m_tokens;
    Place m_place = Place::BetweenTokens;
    bool m_pathMode = false;
    bool m_continued = false;
};
