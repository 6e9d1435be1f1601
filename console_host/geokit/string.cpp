#include "host/geokit/string.h"

#include "console_host/runtime/utf8.h"

#include <algorithm>

namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsSurrogate(char32_t code)
{
    return code >= 0xD800 && code <= 0xDFFF;
}

void AppendWide(std::wstring& text, char32_t code)
{
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
        text += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    } else {
        text += static_cast<wchar_t>(code);
    }
}

void AppendUtf8(std::string& text, char32_t code)
{
    const auto append = [&text](unsigned int mark, char32_t bits) {
        text += static_cast<char>(mark | bits);
    };
    if (code < 0x80)
        return append(0, code);
    if (code < 0x800) {
        append(0xC0, code >> 6);
    } else {
        if (code < 0x10000) {
            append(0xE0, code >> 12);
        } else {
            append(0xF0, code >> 18);
            append(0x80, (code >> 12) & 0x3F);
        }
        append(0x80, (code >> 6) & 0x3F);
    }
    append(0x80, code & 0x3F);
}

/// Takes one code point off the front of a wide text; an unpaired surrogate becomes U+FFFD.
char32_t TakeWide(std::wstring_view& text)
{
    const auto code = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    if (!IsSurrogate(code))
        return code <= 0x10FFFF ? code : Replacement;
    const bool pair = sizeof(wchar_t) == 2 && code < 0xDC00 && !text.empty() &&
                      text.front() >= 0xDC00 && text.front() <= 0xDFFF;
    if (!pair)
        return Replacement;
    const char32_t low = static_cast<char32_t>(text.front()) & 0x3FF;
    text.remove_prefix(1);
    return 0x10000 + ((code & 0x3FF) << 10 | low);
}

} // namespace

GK_wString::GK_wString(std::wstring text)
{
    if (!text.empty())
        m_text = std::make_shared<std::wstring>(std::move(text));
}

GK_wString::GK_wString(std::string_view utf8)
{
    std::wstring text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Utf8Character first = FirstCharacter(utf8);
        AppendWide(text, first.isValid ? first.code : Replacement);
        utf8.remove_prefix(first.isValid ? first.size : 1);
    }
    *this = GK_wString(std::move(text));
}

/// Returns the text to change, which no other string shares.
std::wstring& GK_wString::TextOfItsOwn()
{
    if (m_text == nullptr || m_text.use_count() > 1)
        m_text = std::make_shared<std::wstring>(View());
    return *m_text;
}

GK_wString& GK_wString::operator+=(std::wstring_view text)
{
    TextOfItsOwn() += text;
    return *this;
}

std::string GK_wString::Utf8() const
{
    std::string utf8;
    std::wstring_view rest = View();
    utf8.reserve(rest.size());
    while (!rest.empty())
        AppendUtf8(utf8, TakeWide(rest));
    return utf8;
}

int GK_wString::ReverseFind(wchar_t character) const
{
    const std::size_t place = View().rfind(character);
    return place == std::wstring::npos ? -1 : static_cast<int>(place);
}

GK_wString GK_wString::Left(int count) const
{
    if (count <= 0)
        return {};
    return GK_wString(std::wstring(View().substr(0, static_cast<std::size_t>(count))));
}

int GK_wString::Replace(wchar_t from, wchar_t to)
{
    const std::wstring_view text = View();
    const auto replaced = static_cast<int>(std::count(text.begin(), text.end(), from));
    if (replaced > 0) {
        std::wstring& own = TextOfItsOwn();
        std::replace(own.begin(), own.end(), from, to);
    }
    return replaced;
}
