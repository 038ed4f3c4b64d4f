// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The letters of the words that a line is scanned for; no other byte is ever a word.
constexpr std::string_view kWordLetters = "DFGHIJKLMPQRSTXYZ";
constexpr std::size_t kWordCount = kWordLetters.size();

using WordValues = std::array<float, kWordCount>;

/// A set of words: bit i stands for letter i.
using WordSet = std::uint32_t;

/// The place of `letter` among the word letters, or `kWordCount` when it is none.
constexpr std::size_t wordIndex(char letter) {
    const std::size_t index = kWordLetters.find(letter);
    return index == std::string_view::npos ? kWordCount : index;
}

constexpr WordSet wordBit(std::size_t index) {
    return WordSet{1} << index;
}

/// Reads the line that starts at `at`, in UTF-8 or UTF-16, in one pass up to the '\r' or '\n' that
/// ends it or to `end`, and gives that place. `seen` receives the set of the letters that occur
/// anywhere in the line, comments included; `values` for each letter the number right behind it at
/// the first place where there is one, and 0 when there is none.
const char* scanLine(const char* at, const char* end, WordValues* values, WordSet* seen);
const char16_t* scanLine(const char16_t* at, const char16_t* end, WordValues* values,
                         WordSet* seen);

/// The same for a text that counts as one line whatever is in it.
WordSet scanWords(std::string_view line, WordValues* values);

/// The same for any one text in the place of a letter: the number right behind `code` at the first
/// place where there is one, or 0.
float numberBehind(std::string_view line, std::string_view code);
