// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/JsonWriter.h"

#include <cmath>

#include "findings/Numbers.h"

namespace gcode_check {
namespace {

constexpr const char* kReplacement = "\xEF\xBF\xBD";

unsigned byteAt(std::string_view text, std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

// The length of the UTF-8 character that begins here; 0: none does.
std::size_t characterAt(std::string_view text, std::size_t at) {
    const unsigned first = byteAt(text, at);
    if (first < 0x80U) {
        return 1;
    }
    const std::size_t length = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
    if (first < 0xC2U || first > 0xF4U) {
        return 0;
    }
    for (std::size_t next = 1; next < length; ++next) {
        if ((byteAt(text, at + next) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    // Longer than need be, halves of pairs, beyond the last character
    const unsigned second = byteAt(text, at + 1);
    const bool wrong = (first == 0xE0U && second < 0xA0U) || (first == 0xEDU && second >= 0xA0U) ||
                       (first == 0xF0U && second < 0x90U) || (first == 0xF4U && second >= 0x90U);
    return wrong ? 0 : length;
}

void addEscape(std::string& text, unsigned code) {
    static constexpr char kDigits[] = "0123456789abcdef";
    text += "\\u00";
    text += kDigits[code >> 4U & 0xFU];
    text += kDigits[code & 0xFU];
}

}  // namespace

void JsonWriter::beginValue(std::string_view name) {
    if (!m_first) {
        m_text += ',';
    }
    if (m_depth > 0) {
        m_text += '\n';
        m_text.append(m_depth * 2, ' ');
    }
    m_first = false;
    if (!name.empty()) {
        quote(name);
        m_text += ": ";
    }
}

void JsonWriter::beginObject(std::string_view name) {
    beginValue(name);
    m_text += '{';
    ++m_depth;
    m_first = true;
}

void JsonWriter::beginArray(std::string_view name) {
    beginValue(name);
    m_text += '[';
    ++m_depth;
    m_first = true;
}

void JsonWriter::end(char bracket) {
    --m_depth;
    if (!m_first) {
        m_text += '\n';
        m_text.append(m_depth * 2, ' ');
    }
    m_text += bracket;
    m_first = false;
}

void JsonWriter::endObject() {
    end('}');
}

void JsonWriter::endArray() {
    end(']');
}

void JsonWriter::text(std::string_view name, std::string_view value) {
    beginValue(name);
    quote(value);
}

void JsonWriter::number(std::string_view name, double value) {
    beginValue(name);
    m_text += std::isfinite(value) ? numberText(value) : "null";
}

void JsonWriter::count(std::string_view name, std::size_t value) {
    beginValue(name);
    m_text += std::to_string(value);
}

void JsonWriter::truth(std::string_view name, bool value) {
    beginValue(name);
    m_text += value ? "true" : "false";
}

void JsonWriter::none(std::string_view name) {
    beginValue(name);
    m_text += "null";
}

void JsonWriter::quote(std::string_view value) {
    m_text += '"';
    for (std::size_t at = 0; at < value.size();) {
        const std::size_t length = characterAt(value, at);
        const unsigned code = byteAt(value, at);
        if (length == 0) {
            m_text += kReplacement;
        } else if (code == '"' || code == '\\') {
            m_text += '\\';
            m_text += static_cast<char>(code);
        } else if (code < 0x20U || code == 0x7FU) {
            addEscape(m_text, code);
        } else {
            m_text += value.substr(at, length);
        }
        at += length == 0 ? 1 : length;
    }
    m_text += '"';
}

std::string JsonWriter::take() {
    m_text += '\n';
    return std::move(m_text);
}

}  // namespace gcode_check
