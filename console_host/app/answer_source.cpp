#include "console_host/app/answer_source.h"

namespace {

std::unique_ptr<CAnswerSource>& Source()
{
    static std::unique_ptr<CAnswerSource> source = std::make_unique<CEnterAtOnce>();
    return source;
}

} // namespace

std::optional<std::wstring> CEnterAtOnce::Answer(const std::wstring&, bool nothingIsAnAnswer)
{
    if (!nothingIsAnAnswer)
        return std::nullopt;
    return std::wstring();
}

void CEnterAtOnce::Note(const std::wstring&) {}

void SetAnswerSource(std::unique_ptr<CAnswerSource> source)
{
    Source() = std::move(source);
}

CAnswerSource& AnswerSource()
{
    return *Source();
}
