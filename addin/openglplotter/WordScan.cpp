// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordScan.h"

#include <algorithm>

#include "openglplotter/WordNumber.h"

namespace {

constexpr std::uint8_t kOther = kWordCount;
constexpr std::uint8_t kNumberPart = kWordCount + 1;

/// For each byte: the place of the letter, `kNumberPart`, or `kOther`.
constexpr std::array<std::uint8_t, 256> kindsOfBytes() {
    std::array<std::uint8_t, 256> kinds{};
    for (std::uint8_t& kind : kinds) {
        kind = kOther;
    }
    for (std::size_t i = 0; i < kWordCount; ++i) {
        kinds[static_cast<unsigned char>(kWordLetters[i])] = static_cast<std::uint8_t>(i);
    }
    for (const char part : std::string_view("0123456789.+-")) {
        kinds[static_cast<unsigned char>(part)] = kNumberPart;
    }
    return kinds;
}

std::uint8_t kindOf(char byte) {
    static constexpr std::array<std::uint8_t, 256> kKinds = kindsOfBytes();
    return kKinds[static_cast<unsigned char>(byte)];
}

std::size_t endOfNumber(std::string_view line, std::size_t begin) {
    while (begin < line.size() && kindOf(line[begin]) == kNumberPart) {
        ++begin;
    }
    return begin;
}

}  // namespace

WordSet scanWords(std::string_view line, WordValues* values) {
    values->fill(0);
    WordSet seen = 0;
    WordSet valued = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::uint8_t kind = kindOf(line[i]);
        if (kind >= kWordCount) {
            continue;
        }
        const WordSet bit = wordBit(kind);
        seen |= bit;
        if ((valued & bit) != 0) {
            continue;
        }
        const std::size_t end = endOfNumber(line, i + 1);
        if (end > i + 1) {
            (*values)[kind] = wordNumber(line.substr(i + 1, end - i - 1));
            valued |= bit;
            i = end - 1;
        }
    }
    return seen;
}

float numberBehind(std::string_view line, std::string_view code) {
    for (std::size_t at = line.find(code); at != std::string_view::npos;
         at = line.find(code, at + 1)) {
        const std::size_t begin = at + code.size();
        const std::size_t end = endOfNumber(line, begin);
        if (end > begin) {
            return wordNumber(line.substr(begin, end - begin));
        }
    }
    return 0;
}
