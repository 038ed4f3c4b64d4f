// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordScan.h"

#include <cstddef>
#include <optional>

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

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

std::size_t endOfNumber(std::string_view line, std::size_t begin) {
    while (begin < line.size() && kindOf(line[begin]) == kNumberPart) {
        ++begin;
    }
    return begin;
}

/// A number as nearly all are written, of at most 15 digits: their integer and the power of ten
/// are exact in double, so one division rounds as reading the text does. Nothing, with `at` left
/// alone, for any other text.
std::optional<float> readPlainNumber(std::string_view line, std::size_t* at) {
    static constexpr std::array<double, 16> kPowersOfTen = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const char* const begin = line.data() + *at;
    const char* const end = line.data() + line.size();
    const char* p = begin;
    const bool negative = p != end && *p == '-';
    p += p != end && (*p == '-' || *p == '+') ? 1 : 0;
    std::uint64_t digits = 0;  // Wraps beyond what counts.
    const char* const whole = p;
    for (; p != end && isDigit(*p); ++p) {
        digits = digits * 10 + static_cast<unsigned char>(*p - '0');
    }
    std::ptrdiff_t count = p - whole;
    std::size_t decimals = 0;
    if (p != end && *p == '.') {
        const char* const fraction = ++p;
        for (; p != end && isDigit(*p); ++p) {
            digits = digits * 10 + static_cast<unsigned char>(*p - '0');
        }
        decimals = static_cast<std::size_t>(p - fraction);
        count += p - fraction;
    }
    if (count == 0 || count > 15 || (p != end && kindOf(*p) == kNumberPart)) {
        return std::nullopt;
    }
    *at += static_cast<std::size_t>(p - begin);
    const double value =
        static_cast<double>(static_cast<std::int64_t>(digits)) / kPowersOfTen[decimals];
    return narrowNumber(negative ? -value : value);
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
        std::size_t end = i + 1;
        const std::optional<float> value = readPlainNumber(line, &end);
        if (!value) {
            end = endOfNumber(line, i + 1);
        }
        if (end > i + 1) {
            (*values)[kind] = value ? *value : wordNumber(line.substr(i + 1, end - i - 1));
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
