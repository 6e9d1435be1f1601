#pragma once

#include "console_host/runtime/terminal.h"

#include <cstdio>
#include <memory>
#include <optional>
#include <string>

/// Where the answers to questions on the command line come from.
class AnswerSource
{
public:
    AnswerSource() = default;
    AnswerSource(const AnswerSource&) = delete;
    AnswerSource& operator=(const AnswerSource&) = delete;
    virtual ~AnswerSource() = default;

    /// Asks the question and returns the line that answers it, without its line end; nothing when
    /// there is no further answer. `nothingIsAnAnswer`: an empty line answers the question.
    virtual std::optional<std::wstring> Answer(const std::wstring& question,
                                               bool nothingIsAnAnswer) = 0;

    /// Tells the user what became of an answer; one line without its line end.
    virtual void Note(const std::wstring& text) = 0;
};

/// Answers every question with Enter at once, and has no answer where Enter is none.
class EnterAtOnce : public AnswerSource
{
public:
    std::optional<std::wstring> Answer(const std::wstring& question,
                                       bool nothingIsAnAnswer) override;
    void Note(const std::wstring& text) override;
};

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

/// Chooses where answers come from, from now on; until the first call it is EnterAtOnce.
void SetAnswerSource(std::unique_ptr<AnswerSource> source);

/// Returns the source in use.
AnswerSource& CurrentAnswers();
