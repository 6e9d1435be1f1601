#include "console_host/app/answer_source.h"

#include "console_host/app/printable.h"

#include "host/geokit/string.h"

namespace {

constexpr std::size_t LineLimit = 4096;

std::unique_ptr<AnswerSource>& Source()
{
    static std::unique_ptr<AnswerSource> source = std::make_unique<EnterAtOnce>();
    return source;
}

} // namespace

std::optional<std::wstring> EnterAtOnce::Answer(const std::wstring&, bool nothingIsAnAnswer)
{
    if (!nothingIsAnAnswer)
        return std::nullopt;
    return std::wstring();
}

void EnterAtOnce::Note(const std::wstring&) {}

InputAnswers::InputAnswers(std::FILE* input, std::FILE* output, bool showQuestions)
    : m_nextByte(ReadUtf8(input)), m_output(output), m_showQuestions(showQuestions)
{
}

std::optional<std::wstring> InputAnswers::Answer(const std::wstring& question, bool)
{
    std::string line;
    for (;;) {
        if (m_showQuestions)
            Show(question);
        switch (ReadLine(line)) {
        case LineResult::Complete:
            return std::wstring(GK_wString(std::string_view(line)).View());
        case LineResult::TooLong:
            Note(L"That line is too long and is ignored.");
            break;
        case LineResult::End:
            if (m_showQuestions)
                Show(L"\n");
            return std::nullopt;
        }
    }
}

InputAnswers::LineResult InputAnswers::ReadLine(std::string& line)
{
    line.clear();
    bool tooLong = false;
    int byte = m_nextByte();
    if (byte == EOF)
        return LineResult::End;
    for (; byte != EOF && byte != '\n'; byte = m_nextByte()) {
        tooLong = tooLong || line.size() == LineLimit;
        if (!tooLong)
            line += static_cast<char>(byte);
    }
    return tooLong ? LineResult::TooLong : LineResult::Complete;
}

void InputAnswers::Note(const std::wstring& text)
{
    Show(text + L"\n");
}

void InputAnswers::Show(const std::wstring& text)
{
    WriteForPerson(m_output, GK_wString(text).Utf8());
    std::fflush(m_output);
}

std::unique_ptr<AnswerSource> MakeStandardInputAnswers()
{
    return std::make_unique<InputAnswers>(stdin, stderr, IsTerminal(stdin));
}

void SetAnswerSource(std::unique_ptr<AnswerSource> source)
{
    Source() = std::move(source);
}

AnswerSource& CurrentAnswers()
{
    return *Source();
}
