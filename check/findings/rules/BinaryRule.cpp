// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/BinaryRule.h"

#include <algorithm>

#include "findings/Numbers.h"

namespace gcode_check {
namespace {

constexpr std::size_t kLeast = 4;
constexpr std::size_t kOneIn = 100;
// How some systems end a text.
constexpr char kEndOfText = '\x1a';

bool isOfNoText(char c) {
    const bool isBlank = c >= '\t' && c <= '\r';
    return (c >= '\0' && c < ' ' && !isBlank && c != kEndOfText) || c == '\x7f';
}

bool isUtf16(std::string_view program) {
    const std::string_view begin = program.substr(0, 2);
    return begin == "\xff\xfe" || begin == "\xfe\xff";
}

}  // namespace

bool isBinary(std::string_view program) {
    if (isUtf16(program)) {
        return true;
    }
    const auto count =
        static_cast<std::size_t>(std::count_if(program.begin(), program.end(), isOfNoText));
    return count >= kLeast && count >= program.size() / kOneIn;
}

void findBinary(std::string_view program, Findings& findings) {
    Finding* const finding = findings.add(FindingKind::ControllerRejects, Severity::Error, 1);
    if (finding == nullptr) {
        return;
    }
    finding->detail = identifierOf(Rule::UnknownCharacter);
    if (isUtf16(program)) {
        finding->sentence =
            "This is not a text that a controller reads: it is written in UTF-16. Save it as plain "
            "text or UTF-8. Nothing of it was checked.";
        return;
    }
    const auto count = std::count_if(program.begin(), program.end(), isOfNoText);
    finding->sentence = "This is not a text: " + std::to_string(count) + " of its " +
                        counted(program.size(), "byte", "bytes") +
                        " are no characters. Give the program's file; nothing of this one was "
                        "checked.";
    finding->numbers = {{"bytes", static_cast<double>(count), Measure::Count}};
}

}  // namespace gcode_check
