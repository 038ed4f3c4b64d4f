// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxString.h>

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

struct Decoded {
    wchar_t codePoint;
    std::size_t bytes;
};

/// The number of bytes that a lead byte announces; 0 when it is none.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead < 0xE0) {
        return 2;
    }
    if (lead >= 0xE0 && lead < 0xF0) {
        return 3;
    }
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isScalarValue(unsigned long value) {
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

Decoded decodeOne(const std::string& utf8, std::size_t at) {
    static constexpr unsigned long kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || at + length > utf8.size()) {
        return {kReplacement, 1};
    }
    unsigned long value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[at + i]);
        if ((byte & 0xC0U) != 0x80U) {
            return {kReplacement, 1};
        }
        value = value << 6U | (byte & 0x3FU);
    }
    if (value < kSmallest[length] || !isScalarValue(value)) {
        return {kReplacement, 1};
    }
    return {static_cast<wchar_t>(value), length};
}

std::wstring decode(const std::string& utf8) {
    std::wstring text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Decoded decoded = decodeOne(utf8, at);
        text.push_back(decoded.codePoint);
        at += decoded.bytes;
    }
    return text;
}

char tail(unsigned long value, unsigned shift) {
    return static_cast<char>(0x80U | ((value >> shift) & 0x3FU));
}

void appendUtf8(std::string& out, unsigned long value) {
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += {static_cast<char>(0xC0U | value >> 6U), tail(value, 0)};
    } else if (value < 0x10000) {
        out += {static_cast<char>(0xE0U | value >> 12U), tail(value, 6), tail(value, 0)};
    } else {
        out += {static_cast<char>(0xF0U | value >> 18U), tail(value, 12), tail(value, 6),
                tail(value, 0)};
    }
}

}  // namespace

kxString::kxString(const wchar_t* text) {
    if (text != nullptr) {
        m_text = text;
    }
}

kxString::kxString(const wchar_t* text, std::size_t length) {
    if (text != nullptr) {
        m_text.assign(text, length);
    }
}

kxString::kxString(const char* utf8) {
    if (utf8 != nullptr) {
        m_text = decode(utf8);
    }
}

kxString::kxString(const std::string& utf8) : m_text(decode(utf8)) {}

std::string kxString::toUtf8() const {
    std::string out;
    out.reserve(m_text.size());
    for (const wchar_t character : m_text) {
        const auto value = static_cast<unsigned long>(character);
        appendUtf8(out, isScalarValue(value) ? value : static_cast<unsigned long>(kReplacement));
    }
    return out;
}

kxString& kxString::operator+=(const kxString& tail) {
    m_text += tail.m_text;
    return *this;
}

kxString operator+(const kxString& a, const kxString& b) {
    kxString joined = a;
    joined += b;
    return joined;
}
