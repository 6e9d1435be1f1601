#pragma once

#include "console_host/app/answer_source.h"
#include "console_host/framework/work_note.h"

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What was shown while scripted answers were given.
struct Conversation
{
    std::vector<std::wstring> questions;
    std::vector<std::wstring> notes;
    bool underWaitCursor = false; ///< whether the wait cursor was shown with a question
};

/// Answers questions from a list of lines and then ends, for the lifetime of the object.
class ScriptedAnswers
{
public:
    explicit ScriptedAnswers(std::vector<std::wstring> lines)
    {
        SetAnswerSource(std::make_unique<Source>(std::move(lines), m_conversation));
    }

    ScriptedAnswers(const ScriptedAnswers&) = delete;
    ScriptedAnswers& operator=(const ScriptedAnswers&) = delete;
    ~ScriptedAnswers() { SetAnswerSource(std::make_unique<EnterAtOnce>()); }

    [[nodiscard]] const Conversation& Shown() const { return m_conversation; }

private:
    class Source : public AnswerSource
    {
    public:
        Source(std::vector<std::wstring> lines, Conversation& conversation)
            : m_lines(lines.begin(), lines.end()), m_conversation(conversation)
        {
        }

        std::optional<std::wstring> Answer(const std::wstring& question, bool) override
        {
            m_conversation.questions.push_back(question);
            m_conversation.underWaitCursor |= WorkNote::Instance().Depth() > 0;
            if (m_lines.empty())
                return std::nullopt;
            std::wstring line = std::move(m_lines.front());
            m_lines.pop_front();
            return line;
        }

        void Note(const std::wstring& text) override { m_conversation.notes.push_back(text); }

    private:
        std::deque<std::wstring> m_lines;
        Conversation& m_conversation;
    };

    Conversation m_conversation;
};
