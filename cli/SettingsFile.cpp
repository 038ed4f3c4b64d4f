// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "SettingsFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Whether it may stand in a name or a value without quotes.
bool isWordPart(char c) {
    return static_cast<unsigned char>(c) > ' ' &&
           std::string_view("=#,[]{}\"'").find(c) == std::string_view::npos;
}

std::optional<char> simpleEscape(char c) {
    constexpr std::string_view kLetters = "btnfr\"\\";
    constexpr std::string_view kMeanings = "\b\t\n\f\r\"\\";
    const std::size_t at = kLetters.find(c);
    return at == std::string_view::npos ? std::nullopt : std::optional(kMeanings[at]);
}

std::optional<std::uint32_t> hexDigit(char c) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const std::size_t at = kDigits.find(c >= 'A' && c <= 'F' ? static_cast<char>(c + 32) : c);
    return at == std::string_view::npos ? std::nullopt
                                        : std::optional(static_cast<std::uint32_t>(at));
}

/// Nothing for zero and for what is no character.
std::optional<std::string> utf8(std::uint32_t code) {
    const auto tail = [code](unsigned shift) {
        return static_cast<char>(0x80U | ((code >> shift) & 0x3fU));
    };
    if (code == 0 || code > 0x10ffff || (code >= 0xd800 && code < 0xe000)) {
        return std::nullopt;
    }
    if (code < 0x80) {
        return std::string{static_cast<char>(code)};
    }
    if (code < 0x800) {
        return std::string{static_cast<char>(0xc0U | (code >> 6U)), tail(0)};
    }
    if (code < 0x10000) {
        return std::string{static_cast<char>(0xe0U | (code >> 12U)), tail(6), tail(0)};
    }
    return std::string{static_cast<char>(0xf0U | (code >> 18U)), tail(12), tail(6), tail(0)};
}

/// Reads front to back. One function for each rule; it is false when the rule does not hold, once
/// what is wrong was noted.
class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}

    Settings read() {
        while (skipToContent() && readSetting()) {
        }
        return std::move(m_settings);
    }

private:
    bool atEnd() const { return m_at == m_text.size(); }
    char next() const { return atEnd() ? '\0' : m_text[m_at]; }
    bool startsWith(std::string_view start) const {
        return m_text.compare(m_at, start.size(), start) == 0;
    }
    bool take(std::string_view wanted) {
        const bool found = startsWith(wanted);
        m_at += found ? wanted.size() : 0;
        return found;
    }
    bool fail(const std::string& error) {
        m_settings.error = error;
        m_settings.errorLine = line();
        return false;
    }
    /// Counts on from where it counted up to before.
    int line() {
        const auto counted = static_cast<std::ptrdiff_t>(m_counted);
        const auto at = static_cast<std::ptrdiff_t>(m_at);
        m_line += static_cast<int>(std::count(m_text.begin() + counted, m_text.begin() + at, '\n'));
        m_counted = m_at;
        return m_line;
    }

    bool atLineEnd() const { return atEnd() || next() == '\n' || startsWith("\r\n"); }
    void skipBlanks();
    bool skipToContent();
    bool readSetting();
    bool readName(std::string* name);
    bool readValue(Setting* setting);
    bool readList(Setting* setting);
    bool readOne(std::string* value);
    bool readWord(std::string* value);
    bool readString(std::string* value);
    bool readUpTo(std::string_view end, bool hasEscapes, std::string* value);
    bool readEscape(std::string* value);
    bool readCode(std::size_t digits, std::string* value);
    bool expectLineEnd();

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_counted = 0;
    int m_line = 1;
    Settings m_settings;
};

void Reader::skipBlanks() {
    while (!atEnd() && isBlank(next())) {
        ++m_at;
    }
    if (next() == '#') {
        m_at = std::min(m_text.find('\n', m_at), m_text.size());
    }
}

/// Beyond blank lines and comments; false at the end.
bool Reader::skipToContent() {
    skipBlanks();
    while (take("\n") || take("\r\n")) {
        skipBlanks();
    }
    return !atEnd();
}

