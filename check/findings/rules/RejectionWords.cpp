// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/RejectionWords.h"

#include <algorithm>
#include <iterator>

#include "findings/ProgramText.h"
#include "interpreter/Characters.h"

namespace gcode_check {
namespace {

std::string trimmed(std::string text) {
    text.erase(text.find_last_not_of(" \t\r") + 1);
    return text;
}

char at(std::string_view text, std::uint32_t column) {
    return column >= 1 && column <= text.size() ? text[column - 1] : '\0';
}

// "X1e-05": an E behind a number.
bool isExponent(std::string_view text, std::uint32_t column) {
    return (at(text, column) | 0x20) == 'e' && isDigit(at(text, column - 1));
}

bool isDecimalComma(std::string_view text, std::uint32_t column) {
    return at(text, column) == ',' && isDigit(at(text, column + 1)) &&
           (column > 1 && isDigit(at(text, column - 1)));
}

bool isLetterO(std::string_view text, std::uint32_t column) {
    return (at(text, column) | 0x20) == 'o';
}

bool hasByteOrderMark(std::string_view text) {
    return text.substr(0, 3) == "\xef\xbb\xbf";
}

// How texts were written on some old systems.
bool hasReturnsWithin(std::string_view text) {
    const std::size_t end = text.find_last_not_of("\r");
    return end != std::string_view::npos && text.find('\r') < end;
}

// "XO": nobody's word, but a coordinate with a mistyped zero.
bool isCoordinateOfO(char first, char second) {
    return upper(second) == 'O' &&
           std::string_view("XYZIJK").find(upper(first)) != std::string_view::npos;
}

// A word for people has three letters in a row, or is one of several.
bool isRemark(std::string_view text) {
    std::size_t words = 0;
    std::size_t letters = 0;
    char before = ' ';
    bool isName = false;  // of a parameter or subroutine
    for (const char c : text) {
        if (c == ';' || c == '(') {
            break;
        }
        isName = c == '<' || (isName && c != '>');
        if (isName) {
            letters = 0;
            continue;
        }
        letters = isLetter(c) ? letters + 1 : 0;
        words += letters == 2 && !isCoordinateOfO(before, c) ? 1 : 0;
        if (letters == 3) {
            return true;
        }
        before = c;
    }
    return words >= 2;
}

// "X5O", "GO": within a word, where a digit could stand, and not in a text for people.
bool isLetterForZero(std::string_view text, std::uint32_t column) {
    const char before = column >= 2 ? at(text, column - 1) : '\0';
    if (isDigit(before) || before == '.' || before == '-' || before == '+') {
        return isLetterO(text, column);
    }
    return isLetter(before) && isLetterO(text, column) && !isRemark(text);
}

const char* hintFor(const Diagnostic& diagnostic, std::string_view text) {
    const bool isOfText =
        diagnostic.rule == Rule::NumberMissing || diagnostic.rule == Rule::UnknownCharacter ||
        diagnostic.rule == Rule::NumberUnreadable || diagnostic.rule == Rule::WordTwice;
    if (isOfText && isRemark(text)) {
        return " Remarks must stand in parentheses or behind a semicolon.";
    }
    const bool isDwell = diagnostic.rule == Rule::WordWithoutUse && diagnostic.found == "P";
    if (isDwell && text.find("G83") != std::string_view::npos) {
        return " A dwell does not belong to G83: take the P word out, or drill with G82.";
    }
    return "";
}

// What was found and what would have been right, for who has never read a grammar.
std::string reasonFor(const Diagnostic& diagnostic, std::string_view text) {
    if (diagnostic.line == 1 && diagnostic.column == 1 && hasByteOrderMark(text)) {
        return ": the file begins with a byte order mark, three bytes that editors do not show. "
               "Save it without one (UTF-8, not \"UTF-8 with BOM\").";
    }
    if (hasReturnsWithin(text)) {
        return ": the lines of this file end with carriage returns alone, so that a controller "
               "takes "
               "it for one line. Save it with line feeds.";
    }
    if (isExponent(text, diagnostic.column)) {
        return ": found a number with an exponent, as very small and very large ones are written; "
               "numbers must be plain.";
    }
    if (isDecimalComma(text, diagnostic.column) && !isRemark(text)) {
        return ": found a comma within a number; decimals stand behind a point.";
    }
    if (isLetterForZero(text, diagnostic.column)) {
        return ": found the letter O; a zero was meant?";
    }
    if (diagnostic.rule == Rule::UnknownCharacter && isLetterO(text, diagnostic.column)) {
        return ": found the letter O in the middle of a line. In a number a zero was meant; an O "
               "word must be the first of its line.";
    }
    std::string reason;
    if (!diagnostic.found.empty()) {
        reason += ": found " + trimmed(diagnostic.found);
        if (!diagnostic.expected.empty()) {
            reason += ", expected " + diagnostic.expected;
        }
    }
    return reason + '.' + hintFor(diagnostic, text);
}

// The last F word up to a line.
const Fact* feedBefore(const Reading& reading, std::uint32_t line) {
    const Fact* last = nullptr;
    for (const Fact& fact : reading.facts) {
        if (fact.line > line) {
            break;
        }
        last = fact.kind == FactKind::Feed ? &fact : last;
    }
    return last;
}

std::string feedSentence(const Setting& setting, const Diagnostic& diagnostic) {
    const std::string beginning = "The tool is to cut, but ";
    const Fact* feed = feedBefore(setting.reading, diagnostic.line);
    if (feed == nullptr) {
        return beginning + "no feed is set, a controller stops here: an F word above 0 is missing.";
    }
    const std::string where =
        feed->line == diagnostic.line ? "in this line" : "in line " + std::to_string(feed->line);
    if (feed->value == 0) {
        return beginning + "the feed is 0, a controller stops here: F0 stands " + where +
               ", it must be above 0.";
    }
    return beginning + "the F word " + where +
           " does not count for it, a controller stops here: G93 needs an F in every line that "
           "cuts, and G94 and G95 a new one behind them.";
}

std::string beginningFor(Rule rule) {
    switch (rule) {
        case Rule::ArcRadiiDiffer:
            return "The arc does not meet its end, a controller stops here";
        case Rule::SpindleMissing:
            return "The tool is to cut, but the spindle stands, a controller stops here";
        default:
            return "A controller stops here";
    }
}

// Behind the number or name of an O word or a parameter, whose first character is in the column.
std::size_t endOfName(std::string_view text, std::uint32_t column) {
    std::size_t end = column;
    while (end < text.size() && isBlank(text[end])) {
        ++end;
    }
    if (end < text.size() && text[end] == '<') {
        return std::min(text.find('>', end), text.size() - 1) + 1;
    }
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return end;
}

// What can be shown of it.
std::string nameAt(std::string_view text, std::uint32_t column) {
    constexpr std::size_t kShown = 40;
    std::string name(text.substr(column - 1, endOfName(text, column) + 1 - column));
    name = trimmed(std::move(name));
    if (name.size() > kShown) {
        name = name.substr(0, kShown) + "...";
    }
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return name;
}

// "call", "sub", "if"
std::string keynameAt(std::string_view text, std::uint32_t column) {
    std::size_t begin = endOfName(text, column);
    while (begin < text.size() && isBlank(text[begin])) {
        ++begin;
    }
    std::size_t end = begin;
    while (end < text.size() && isLetter(text[end])) {
        ++end;
    }
    return std::string(text.substr(begin, end - begin));
}

struct CodeName {
    std::string_view code;
    const char* name;
};

// What a code is that the check leaves to others, with all that stands behind its point.
constexpr CodeName kCodeNames[] = {
    {"G5", "a spline"},
    {"G7", "a code of lathes"},
    {"G10", "a change of the tool table"},
    {"G33", "cutting a thread"},
    {"G38", "probing"},
    {"G70", "a code of lathes"},
    {"G71", "a code of lathes"},
    {"G72", "a code of lathes"},
    {"G74", "tapping"},
    {"G76", "cutting a thread"},
    {"G84", "tapping"},
    {"G87", "a boring cycle"},
    {"G88", "a boring cycle"},
    {"G96", "a speed that follows the radius"},
    {"M19", "turning the spindle to an angle"},
    {"M98", "a subprogram"},
    {"M99", "a subprogram"},
};

bool isCode(const std::string& found, std::string_view code) {
    const bool begins = found.compare(0, code.size(), code) == 0;
    return begins && (found.size() == code.size() || !isDigit(found[code.size()]));
}

std::string codeWords(const std::string& found) {
    std::string plain;
    std::copy_if(found.begin(), found.end(), std::back_inserter(plain),
                 [](char c) { return !isBlank(c); });
    std::transform(plain.begin(), plain.end(), plain.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    const auto* const known =
        std::find_if(std::begin(kCodeNames), std::end(kCodeNames),
                     [&plain](const CodeName& name) { return isCode(plain, name.code); });
    if (known != std::end(kCodeNames)) {
        return trimmed(found) + " (" + known->name + ")";
    }
    const bool isOfMachine = plain.size() == 4 && plain[0] == 'M' && plain[1] == '1';
    return trimmed(found) + (isOfMachine ? " (a command of its machine alone)" : "");
}

struct Untold {
    std::string what;  // "#1 is a parameter"
    std::string todo;
};

Untold controlWord(std::string_view text, std::uint32_t column) {
    const std::string word = nameAt(text, column);
    const std::string keyword = keynameAt(text, column);
    if (keyword.empty()) {
        return {word + " is the number of the program or of a subroutine (an O word)",
                "If it is the program's number, put it into parentheses or take the line out, and "
                "check again"};
    }
    return {word + ' ' + keyword + " belongs to a subroutine, a loop or a condition (an O word)",
            "To have it checked, write out the moves that it leads to"};
}

// Of codes as such the reader expects others; what is told of a mode says what it needs.
bool isOfMode(const Diagnostic& diagnostic) {
    return diagnostic.found.find(' ') != std::string::npos &&
           diagnostic.found.find(" L") == std::string::npos &&
           diagnostic.expected.find("interpreted here") == std::string::npos;
}

// "G41 without a known diameter of tool 4"
bool isOfUnknownTool(const Diagnostic& diagnostic) {
    return diagnostic.found.find(" without a known diameter of ") != std::string::npos;
}

Untold unknownTool(const Diagnostic& diagnostic) {
    const std::string& found = diagnostic.found;
    const std::size_t number = found.find_last_of(' ') + 1;
    const bool isNumbered = number < found.size() && isDigit(found[number]);
    const std::string tool = isNumbered ? found.substr(number) : "4";
    const std::string example = tool + "=6";
    const std::string begin = isNumbered
                                  ? "Say how wide it is"
                                  : "Name the tool in the program (T4 M6) and say how wide it is";
    return {found + " is not followed by the check",
            begin + ", if it has 6 mm: --tool " + example + " on the command line, " + example +
                " under Tools in the window; or write " + found.substr(0, found.find(' ')) +
                ".1 with its diameter as D"};
}

Untold unfollowedCode(const Diagnostic& diagnostic) {
    if (isOfUnknownTool(diagnostic)) {
        return unknownTool(diagnostic);
    }
    if (isOfMode(diagnostic)) {
        return {diagnostic.found + " is not followed by the check",
                "It needs " + diagnostic.expected};
    }
    return {codeWords(diagnostic.found) + " is not followed by the check",
            diagnostic.found == "M98" ? "To have it checked, write its lines in its place"
                                      : "To have the rest checked, check a copy without it"};
}

Untold untoldOf(const Diagnostic& diagnostic, std::string_view text) {
    switch (diagnostic.rule) {
        case Rule::ControlWord:
            return controlWord(text, diagnostic.column);
        case Rule::Parameter:
            return {nameAt(text, diagnostic.column) +
                        " is a parameter, whose value only the controller knows",
                    "To have it checked, write the number in its place"};
        case Rule::Expression:
            return {"the controller is to reckon an expression here",
                    "To have it checked, write the number in its place"};
        case Rule::NotInterpretedCode:
            return unfollowedCode(diagnostic);
        case Rule::TooManyMotions:
            return {"it has " + diagnostic.found + ", more than are followed",
                    "Look at its repeats (L) and pecks (Q)"};
        default:
            return {"it has " + diagnostic.found + ", more than are followed", "Check it in parts"};
    }
}

std::string unchecked(const Reading& reading, std::uint32_t line) {
    const std::string lines = std::to_string(reading.lines);
    if (line >= reading.lines) {
        return "This last line was not checked.";
    }
    return "From line " + std::to_string(line) + " of " + lines + " on nothing was checked.";
}

}  // namespace

std::string rejectionSentence(const Setting& setting, const Diagnostic& diagnostic,
                              std::string_view text) {
    std::string sentence = diagnostic.rule == Rule::FeedMissing
                               ? feedSentence(setting, diagnostic)
                               : beginningFor(diagnostic.rule) + reasonFor(diagnostic, text);
    if (diagnostic.line == setting.reading.stopLine && setting.moreBehind) {
        sentence += " What the program cuts from here on was not checked.";
    }
    return sentence;
}

std::string notInterpretedSentence(const Setting& setting, const Diagnostic& diagnostic,
                                   std::string_view text) {
    const Untold untold = untoldOf(diagnostic, text);
    const bool isStop = diagnostic.line == setting.reading.stopLine;
    const std::string beginning = isStop ? "The check ends here: "
                                         : "Once line " + std::to_string(setting.reading.stopLine) +
                                               " is mended, the check will end here: ";
    const std::string middle =
        isStop ? ". " + unchecked(setting.reading, diagnostic.line) + ' ' : ". ";
    return beginning + untold.what + middle + untold.todo + '.';
}

}  // namespace gcode_check
