// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RandomWords.h"

#include <utility>

#include "Judge.h"

namespace judge {
namespace {

constexpr std::size_t kLines = 60;

void append(std::vector<std::string>& codes, const std::vector<std::string>& more) {
    codes.insert(codes.end(), more.begin(), more.end());
}

}  // namespace

// Units beside tool lengths and cycles are left out, and tool changes: there the judge forgets
// something.
RandomWords::RandomWords(std::uint64_t seed)
    : m_chance(seed + 5000000),
      m_codes{"G0",    "G1",  "G2",    "G3",    "G2",    "G3",    "G4",    "G8",    "G10",
              "G17",   "G18", "G19",   "G28",   "G28.1", "G30",   "G40",   "G30.1", "G52",
              "G53",   "G54", "G55",   "G59.1", "G59.3", "G61",   "G64",   "G80",   "G61.1",
              "G90",   "G91", "G90.1", "G91.1", "G92",   "G92.1", "G92.2", "G93",   "G94",
              "G92.3", "G95", "G97",   "G98",   "G99"},
      m_letters("XYZXYZXYZXYZIJKRRPLFSABC"),
      m_endsBadly(seed % 2 == 1) {
    const bool hasUnits = seed % 3 == 1;
    if (seed % 7 == 3) {
        append(m_codes, {"G41.1 D.5", "G42.1 D.5", "G41.1 D2", "G41 D4", "G40", "G1", "G1", "G1"});
    }
    if (seed % 4 >= 2) {
        m_letters += "@^";
    }
    if (seed % 3 == 0) {
        append(m_codes, {"G43", "G43.1", "G43.2", "G49"});
        m_letters += "HTTHD";
    }
    if (hasUnits) {
        append(m_codes, {"G20", "G21"});
    } else if (seed % 3 == 2 || seed % 5 == 0) {
        for (int weight = 0; weight < 3; ++weight) {
            append(m_codes, {"G73", "G81", "G82", "G83", "G85", "G86", "G89"});
        }
        m_letters += "PQRRZ";
    }
}

std::string RandomWords::text() {
    const gcode_check::MachineOptions options = optionsWithTools();
    const std::size_t badFrom = pick(kLines);
    std::string program = "G21 G90 G94 F100 S500 M3\nG0 X1 Y2 Z3\n";
    for (std::size_t i = 0; i < kLines; ++i) {
        const std::string next = program + "N" + std::to_string(10 + i) + " " + line() + "\n";
        const gcode_check::Reading reading = gcode_check::read(next, options);
        if (reading.stopLine == 0) {
            program = next;
        } else if (m_endsBadly && i >= badFrom &&
                   reading.diagnostics[0].verdict == gcode_check::Verdict::Rejected) {
            return next + "M2\n";
        }
    }
    return program + "M2\n";
}

std::string RandomWords::line() {
    std::vector<std::string> words;
    const std::size_t codes = pick(4) % 3;
    for (std::size_t i = 0; i < codes; ++i) {
        words.push_back(m_codes[pick(m_codes.size())]);
    }
    if (pick(8) == 0) {
        words.push_back(code());
    }
    std::string used;
    const std::size_t numbers = pick(6);
    for (std::size_t i = 0; i < numbers; ++i) {
        const char letter = m_letters[pick(m_letters.size())];
        if (used.find(letter) == std::string::npos) {
            used += letter;
            words.push_back(letter + value(letter));
        }
    }
    return shuffled(std::move(words));
}

std::string RandomWords::code() {
    static const char* const codes[] = {"M0",  "M1",  "M3",  "M4",  "M5",  "M7",  "M8", "M9",
                                        "M48", "M49", "M50", "M51", "M52", "M53", "M60"};
    return codes[pick(std::size(codes))];
}

std::string RandomWords::number() {
    static const char* const numbers[] = {"0", "1", ".5", "1.", "-0", "+2",   "--3",  "0.001", "10",
                                          "5", "2", "1",  "3",  "-1", "7.25", "-3.5", "-2",    "4"};
    return numbers[pick(std::size(numbers))];
}

std::string RandomWords::value(char letter) {
    static const char* const kinds[] = {"20", "2", "3", "1"};
    switch (letter) {
        case 'T':
        case 'H':
            return std::to_string(pick(6));
        case 'L':
            return kinds[pick(std::size(kinds))];
        default:
            break;
    }
    const std::string text = number();
    const bool isNeverNegative = std::string("PQFSD").find(letter) != std::string::npos;
    return isNeverNegative && text[0] == '-' ? "2" : text;
}

std::string RandomWords::shuffled(std::vector<std::string> words) {
    std::string text;
    while (!words.empty()) {
        const std::size_t next = pick(words.size());
        text += words[next] + (pick(4) == 0 ? "" : " ");
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(next));
    }
    return text;
}

}  // namespace judge
