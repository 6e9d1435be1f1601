#pragma once

#include <cstdint>
#include <streambuf>
#include <string>

/// Passes the text of a STEP file on, with the characters of its names that are not in ASCII in the
/// form that all readers know (\X2\00E4\X0\): what comes in is UTF-8. A line that ends within a
/// character ends after it. After an apostrophe in a name, a comma or parenthesis is encoded as
/// well: there are readers that take it for the end of the name.
class StepText : public std::streambuf
{
public:
    /// Writes to `output`, which remains the caller's.
    explicit StepText(std::streambuf& output) : m_output(output) {}

    /// Writes what is still held back; returns false when something was not written.
    bool Finish();

protected:
    int_type overflow(int_type byte) override;
    std::streamsize xsputn(const char* bytes, std::streamsize count) override;

private:
    /// How the character that is written now stands in the file.
    enum class Form : std::uint8_t
    {
        Plain,
        FourDigits, ///< after \X2\ ...
        EightDigits ///< after \X4\ ...
    };

    /// Where in the text the next byte stands.
    enum class Place : std::uint8_t
    {
        Outside, ///< of names
        Inside,
        AfterApostrophe, ///< in a name, which it ends unless another one follows
        AfterTwo         ///< which stand for one in a name
    };

    void Take(unsigned char byte);
    void TakeAscii(unsigned char byte);
    void TakeApostrophe();
    void TakeContinuation(unsigned char byte);
    void WriteCharacter(std::uint32_t character);
    void WriteEncoded(unsigned char byte);
    void ChangeForm(Form form);
    void WriteHex(std::uint32_t number, int digits);
    void EndSequence();
    void Write(std::string_view text);

    std::streambuf& m_output;
    std::uint32_t m_character = 0; ///< as far as it was read
    int m_bytesMissing = 0;
    int m_heldLineEnds = 0;
    Form m_form = Form::Plain;
    Place m_place = Place::Outside;
    bool m_isWhole = true;
};
