#pragma once

#include <compare>
#include <memory>
#include <string>
#include <string_view>

/// An 8-bit string: names as they are in a file. Any thread may use a string, one thread at a time
/// while it changes. Operations that lengthen a string throw std::bad_alloc when out of memory and
/// leave it as it was.
class GK_String
{
public:
    GK_String() = default;
    GK_String(const char* text) // NOLINT(*-explicit-*): a literal is a text
        : m_text(text != nullptr ? text : "")
    {
    }
    explicit GK_String(std::string_view text) : m_text(text) {}

    [[nodiscard]] int Length() const { return static_cast<int>(m_text.size()); }
    [[nodiscard]] bool IsEmpty() const { return m_text.empty(); }

    /// Returns the zero-terminated text, valid until the string changes.
    [[nodiscard]] const char* Array() const { return m_text.c_str(); }
    [[nodiscard]] std::string_view View() const { return m_text; }

    /// Removes the text and keeps the room.
    void Empty() { m_text.clear(); }

    GK_String& operator+=(std::string_view text)
    {
        m_text += text;
        return *this;
    }

    /// Compare byte by byte, by unsigned value; an empty string comes before any other.
    friend bool operator==(const GK_String& a, const GK_String& b) = default;

    friend std::strong_ordering operator<=>(const GK_String& a, const GK_String& b)
    {
        return a.m_text.compare(b.m_text) <=> 0;
    }

private:
    std::string m_text;
};

/// A wide string: texts shown to the user, file paths, names in a document. On the product's
/// platform it holds UTF-16, elsewhere UTF-32, as the platform's wide character does. Copies share
/// the text until one of them changes, so that a name costs its length once, however many carry it;
/// each copy may be used by a thread of its own. Failure is as for GK_String.
class GK_wString
{
public:
    GK_wString() = default;
    GK_wString(const wchar_t* text) // NOLINT(*-explicit-*): a literal is a text
        : GK_wString(std::wstring(text != nullptr ? text : L""))
    {
    }
    explicit GK_wString(std::wstring text);

    /// Converts from UTF-8; each byte that is no part of a well-formed sequence becomes U+FFFD.
    explicit GK_wString(std::string_view utf8);
    explicit GK_wString(const GK_String& utf8) : GK_wString(utf8.View()) {}

    [[nodiscard]] int Length() const { return static_cast<int>(View().size()); }
    [[nodiscard]] bool IsEmpty() const { return View().empty(); }

    /// Returns the zero-terminated text, valid until the string changes.
    [[nodiscard]] const wchar_t* Array() const { return m_text ? m_text->c_str() : L""; }
    [[nodiscard]] std::wstring_view View() const
    {
        return m_text ? std::wstring_view(*m_text) : std::wstring_view();
    }

    /// Returns the text as UTF-8; an unpaired surrogate becomes U+FFFD.
    [[nodiscard]] std::string Utf8() const;

    void Empty() { m_text.reset(); }

    GK_wString& operator+=(std::wstring_view text);

    /// Returns the position of the last such character, or -1.
    [[nodiscard]] int ReverseFind(wchar_t character) const;

    /// Returns the first `count` characters; empty for a count of 0 or less.
    [[nodiscard]] GK_wString Left(int count) const;

    /// Puts `to` in place of every `from` and returns how many there were.
    int Replace(wchar_t from, wchar_t to);

    friend bool operator==(const GK_wString& a, const GK_wString& b)
    {
        return a.m_text == b.m_text || a.View() == b.View();
    }

    friend std::strong_ordering operator<=>(const GK_wString& a, const GK_wString& b)
    {
        return a.View() <=> b.View();
    }

private:
    std::wstring& TextOfItsOwn();

    std::shared_ptr<std::wstring> m_text; ///< null: empty
};
