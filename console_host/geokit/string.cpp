#include "host/geokit/string.h"

#include <algorithm>
#include <cstdint>

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
    const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | (code >> 18));
        byte(0x80 | ((code >> 12) & 0x3F));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

/// Length of the sequence that a lead byte opens; 0 for what is no lead byte.
std::size_t SequenceLength(std::uint8_t lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// Decodes one code point at the front and takes its bytes off; a bad byte gives U+FFFD.
char32_t TakeUtf8(std::string_view& text)
{
    constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<std::uint8_t>(text.front());
    const std::size_t length = SequenceLength(lead);
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    bool good = length > 0 && length <= text.size();
    for (std::size_t i = 1; good && i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(text[i]);
        good = (next & 0xC0) == 0x80;
        code = code << 6 | (next & 0x3F);
    }
    if (!good || code < Smallest[length] || code > 0x10FFFF || IsSurrogate(code)) {
        text.remove_prefix(1);
        return Replacement;
    }
    text.remove_prefix(length);
    return code;
}

/// Takes one code point off the front of a wide text; an unpaired surrogate gives U+FFFD.
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
    while (!utf8.empty())
        AppendWide(text, TakeUtf8(utf8));
    *this = GK_wString(std::move(text));
}

/// The text to change, which no other string shares.
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
