// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/NoProgramRule.h"

#include <algorithm>

#include "findings/Numbers.h"
#include "findings/ProgramText.h"
#include "interpreter/Characters.h"

namespace gcode_check {
namespace {

constexpr std::size_t kLeastBytes = 4;
constexpr std::size_t kOneByteIn = 100;
constexpr std::size_t kOneLineIn = 10;
constexpr std::size_t kShownCharacters = 40;
// How some systems end a text.
constexpr char kEndOfText = '\x1a';

bool isSpace(char c) {
    return isBlank(c) || c == kEndOfText;
}

bool isOfNoText(char c) {
    return (c >= '\0' && c < ' ' && !isSpace(c)) || c == '\x7f';
}

bool isUtf16(std::string_view program) {
    const std::string_view begin = program.substr(0, 2);
    return begin == "\xff\xfe" || begin == "\xfe\xff";
}

std::size_t bytesOfNoText(std::string_view program) {
    return static_cast<std::size_t>(std::count_if(program.begin(), program.end(), isOfNoText));
}

bool isBinary(std::string_view program) {
    const std::size_t count = bytesOfNoText(program);
    return count >= kLeastBytes && count >= program.size() / kOneByteIn;
}

void skipBlanks(std::string_view& text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
}

// What stands behind the remarks at the front of a line. Empty: it has nothing else.
std::string_view behindRemarks(std::string_view line) {
    skipBlanks(line);
    while (!line.empty() && line.front() == '(') {
        line.remove_prefix(std::min(line.find(')'), line.size() - 1) + 1);
        skipBlanks(line);
    }
    std::string_view rest = line;
    if (!rest.empty() && rest.front() == '%') {
        rest.remove_prefix(1);
        skipBlanks(rest);
        return rest.empty() ? rest : line;
    }
    return !line.empty() && line.front() == ';' ? std::string_view() : line;
}

bool beginsNumber(std::string_view text) {
    while (!text.empty() && (isSpace(text.front()) || text.front() == '+' || text.front() == '-')) {
        text.remove_prefix(1);
    }
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
    }
    return !text.empty() && isDigit(text.front());
}

// A letter with its number, also one with the letter O for a zero, or what sets a parameter.
bool beginsWord(std::string_view text) {
    if (!text.empty() && text.front() == '/') {
        text.remove_prefix(1);
        skipBlanks(text);
    }
    if (text.empty()) {
        return false;
    }
    const char letter = upper(text.front());
    text.remove_prefix(1);
    if (beginsNumber(text)) {
        // U, V and W are axes that a mill lacks, and "v2" is written everywhere.
        const bool isOfMill = isLetter(letter) && (letter < 'U' || letter > 'W');
        return isOfMill || letter == '#' || letter == '@' || letter == '^';
    }
    const char next = text.empty() ? '\0' : upper(text.front());
    if (letter == '#' || letter == 'O') {
        return next == '<' || (letter == '#' && next == '[');
    }
    const bool isZero = next == 'O' && (text.size() == 1 || !isLetter(text[1]));
    return isLetter(letter) &&
           (next == '#' || next == '[' || ((letter == 'G' || letter == 'M') && isZero));
}

bool hasCode(std::string_view text) {
    char before = ' ';
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const char letter = upper(text[i]);
        if ((letter == 'G' || letter == 'M') && isDigit(text[i + 1]) && isSpace(before)) {
            return true;
        }
        before = text[i];
    }
    return false;
}

struct Lines {
    std::size_t all = 0;  // but for remarks
    std::size_t ofPrograms = 0;
    std::uint32_t firstOther = 0;
    std::string_view textOfFirstOther;
};

Lines linesOf(std::string_view program) {
    constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
    if (program.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
        program.remove_prefix(kByteOrderMark.size());
    }
    Lines lines;
    LineCursor cursor(program);
    while (cursor.next()) {
        const std::string_view text = behindRemarks(cursor.text());
        if (text.empty()) {
            continue;
        }
        ++lines.all;
        if (beginsWord(text) || hasCode(text)) {
            ++lines.ofPrograms;
        } else if (lines.firstOther == 0) {
            lines.firstOther = cursor.number();
            lines.textOfFirstOther = text;
        }
    }
    return lines;
}

bool isOtherText(const Lines& lines) {
    return lines.ofPrograms * kOneLineIn < lines.all;
}

// A character that is more than a byte, or that does not show, as a question mark.
std::string shown(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const bool isContinued = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
        if (isContinued) {
            continue;
        }
        if (result.size() == kShownCharacters) {
            return result + "...";
        }
        result += isSpace(c) ? ' ' : c < ' ' || c > '~' ? '?' : c;
    }
    return result.substr(0, result.find_last_not_of(' ') + 1);
}

std::string otherTextSentence(const Lines& lines) {
    const std::string all = std::to_string(lines.all);
    const std::string few = lines.all == 1 ? "its only line does not begin"
                            : lines.ofPrograms == 0
                                ? "none of its " + all + " lines begins"
                                : "only " + std::to_string(lines.ofPrograms) + " of its " + all +
                                      (lines.ofPrograms == 1 ? " lines begins" : " lines begin");
    return "This does not look like a program: " + few +
           " with a word such as G1 or X10. This one reads \"" + shown(lines.textOfFirstOther) +
           "\". Give the program's file; nothing of this one was checked.";
}

}  // namespace

bool isNoProgram(std::string_view program) {
    return isUtf16(program) || isBinary(program) || isOtherText(linesOf(program));
}

void findNoProgram(std::string_view program, Findings& findings) {
    Finding* const finding = findings.add(FindingKind::ControllerRejects, Severity::Error, 1);
    if (finding == nullptr) {
        return;
    }
    finding->detail = identifierOf(Rule::UnknownCharacter);
    if (isUtf16(program)) {
        finding->sentence =
            "This is not a text that a controller reads: it is written in UTF-16. Save it as plain "
            "text or UTF-8. Nothing of it was checked.";
    } else if (isBinary(program)) {
        const std::size_t count = bytesOfNoText(program);
        finding->sentence = "This is not a text: " + std::to_string(count) + " of its " +
                            counted(program.size(), "byte", "bytes") +
                            " are no characters. Give the program's file; nothing of this one was "
                            "checked.";
        finding->numbers = {{"bytes", static_cast<double>(count), Measure::Count}};
    } else {
        const Lines lines = linesOf(program);
        finding->line = lines.firstOther;
        finding->sentence = otherTextSentence(lines);
        finding->numbers = {
            {"lines", static_cast<double>(lines.all), Measure::Count},
            {"program-lines", static_cast<double>(lines.ofPrograms), Measure::Count}};
    }
}

}  // namespace gcode_check
