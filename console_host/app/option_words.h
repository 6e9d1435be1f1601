#pragma once

#include "host/app/get_option.h"

#include <string>
#include <string_view>
#include <vector>

// What a user types to choose among options.

/// What a typed word means among several choices.
struct WordMatch
{
    int index = -1;                    ///< the one choice that it names, or -1
    std::vector<std::wstring> couldBe; ///< the local names of all choices that it could name
};

/// Returns the words of a line, which blanks separate. "Name = Value" counts as the one word
/// "Name=Value".
std::vector<std::wstring> SplitWords(std::wstring_view line);

/// Returns the choice that a word names, in full or by a beginning that fits no other choice,
/// ignoring case. A full name wins over a beginning, and a local name over an English one.
WordMatch MatchWord(std::wstring_view word, const std::vector<CKelvoCommandOptionText>& choices);

/// Returns whether the two are the same except for case.
bool SameWord(std::wstring_view a, std::wstring_view b);

/// Returns a word as it can be shown to the user who typed it: shortened, and with a question mark
/// for each character that could control a terminal.
std::wstring ShownWord(std::wstring_view word);

/// Returns the names as "a, b or c".
std::wstring ListOfNames(const std::vector<std::wstring>& names);
