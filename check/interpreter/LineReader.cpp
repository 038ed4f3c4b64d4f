// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/LineReader.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "interpreter/Characters.h"

namespace gcode_check {
namespace {

// What a controller takes at most, its end not counted.
constexpr std::size_t kLongestLine = 252;
// A code may be off by this much from a number that is one.
constexpr double kCodeTolerance = 0.0001;

// Between words and digits. Other blanks stand at the end of a line only.
constexpr bool isGap(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

class Reader {
public:
    Reader(std::string_view line, Block& block, Fault& fault)
        : m_line(line), m_block(block), m_fault(fault) {}

    bool read() {
        if (m_line.size() > kLongestLine) {
            return reject(m_fault, Rule::WordsTooMany, kLongestLine + 1,
                          std::to_string(m_line.size()) + " characters",
                          "at most " + std::to_string(kLongestLine) + " on a line");
        }
        while (!m_line.empty() && isBlank(m_line.back())) {
            m_line.remove_suffix(1);
        }
        skipBlanks();
        if (peek() == '/') {
            m_block.isDeleted = true;
            ++m_at;
            skipBlanks();
        }
        if (upper(peek()) == 'N' && !lineNumber()) {
            return false;
        }
        for (skipBlanks(); m_at < m_line.size(); skipBlanks()) {
            if (!item()) {
                return false;
            }
        }
        return checkLatheContour();
    }

private:
    struct Number {
        double value = 0;
        std::uint32_t column = 0;
    };

    char peek() const { return m_at < m_line.size() ? m_line[m_at] : '\0'; }
    std::uint32_t column() const { return static_cast<std::uint32_t>(m_at) + 1; }
    void skipBlanks() {
        while (m_at < m_line.size() && isGap(m_line[m_at])) {
            ++m_at;
        }
    }

    bool item() {
        const char c = m_line[m_at];
        if (isLetter(c)) {
            return word(upper(c));
        }
        switch (c) {
            case '(':
                return comment();
            case ';':
                m_block.commentColumn = column();
                m_at = m_line.size();
                return true;
            case '#':
                return fail(Rule::Parameter, "numbers only");
            case '[':
                return fail(Rule::Expression, "numbers only");
            case '@':
            case '^':
                return word(c);
            case '$':
                return fail(Rule::NotInterpretedCode, "a word of a three-axis mill");
            default:
                return fail(Rule::UnknownCharacter, "a word or a comment");
        }
    }

    bool fail(Rule rule, const char* expected) {
        return reject(m_fault, rule, column(), foundHere(), expected);
    }

    // The character, or what can be shown of it.
    std::string foundHere() const {
        if (m_at >= m_line.size()) {
            return "the end of the line";
        }
        const auto c = static_cast<unsigned char>(m_line[m_at]);
        if (c > 0x20 && c < 0x7f) {
            return std::string(1, m_line[m_at]);
        }
        constexpr const char* kDigits = "0123456789abcdef";
        return std::string("byte 0x") + kDigits[c >> 4U] + kDigits[c & 15U];
    }

    bool comment() {
        m_block.commentColumn = column();
        const std::size_t end = m_line.find_first_of("()", m_at + 1);
        if (end == std::string_view::npos) {
            return reject(m_fault, Rule::CommentNotClosed, column(), "(", ") on the same line");
        }
        if (m_line[end] == '(') {
            m_at = end;
            return fail(Rule::NestedComment, ") before another (");
        }
        m_at = end + 1;
        return true;
    }

    // Digits only; what follows a point is not used.
    bool lineNumber() {
        const std::uint32_t begin = column();
        ++m_at;
        skipBlanks();
        if (!isDigit(peek())) {
            return fail(Rule::NumberMissing, "a whole number after N");
        }
        double value = 0;
        for (; isDigit(peek()); skipBlanks()) {
            value = value * 10 + (peek() - '0');
            ++m_at;
        }
        if (peek() == '.') {
            const std::uint32_t point = column();
            ++m_at;
            skipBlanks();
            if (!isDigit(peek())) {
                return reject(m_fault, Rule::NumberUnreadable, point, ".",
                              "a line number without a point");
            }
            for (; isDigit(peek()); skipBlanks()) {
                ++m_at;
            }
        }
        m_block.hasText = true;
        m_block.setWord('N', value, begin);
        return true;
    }

    bool checkLetter(char letter) {
        switch (letter) {
            case 'O':
                return m_hasWords ? fail(Rule::UnknownCharacter, "O as the first word of a line")
                                  : fail(Rule::ControlWord, "no O words");
            case 'N':
                return fail(Rule::UnknownCharacter, "N as the first word of a line");
            case 'U':
            case 'V':
            case 'W':
                return fail(Rule::UnknownCharacter, "an axis of X, Y, Z, A, B, C");
            default:
                return true;
        }
    }

    bool word(char letter) {
        const std::uint32_t begin = column();
        m_block.hasText = true;
        if (!checkLetter(letter)) {
            return false;
        }
        m_hasWords = true;
        ++m_at;
        Number number;
        number.column = begin;
        if (!readNumber(letter, number.value)) {
            return false;
        }
        if (letter == 'G') {
            return gCode(number);
        }
        if (letter == 'M') {
            return mCode(number);
        }
        if (m_block.has(letter)) {
            return reject(m_fault, Rule::WordTwice, begin, std::string("a second ") + letter,
                          "each word once on a line");
        }
        m_block.setWord(letter, number.value, begin);
        return checkRange(letter, number);
    }

    bool checkRange(char letter, const Number& number) {
        if (number.value < 0 &&
            std::string_view("FSTLPQH").find(letter) != std::string_view::npos) {
            return reject(m_fault, Rule::NumberOutOfRange, number.column, shown(number),
                          std::string(1, letter) + " that is not negative");
        }
        if (std::string_view("TLH").find(letter) != std::string_view::npos &&
            (!isWhole(number.value) || number.value >= 2147483647.0)) {
            return reject(m_fault, Rule::NumberOutOfRange, number.column, shown(number),
                          std::string("a whole number after ") + letter);
        }
        return true;
    }

    static bool isWhole(double value) {
        return std::abs(value - std::round(value)) <= kCodeTolerance;
    }

    // The word as it stands there.
    std::string shown(const Number& number) const {
        std::size_t end = m_at;
        while (isGap(m_line[end - 1])) {
            --end;
        }
        return std::string(m_line.substr(number.column - 1, end + 1 - number.column));
    }

    bool gCode(const Number& number) {
        const double tenths = number.value * 10;
        const double whole = std::round(tenths);
        const bool isCode = number.value >= 0 && number.value < 100 &&
                            std::abs(tenths - whole) <= 10 * kCodeTolerance;
        const int code = isCode ? static_cast<int>(whole) : Block::kNone;
        const GGroup group = groupOfG(code);
        if (group == GGroup::Unknown) {
            return reject(m_fault, Rule::UnknownGCode, number.column, shown(number),
                          "a G code of a mill");
        }
        if (group == GGroup::NotInterpreted) {
            return reject(m_fault, Rule::NotInterpretedCode, number.column, shown(number),
                          "a code that is interpreted here");
        }
        // G80 stands beside anything, itself included.
        if (m_block.hasG(group) && group != GGroup::CancelMotion) {
            return reject(m_fault, Rule::SameModalGroup, number.column, shown(number),
                          std::string("one code of the group of ") +
                              textOfG(m_block.g(group)).text + " on a line");
        }
        m_block.setG(group, code, number.column);
        return true;
    }

    // Where the contour stands that it cuts says a Q.
    bool checkLatheContour() {
        if (!m_block.hasG(GGroup::LatheContour)) {
            return true;
        }
        const std::uint32_t column = m_block.columnOfG(GGroup::LatheContour);
        const CodeText code = textOfG(m_block.g(GGroup::LatheContour));
        return m_block.has('Q') ? reject(m_fault, Rule::NotInterpretedCode, column, code.text,
                                         "a code that is interpreted here")
                                : reject(m_fault, Rule::WordMissing, column, code.text,
                                         "Q with the number of a subroutine");
    }

    bool mCode(const Number& number) {
        const bool isCode =
            isWhole(number.value) && number.value > -kCodeTolerance && number.value < 200;
        const int code = isCode ? static_cast<int>(std::round(number.value)) : Block::kNone;
        const MGroup group = groupOfM(code);
        if (group == MGroup::Unknown) {
            return reject(m_fault, Rule::UnknownMCode, number.column, shown(number),
                          "an M code of a mill");
        }
        if (group == MGroup::NotInterpreted) {
            return reject(m_fault, Rule::NotInterpretedCode, number.column, shown(number),
                          "a code that is interpreted here");
        }
        if (m_block.hasM(group)) {
            return reject(
                m_fault, Rule::SameModalGroup, number.column, shown(number),
                "one code of the group of M" + std::to_string(m_block.m(group)) + " on a line");
        }
        m_block.setM(group, code, number.column);
        return true;
    }

    // Signs may stand in a row. Blanks mean nothing, also between digits.
    bool readNumber(char letter, double& value) {
        bool isNegative = false;
        skipBlanks();
        for (; peek() == '+' || peek() == '-'; skipBlanks()) {
            isNegative ^= peek() == '-';
            ++m_at;
        }
        const char c = peek();
        if (!isDigit(c) && c != '.') {
            return noNumber(letter);
        }
        if (!readDigits(value)) {
            return reject(m_fault, Rule::NumberUnreadable, column(), foundHere(),
                          std::string("a number after ") + letter);
        }
        value = isNegative ? -value : value;
        return true;
    }

    bool readDigits(double& value) {
        const std::size_t begin = m_at;
        std::uint64_t mantissa = 0;
        int digits = 0;
        int decimals = 0;
        bool hasPoint = false;
        for (; m_at < m_line.size(); ++m_at) {
            const char c = m_line[m_at];
            if (isDigit(c)) {
                if (++digits <= 15) {
                    mantissa = mantissa * 10 + static_cast<unsigned>(c - '0');
                }
                decimals += hasPoint ? 1 : 0;
            } else if (c == '.' && !hasPoint) {
                hasPoint = true;
            } else if (!isGap(c)) {
                break;
            }
        }
        if (digits == 0 || peek() == '.') {
            return false;
        }
        if (digits <= 15) {
            // Both are exact, so their quotient is rounded once.
            value =
                static_cast<double>(mantissa) / kPowersOfTen[static_cast<std::size_t>(decimals)];
            return true;
        }
        return readManyDigits(m_line.substr(begin, m_at - begin), value);
    }

    static bool readManyDigits(std::string_view text, double& value) {
        std::array<char, kLongestLine + 1> digits{};
        char* end = digits.data();
        for (const char c : text) {
            if (!isGap(c)) {
                *end++ = c;
            }
        }
        return std::from_chars(digits.data(), end, value).ec == std::errc();
    }

    bool noNumber(char letter) {
        const char c = peek();
        if (c == '#') {
            return fail(Rule::Parameter, "numbers only");
        }
        if (c == '[' || isFunction()) {
            return fail(Rule::Expression, "numbers only");
        }
        return reject(m_fault, Rule::NumberMissing, column(), foundHere(),
                      std::string("a number after ") + letter);
    }

    // A function's name and its opening bracket.
    bool isFunction() const {
        for (const std::string_view name : {"ABS", "ACOS", "ASIN", "ATAN", "COS", "EXP", "EXISTS",
                                            "FIX", "FUP", "LN", "ROUND", "SIN", "SQRT", "TAN"}) {
            if (startsHere(name)) {
                return true;
            }
        }
        return false;
    }

    bool startsHere(std::string_view name) const {
        std::size_t at = m_at;
        for (std::size_t i = 0; i <= name.size(); ++i, ++at) {
            while (at < m_line.size() && isGap(m_line[at])) {
                ++at;
            }
            const char wanted = i < name.size() ? name[i] : '[';
            if (at >= m_line.size() || upper(m_line[at]) != wanted) {
                return false;
            }
        }
        return true;
    }

    std::string_view m_line;
    Block& m_block;
    Fault& m_fault;
    std::size_t m_at = 0;
    bool m_hasWords = false;  // besides the line number
};

}  // namespace

bool reject(Fault& fault, Rule rule, std::uint32_t column, std::string found,
            std::string expected) {
    fault = {rule, column, std::move(found), std::move(expected)};
    return false;
}

bool readLine(std::string_view line, Block& block, Fault& fault) {
    return Reader(line, block, fault).read();
}

}  // namespace gcode_check
