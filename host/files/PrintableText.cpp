// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "files/PrintableText.h"

#include <cstdint>

namespace kxfiles {

namespace {

std::string escaped(unsigned char byte) {
    constexpr char kDigits[] = "0123456789abcdef";
    switch (byte) {
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return std::string("\\x") + kDigits[byte >> 4] + kDigits[byte & 0xf];
    }
}

/// How many bytes the UTF-8 sequence that begins with this byte has; 0 when none begins so.
std::size_t sequenceLength(unsigned char first) {
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xc2 && first < 0xe0) {
        return 2;
    }
    if (first >= 0xe0 && first < 0xf0) {
        return 3;
    }
    return first >= 0xf0 && first < 0xf5 ? 4 : 0;
}

/// The character of a whole sequence, whose first byte is right; nothing that is no character.
std::uint32_t decode(std::string_view sequence) {
    constexpr std::uint32_t kBroken = 0;
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(sequence[i]); };
    const std::size_t length = sequence.size();
    std::uint32_t code = length == 1 ? byteAt(0) : byteAt(0) & (0x7fU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xc0U) != 0x80) {
            return kBroken;
        }
        code = (code << 6) | (byteAt(i) & 0x3fU);
    }
    const bool isSurrogate = code >= 0xd800 && code < 0xe000;
    return code < kLeast[length] || code > 0x10ffff || isSurrogate ? kBroken : code;
}

/// Marks that turn the direction of what follows, so that a name could be read as another.
bool isTurning(std::uint32_t code) {
    return code == 0x61c || code == 0x200e || code == 0x200f ||
           (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

bool isControl(std::uint32_t code) {
    constexpr std::uint32_t kLineSeparator = 0x2028;
    constexpr std::uint32_t kParagraphSeparator = 0x2029;
    return code < 0x20 || (code >= 0x7f && code < 0xa0) || code == kLineSeparator ||
           code == kParagraphSeparator || isTurning(code);
}

}  // namespace

std::string printable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = sequenceLength(static_cast<unsigned char>(text.front()));
        const bool isWhole = length > 0 && length <= text.size();
        const bool stays = isWhole && !isControl(decode(text.substr(0, length)));
        // A broken sequence may have the beginning of the next one in it.
        const std::size_t taken = isWhole && decode(text.substr(0, length)) != 0 ? length : 1;
        for (const char byte : text.substr(0, taken)) {
            shown += stays ? std::string(1, byte) : escaped(static_cast<unsigned char>(byte));
        }
        text.remove_prefix(taken);
    }
    return shown;
}

std::size_t firstLineOfNoText(std::string_view text) {
    std::size_t line = 1;
    while (!text.empty()) {
        const std::size_t length = sequenceLength(static_cast<unsigned char>(text.front()));
        if (length == 0 || length > text.size() || decode(text.substr(0, length)) == 0) {
            return line;
        }
        line += text.front() == '\n' ? 1 : 0;
        text.remove_prefix(length);
    }
    return 0;
}

}  // namespace kxfiles