bool Reader::readSetting() {
    Setting setting;
    setting.line = line();
    if (next() == '[') {
        return fail("settings have no tables");
    }
    if (!readName(&setting.name)) {
        return false;
    }
    skipBlanks();
    if (!take("=")) {
        return fail("no '=' behind '" + setting.name + "'");
    }
    skipBlanks();
    if (!readValue(&setting) || !expectLineEnd()) {
        return false;
    }
    m_settings.list.push_back(std::move(setting));
    return true;
}

bool Reader::readName(std::string* name) {
    return next() == '"' || next() == '\'' ? readString(name) : readWord(name);
}

bool Reader::readValue(Setting* setting) {
    setting->isList = next() == '[';
    if (setting->isList) {
        return readList(setting);
    }
    return readOne(&setting->values.emplace_back());
}

bool Reader::readList(Setting* setting) {
    take("[");
    while (skipToContent()) {
        if (take("]")) {
            return true;
        }
        if (!readOne(&setting->values.emplace_back())) {
            return false;
        }
        if (skipToContent() && !take(",") && next() != ']') {
            return fail("neither ',' nor ']' behind a value of '" + setting->name + "'");
        }
    }
    return fail("no ']' behind the list '" + setting->name + "'");
}

bool Reader::readOne(std::string* value) {
    return next() == '"' || next() == '\'' ? readString(value) : readWord(value);
}

bool Reader::readWord(std::string* value) {
    const std::size_t begin = m_at;
    while (!atEnd() && isWordPart(next())) {
        ++m_at;
    }
    *value = m_text.substr(begin, m_at - begin);
    if (value->empty()) {
        const bool isMissing = atLineEnd() || next() == '=' || next() == ']';
        return fail(isMissing ? "a name or a value is missing"
                              : "'" + std::string(1, next()) + "' where a name or a value begins");
    }
    return true;
}

bool Reader::readString(std::string* value) {
    const bool hasEscapes = next() == '"';
    const std::string_view once = hasEscapes ? "\"" : "'";
    const std::string_view thrice = hasEscapes ? "\"\"\"" : "'''";
    if (!take(thrice)) {
        take(once);
        return readUpTo(once, hasEscapes, value);
    }
    // A line end right behind the quotes is not part of the text.
    if (!take("\n")) {
        take("\r\n");
    }
    return readUpTo(thrice, hasEscapes, value);
}

bool Reader::readUpTo(std::string_view end, bool hasEscapes, std::string* value) {
    while (!take(end)) {
        if (atEnd() || (end.size() == 1 && atLineEnd())) {
            return fail("no " + std::string(end) + " behind a text");
        }
        if (hasEscapes && take("\\")) {
            if (!readEscape(value)) {
                return false;
            }
        } else if (take("\r\n")) {
            *value += '\n';
        } else {
            *value += m_text[m_at++];
        }
    }
    return true;
}

bool Reader::readEscape(std::string* value) {
    if (take("u")) {
        return readCode(4, value);
    }
    if (take("U")) {
        return readCode(8, value);
    }
    const std::optional<char> meaning = simpleEscape(next());
    if (atEnd() || !meaning) {
        return fail("a text has a '\\' that means nothing; between ' ' it would stand for itself");
    }
    ++m_at;
    *value += *meaning;
    return true;
}

bool Reader::readCode(std::size_t digits, std::string* value) {
    std::uint32_t code = 0;
    for (std::size_t i = 0; i < digits; ++i) {
        const std::optional<std::uint32_t> digit = hexDigit(next());
        if (!digit) {
            return fail("too few digits behind '\\u'");
        }
        code = code * 16 + *digit;
        ++m_at;
    }
    const std::optional<std::string> character = utf8(code);
    if (!character) {
        return fail("the number behind '\\u' is no character's");
    }
    *value += *character;
    return true;
}

bool Reader::expectLineEnd() {
    skipBlanks();
    return atLineEnd() || fail("a second value in the line; texts with blanks need quotes");
}

}  // namespace

Settings readSettings(std::string_view text) {
    if (text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
        text.remove_prefix(kByteOrderMark.size());
    }
    return Reader(text).read();
}
