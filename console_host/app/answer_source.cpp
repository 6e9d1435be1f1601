#include "console_host/app/answer_source.h"

namespace {

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

void SetAnswerSource(std::unique_ptr<AnswerSource> source)
{
    Source() = std::move(source);
}

AnswerSource& CurrentAnswers()
{
    return *Source();
}
