#include "objimport/exchange/step_text.h"

#include <algorithm>
#include <string_view>

namespace {

// Returns how many bytes from the first on can be passed on as they are.
std::size_t PlainBytes(std::string_view text)
{
    const auto end = std::find_if(text.begin(), text.end(),
                                  [](char c) { return c < ' ' || c > '~' || c == '\''; });
    return static_cast<std::size_t>(end - text.begin());
}

} // namespace

bool StepText::Finish()
{
    EndSequence();
    ChangeForm(Form::Plain);
    return m_isWhole;
}

StepText::int_type StepText::overflow(int_type byte)
{
    if (!traits_type::eq_int_type(byte, traits_type::eof()))
        Take(static_cast<unsigned char>(byte));
    return m_isWhole ? traits_type::not_eof(byte) : traits_type::eof();
}

std::streamsize StepText::xsputn(const char* bytes, std::streamsize count)
{
    std::string_view rest(bytes, static_cast<std::size_t>(count));
    while (!rest.empty()) {
        const std::size_t plain = m_place <= Place::Inside ? PlainBytes(rest) : 0;
        if (plain > 0) {
            EndSequence();
            ChangeForm(Form::Plain);
            Write(rest.substr(0, plain));
        } else {
            Take(static_cast<unsigned char>(rest[0]));
        }
        rest.remove_prefix(std::max<std::size_t>(plain, 1));
    }
    return m_isWhole ? count : 0;
}

void StepText::Take(unsigned char byte)
{
    if (byte == '\n' && m_bytesMissing > 0) {
        ++m_heldLineEnds;
    } else if (byte >= 0x80 && byte < 0xC0) {
        TakeContinuation(byte);
    } else if (byte >= 0xC0) {
        EndSequence();
        m_bytesMissing = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
        m_character = byte & (0x3FU >> static_cast<unsigned int>(m_bytesMissing));
        m_place = m_place == Place::AfterTwo ? Place::Inside : m_place;
    } else {
        EndSequence();
        ChangeForm(Form::Plain);
        TakeAscii(byte);
    }
}

void StepText::TakeAscii(unsigned char byte)
{
    const bool endsForSome = m_place == Place::AfterTwo && (byte == ',' || byte == ')');
    const bool isControl = (byte < ' ' && byte != '\n') || byte == 0x7F;
    if (endsForSome || isControl) {
        WriteEncoded(byte);
    } else {
        const char character = static_cast<char>(byte);
        Write({&character, 1});
    }
    if (byte == '\'')
        TakeApostrophe();
    else if (m_place == Place::AfterApostrophe && byte != '\n')
        m_place = Place::Outside;
    else if (m_place == Place::AfterTwo && byte != '\n' && byte != ' ')
        m_place = Place::Inside;
}

void StepText::TakeApostrophe()
{
    switch (m_place) {
    case Place::Outside:
        m_place = Place::Inside;
        break;
    case Place::Inside:
    case Place::AfterTwo:
        m_place = Place::AfterApostrophe;
        break;
    case Place::AfterApostrophe:
        m_place = Place::AfterTwo;
        break;
    }
}

void StepText::TakeContinuation(unsigned char byte)
{
    if (m_bytesMissing == 0)
        return;
    m_character = (m_character << 6U) | (byte & 0x3FU);
    if (--m_bytesMissing == 0)
        WriteCharacter(m_character);
}

void StepText::WriteEncoded(unsigned char byte)
{
    Write("\\X\\");
    WriteHex(byte, 2);
}

void StepText::WriteCharacter(std::uint32_t character)
{
    const bool isWide = character > 0xFFFF;
    ChangeForm(isWide ? Form::EightDigits : Form::FourDigits);
    WriteHex(character, isWide ? 8 : 4);
    for (; m_heldLineEnds > 0; --m_heldLineEnds) {
        ChangeForm(Form::Plain);
        Write("\n");
    }
}

// Ends a character that its text ends within.
void StepText::EndSequence()
{
    constexpr std::uint32_t Replacement = 0xFFFD;
    if (m_bytesMissing > 0) {
        m_bytesMissing = 0;
        WriteCharacter(Replacement);
    }
}

void StepText::ChangeForm(Form form)
{
    if (form == m_form)
        return;
    if (m_form != Form::Plain)
        Write("\\X0\\");
    if (form != Form::Plain)
        Write(form == Form::FourDigits ? "\\X2\\" : "\\X4\\");
    m_form = form;
}

void StepText::WriteHex(std::uint32_t number, int digits)
{
    constexpr std::string_view Digits = "0123456789ABCDEF";
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        Write(Digits.substr((number >> static_cast<unsigned int>(shift)) & 0xFU, 1));
}

void StepText::Write(std::string_view text)
{
    const auto count = static_cast<std::streamsize>(text.size());
    m_isWhole = m_isWhole && m_output.sputn(text.data(), count) == count;
}
