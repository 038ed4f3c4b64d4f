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

/// Reads a line in one pass over its bytes and gives the set of the letters that occur anywhere in
/// it, comments included. `values` receives for each letter the number right behind it at the first
/// place where there is one, and 0 when there is none.
WordSet scanWords(std::string_view line, WordValues* values);

/// The same for any one text in the place of a letter: the number right behind `code` at the first
/// place where there is one, or 0.
float numberBehind(std::string_view line, std::string_view code);
