// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordScan.h"

#include <cstddef>
#include <string>

#include "openglplotter/WordNumber.h"

namespace {

constexpr std::uint8_t kOther = kWordCount;
constexpr std::uint8_t kNumberPart = kWordCount + 1;
constexpr std::uint8_t kLineEnd = kWordCount + 2;
constexpr std::uint8_t kNoKind = kWordCount + 3;

/// For each byte: the place of the letter, `kNumberPart`, `kLineEnd` or `kOther`.
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
    kinds['\r'] = kLineEnd;
    kinds['\n'] = kLineEnd;
    return kinds;
}

constexpr std::array<std::uint8_t, 256> kKinds = kindsOfBytes();

std::uint8_t kindOf(char byte) {
    return kKinds[static_cast<unsigned char>(byte)];
}

std::uint8_t kindOf(char16_t unit) {
    return __builtin_expect(unit < kKinds.size(), 1) ? kKinds[unit] : kOther;
}

template <typename Unit>
unsigned digitOf(Unit unit) {
    return static_cast<unsigned>(unit) - '0';
}

template <typename Unit>
const Unit* endOfNumber(const Unit* at, const Unit* end) {
    while (at != end && kindOf(*at) == kNumberPart) {
        ++at;
    }
    return at;
}

float numberOf(const char* begin, const char* end) {
    return wordNumber({begin, static_cast<std::size_t>(end - begin)});
}

float numberOf(const char16_t* begin, const char16_t* end) {
    std::string text;
    for (; begin != end; ++begin) {
        text.push_back(static_cast<char>(*begin));
    }
    return wordNumber(text);
}

/// Reads a number as nearly all are written, of at most 15 digits: their integer and the power of
/// ten are exact in double, so one division rounds as reading the text does, and a float holds the
/// result. Gives the number's end, or null for any other text.
template <typename Unit>
[[gnu::always_inline]] inline const Unit* readPlainNumber(const Unit* p, const Unit* end,
                                                          float* number) {
    static constexpr std::array<double, 16> kPowersOfTen = {
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = p != end && *p == '-';
    p += p != end && (*p == '-' || *p == '+') ? 1 : 0;
    std::uint64_t digits = 0;  // Wraps beyond what counts.
    const Unit* const whole = p;
    for (; p != end && digitOf(*p) < 10; ++p) {
        digits = digits * 10 + digitOf(*p);
    }
    std::ptrdiff_t count = p - whole;
    std::ptrdiff_t decimals = 0;
    if (p != end && *p == '.') {
        const Unit* const fraction = ++p;
        for (; p != end && digitOf(*p) < 10; ++p) {
            digits = digits * 10 + digitOf(*p);
        }
        decimals = p - fraction;
        count += decimals;
    }
    if (count == 0 || count > 15 || (p != end && kindOf(*p) == kNumberPart)) {
        return nullptr;
    }
    const double value = static_cast<double>(static_cast<std::int64_t>(digits)) /
                         kPowersOfTen[static_cast<std::size_t>(decimals)];
    *number = static_cast<float>(negative ? -value : value);
    return p;
}

/// The scan of `scanLine`, up to a unit of the kind `kLast`.
template <std::uint8_t kLast, typename Unit>
const Unit* scan(const Unit* at, const Unit* end, WordValues* values, WordSet* seenWords) {
    values->fill(0);
    WordSet seen = 0;
    WordSet valued = 0;
    while (at != end) {
        const std::uint8_t kind = kindOf(*at);
        if (kind >= kWordCount) {
            if (kind == kLast) {
                break;
            }
            ++at;
            continue;
        }
        ++at;
        const WordSet bit = wordBit(kind);
        seen |= bit;
        if ((valued & bit) != 0) {
            continue;
        }
        float number = 0;
        const Unit* behind = readPlainNumber(at, end, &number);
        if (behind == nullptr) {
            behind = endOfNumber(at, end);
            if (behind == at) {
                continue;
            }
            number = numberOf(at, behind);
        }
        (*values)[kind] = number;
        valued |= bit;
        at = behind;
    }
    *seenWords = seen;
    return at;
}

}  // namespace

const char* scanLine(const char* at, const char* end, WordValues* values, WordSet* seen) {
    return scan<kLineEnd>(at, end, values, seen);
}

const char16_t* scanLine(const char16_t* at, const char16_t* end, WordValues* values,
                         WordSet* seen) {
    return scan<kLineEnd>(at, end, values, seen);
}

WordSet scanWords(std::string_view line, WordValues* values) {
    WordSet seen = 0;
    scan<kNoKind>(line.data(), line.data() + line.size(), values, &seen);
    return seen;
}

float numberBehind(std::string_view line, std::string_view code) {
    const char* const end = line.data() + line.size();
    for (std::size_t at = line.find(code); at != std::string_view::npos;
         at = line.find(code, at + 1)) {
        const char* const begin = line.data() + at + code.size();
        const char* const behind = endOfNumber(begin, end);
        if (behind > begin) {
            return numberOf(begin, behind);
        }
    }
    return 0;
}
