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

/// Splits a line at its blanks. "Name = Value" counts as the one word "Name=Value".
std::vector<std::wstring> SplitWords(std::wstring_view line);

/// Finds the choice that a word names, in full or by a beginning that fits no other choice, without
/// regard to case. A full name wins over a beginning, and a local name over an English one.
WordMatch MatchWord(std::wstring_view word, const std::vector<CKelvoCommandOptionText>& choices);

/// Whether the two are the same but for case.
bool SameWord(std::wstring_view a, std::wstring_view b);

/// A word as it can be shown back to its typist: shortened, and without what could steer a
/// terminal.
std::wstring ShownWord(std::wstring_view word);

/// "a, b or c".
std::wstring ListOfNames(const std::vector<std::wstring>& names);
