#pragma once

#include "console_host/app/answer_source.h"
#include "console_host/runtime/terminal.h"

#include <cstdio>
#include <string>

/// Takes answers line by line from a stream of UTF-8 text. A line that is longer than anyone types
/// is refused as a whole.
class InputAnswers : public AnswerSource
{
public:
    /// `showQuestions`: whether questions are shown; notes always are. The streams stay the
    /// caller's and must live as long as the source.
    InputAnswers(std::FILE* input, std::FILE* output, bool showQuestions);

    std::optional<std::wstring> Answer(const std::wstring& question,
                                       bool nothingIsAnAnswer) override;
    void Note(const std::wstring& text) override;

private:
    enum class LineResult
    {
        Complete,
        TooLong,
        End
    };

    LineResult ReadLine(std::string& line);
    void Show(const std::wstring& text);

    NextByte m_nextByte;
    std::FILE* m_output;
    bool m_showQuestions;
};

/// Answers from standard input. Questions, shown only when standard input is a terminal, and notes
/// go to standard error, so that standard output holds results alone.
std::unique_ptr<AnswerSource> MakeStandardInputAnswers();
