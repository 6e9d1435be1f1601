#pragma once

#include "objimport/text_output.h"

#include <concepts>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>

/// Writes a text in UTF-8 as a JSON string. Bytes that are not UTF-8 become U+FFFD, one for each
/// beginning of a character that is not finished.
void WriteJsonText(TextOutput& output, std::string_view text);

/// Writes one JSON value piece by piece, so that a large document is never held as text or as a
/// tree. The caller keeps the pieces in order; commas are added automatically.
class JsonStream
{
public:
    explicit JsonStream(TextOutput& output) : m_output(output) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }

    /// Puts the next element, or the end, on a line of its own.
    void NewLine() { m_newLine = true; }

    /// Writes the name of the member whose value comes next.
    void Key(std::string_view name)
    {
        Separate();
        m_output.Write('"');
        m_output.Write(name);
        m_output.Write("\": ");
        m_needsComma = false;
    }

    void Value(double number) { Element(number); }
    void Value(int number) { Element(number); }
    void Value(bool value) { Element(value ? "true" : "false"); }

    /// Writes a text in UTF-8; bytes that are not UTF-8 become U+FFFD.
    void Value(std::string_view text)
    {
        Separate();
        WriteJsonText(m_output, text);
    }
    void Value(const std::string& text) { Value(std::string_view(text)); }
    void Value(const char* text) { Value(std::string_view(text)); }

    /// Writes null where there is no text.
    void Value(const std::optional<std::string>& text)
    {
        if (text)
            Value(*text);
        else
            Element("null");
    }

    /// Writes a list of numbers.
    template <std::ranges::range Numbers>
    requires std::same_as < std::ranges::range_value_t<Numbers>,
    int > ||
        std::same_as<std::ranges::range_value_t<Numbers>, double> void Value(const Numbers& numbers)
    {
        BeginArray();
        for (const auto number : numbers)
            Value(number);
        EndArray();
    }

    /// Writes the name and the value of one member after the other.
    template <class ValueType, class... Rest>
    void Members(std::string_view name, const ValueType& value, const Rest&... rest)
    {
        Key(name);
        Value(value);
        if constexpr (sizeof...(rest) > 0)
            Members(rest...);
    }

    /// Writes an object of such members.
    template <class... NamesAndValues>
    void Object(const NamesAndValues&... members)
    {
        BeginObject();
        Members(members...);
        EndObject();
    }

    /// Writes a member that is a list: `write` is called for each element.
    template <class List, class Write>
    void ListMember(std::string_view name, const List& list, Write write)
    {
        Key(name);
        BeginArray();
        for (const auto& element : list)
            write(element);
        EndArray();
    }

private:
    void Separate()
    {
        if (m_needsComma)
            m_output.Write(',');
        if (m_newLine)
            m_output.Write('\n');
        else if (m_needsComma)
            m_output.Write(' ');
        m_newLine = false;
        m_needsComma = true;
    }

    template <class Text>
    void Element(Text text)
    {
        Separate();
        m_output.Write(text);
    }

    void Begin(char bracket)
    {
        Separate();
        m_output.Write(bracket);
        m_needsComma = false;
    }

    void End(char bracket)
    {
        if (m_newLine)
            m_output.Write('\n');
        m_newLine = false;
        m_output.Write(bracket);
        m_needsComma = true;
    }

    TextOutput& m_output;
    bool m_needsComma = false;
    bool m_newLine = false;
};
