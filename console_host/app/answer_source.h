#pragma once

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

    /// Puts the question and gives the line that answers it, without its line end; nothing when
    /// there is no further answer. `nothingIsAnAnswer`: an empty line answers the question.
    virtual std::optional<std::wstring> Answer(const std::wstring& question,
                                               bool nothingIsAnAnswer) = 0;

    /// Tells the user what became of an answer; one line without its line end.
    virtual void Note(const std::wstring& text) = 0;
};

/// Answers every question by Enter at once, and has no answer where Enter is none.
class EnterAtOnce : public AnswerSource
{
public:
    std::optional<std::wstring> Answer(const std::wstring& question,
                                       bool nothingIsAnAnswer) override;
    void Note(const std::wstring& text) override;
};

/// Chooses where answers come from, from now on; until the first call it is EnterAtOnce.
void SetAnswerSource(std::unique_ptr<AnswerSource> source);

/// The source in use.
AnswerSource& CurrentAnswers();
