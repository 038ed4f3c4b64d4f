// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/ProgramText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "interpreter/Characters.h"

namespace gcode_check {
namespace {

bool isOfNumber(char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+';
}

// Letters with numbers, comments left out. Reads what no controller would, too: it only asks what
// a line is about.
class WordCursor {
public:
    explicit WordCursor(std::string_view line) : m_rest(line) {}

    bool next() {
        while (skipToLetter()) {
            m_letter = upper(m_rest.front());
            m_rest.remove_prefix(1);
            while (!m_rest.empty() && isBlank(m_rest.front())) {
                m_rest.remove_prefix(1);
            }
            if (!m_rest.empty() && isOfNumber(m_rest.front())) {
                readNumber();
                return true;
            }
        }
        return false;
    }

    char letter() const { return m_letter; }
    double value() const { return m_value; }

private:
    bool skipToLetter() {
        while (!m_rest.empty() && m_rest.front() != ';') {
            if (m_rest.front() == '(') {
                m_rest.remove_prefix(std::min(m_rest.find(')'), m_rest.size() - 1));
            } else if (isLetter(m_rest.front())) {
                return true;
            }
            m_rest.remove_prefix(1);
        }
        return false;
    }

    void readNumber() {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isOfNumber);
        std::string_view digits = m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(digits.size());
        if (digits.front() == '+') {
            digits.remove_prefix(1);
        }
        m_value = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), m_value,
                        std::chars_format::fixed);
    }

    std::string_view m_rest;
    char m_letter = ' ';
    double m_value = 0;
};

bool isFeedCode(int tenths) {
    return tenths == 10 || tenths == 20 || tenths == 30 || tenths == 730 ||
           (tenths >= 810 && tenths <= 890);
}

bool isMotionCode(int tenths) {
    return tenths == 0 || tenths == 800 || isFeedCode(tenths);
}

bool cuts(std::string_view line, int& modalTenths) {
    bool hasAxis = false;
    bool hasCode = false;
    WordCursor words(line);
    while (words.next()) {
        const char letter = words.letter();
        hasAxis = hasAxis || (letter >= 'X' && letter <= 'Z');
        if (letter != 'G' || !(std::abs(words.value()) < 1000)) {
            continue;
        }
        const int tenths = static_cast<int>(std::lround(words.value() * 10));
        if (isMotionCode(tenths)) {
            modalTenths = tenths;
        }
        hasCode = hasCode || isFeedCode(tenths);
    }
    return hasCode || (hasAxis && isFeedCode(modalTenths));
}

void noteZeroCode(int tenths, ZeroWords& words) {
    switch (tenths) {
        case 100:
        case 520:
        case 920:
            words.sets = tenths;
            break;
        case 921:
        case 922:
        case 923:
            words.switches = tenths;
            break;
        default:
            if (tenths >= 540 && tenths <= 593) {
                words.selects = tenths;
            }
            break;
    }
}

}  // namespace

bool LineCursor::next() {
    if (m_rest.empty()) {
        return false;
    }
    const std::size_t end = std::min(m_rest.find('\n'), m_rest.size());
    m_text = m_rest.substr(0, end);
    m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
    ++m_number;
    return true;
}

AxisLines firstAxisLines(std::string_view program) {
    AxisLines lines;
    LineCursor cursor(program);
    const auto note = [&cursor](std::uint32_t& line) { line = std::min(line, cursor.number()); };
    const auto missing = [&lines] {
        return lines.x == AxisLines::kNever || lines.y == AxisLines::kNever ||
               lines.z == AxisLines::kNever;
    };
    while (missing() && cursor.next()) {
        WordCursor words(cursor.text());
        while (words.next()) {
            if (words.letter() == 'X') {
                note(lines.x);
            } else if (words.letter() == 'Y') {
                note(lines.y);
            } else if (words.letter() == 'Z') {
                note(lines.z);
            }
        }
    }
    return lines;
}

bool cutsFrom(std::string_view program, std::uint32_t line, int modalTenths) {
    LineCursor cursor(program);
    while (cursor.next()) {
        if (cursor.number() >= line && cuts(cursor.text(), modalTenths)) {
            return true;
        }
    }
    return false;
}

ZeroWords zeroWordsOf(std::string_view line) {
    ZeroWords found;
    WordCursor words(line);
    while (words.next()) {
        const double value = words.value();
        switch (words.letter()) {
            case 'G':
                if (std::abs(value) < 1000) {
                    noteZeroCode(static_cast<int>(std::lround(value * 10)), found);
                }
                break;
            case 'L':
                found.fromTool = value == 20;
                break;
            case 'P':
                found.system = value >= 1 && value <= 9 ? static_cast<std::size_t>(value) - 1
                                                        : ZeroWords::kInForce;
                break;
            case 'X':
            case 'Y':
            case 'Z':
                found.axes[static_cast<std::size_t>(words.letter() - 'X')] = value;
                break;
            default:
                break;
        }
    }
    return found;
}

bool hasWords(std::string_view program) {
    LineCursor cursor(program);
    while (cursor.next()) {
        if (WordCursor(cursor.text()).next()) {
            return true;
        }
    }
    return false;
}

std::string_view lineOf(std::string_view program, std::uint32_t line) {
    LineCursor cursor(program);
    while (cursor.next()) {
        if (cursor.number() == line) {
            return cursor.text();
        }
    }
    return {};
}

}  // namespace gcode_check
