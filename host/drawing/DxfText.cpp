// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfText.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <system_error>

namespace kxdrawing {

namespace {

void appendUtf8(unsigned code, std::string* text) {
    const auto byte = [text](unsigned value) { text->push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6U));
        byte(0x80 | (code & 0x3FU));
    } else {
        byte(0xE0 | (code >> 12U));
        byte(0x80 | ((code >> 6U) & 0x3FU));
        byte(0x80 | (code & 0x3FU));
    }
}

/// The number of bytes that follow a lead byte; -1 when it is none.
int followers(unsigned char lead) {
    if (lead < 0x80) {
        return 0;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 1;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 2;
    }
    return lead >= 0xF0 && lead <= 0xF4 ? 3 : -1;
}

bool isUtf8(std::string_view text) {
    int expected = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (expected > 0) {
            if ((byte & 0xC0U) != 0x80U) {
                return false;
            }
            --expected;
        } else {
            expected = followers(byte);
            if (expected < 0) {
                return false;
            }
        }
    }
    return expected == 0;
}

std::string fromLatin1(std::string_view text) {
    std::string result;
    for (const char c : text) {
        appendUtf8(static_cast<unsigned char>(c), &result);
    }
    return result;
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// Reads "\U+XXXX" at the start of `text`; false when there is none.
bool takeEscape(std::string_view text, unsigned* code) {
    if (text.size() < 7 || text.substr(0, 3) != "\\U+") {
        return false;
    }
    const std::from_chars_result result =
        std::from_chars(text.data() + 3, text.data() + 7, *code, 16);
    const bool surrogate = *code >= 0xD800 && *code <= 0xDFFF;
    return result.ec == std::errc() && result.ptr == text.data() + 7 && !surrogate;
}

/// What "%%x" stands for; false when the letter is not known.
bool appendSign(char letter, std::string* text) {
    switch (std::tolower(static_cast<unsigned char>(letter))) {
        case 'd':
            *text += "\u00B0";
            return true;
        case 'p':
            *text += "\u00B1";
            return true;
        case 'c':
            *text += "\u00D8";
            return true;
        case '%':
            *text += '%';
            return true;
        default:
            return letter == 'u' || letter == 'U' || letter == 'o' || letter == 'O';
    }
}

/// Appends what a backslash sequence at the start of `text` means; returns its length.
std::size_t takeFormat(std::string_view text, std::string* result) {
    const char letter = text.size() > 1 ? text[1] : '\\';
    if (letter == 'P' || letter == 'n' || letter == '~') {
        *result += ' ';
        return 2;
    }
    if (letter == '\\' || letter == '{' || letter == '}') {
        *result += letter;
        return 2;
    }
    constexpr std::string_view kWithArgument = "fFHWACTQSp";
    if (kWithArgument.find(letter) == std::string_view::npos) {
        return 2;
    }
    const std::size_t end = text.find(';');
    if (end == std::string_view::npos) {
        return text.size();
    }
    if (letter == 'S') {
        *result += text.substr(2, end - 2);
    }
    return end + 1;
}

}  // namespace

std::string decodeText(std::string_view value) {
    const std::string text = isUtf8(value) ? std::string(value) : fromLatin1(value);
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        unsigned code = 0;
        if (takeEscape(std::string_view(text).substr(i), &code)) {
            appendUtf8(code, &result);
            i += 7;
        } else {
            result += text[i++];
        }
    }
    return result;
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

std::string plainText(std::string_view value) {
    const std::string text = decodeText(value);
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const bool sign = i + 2 < text.size() && text[i] == '%' && text[i + 1] == '%';
        if (sign && appendSign(text[i + 2], &result)) {
            i += 3;
        } else {
            const char c = text[i++];
            result += isControl(c) ? ' ' : c;
        }
    }
    return result;
}

std::string plainMultiLineText(std::string_view value) {
    const std::string text = plainText(value);
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == '\\') {
            i += takeFormat(std::string_view(text).substr(i), &result);
        } else {
            if (text[i] != '{' && text[i] != '}') {
                result += text[i];
            }
            ++i;
        }
    }
    return result;
}

}  // namespace kxdrawing
