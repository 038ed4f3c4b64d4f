// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RandomProgram.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace judge {
namespace {

struct PlaneAxes {
    std::size_t first;
    std::size_t second;
    std::size_t depth;
    char firstOffset;
    char secondOffset;
};

constexpr std::array<PlaneAxes, 3> kPlanes = {
    {{0, 1, 2, 'I', 'J'}, {2, 0, 1, 'K', 'I'}, {1, 2, 0, 'J', 'K'}}};
constexpr const char* kAxisLetters = "XYZ";

std::string fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.*f", decimals, value);
    return text;
}

double rounded(double value, double scale) {
    return std::round(value * scale) / scale;
}

}  // namespace

std::vector<std::string> RandomProgram::resetLines() {
    std::vector<std::string> result = {"G80 G17 G21 G40 G49 G90 G91.1 G94 G97 G99 G64 G54",
                                       "G92.1 M5 M9 M48", "S0"};
    for (int system = 1; system <= 9; ++system) {
        result.push_back("G10 L2 P" + std::to_string(system) + " X0 Y0 Z0 A0 B0 C0 R0");
    }
    result.insert(result.end(), {"G0 X0 Y0 Z0 A0 B0 C0", "T0 M6", "G0 X0 Y0 Z0 A0 B0 C0", "G28.1",
                                 "G30.1", "G80"});
    return result;
}

std::vector<std::string> RandomProgram::lines() {
    const std::size_t count = 5 + pick(40);
    while (m_lines.size() < count) {
        line();
    }
    return std::move(m_lines);
}

void RandomProgram::line() {
    using Kind = void (RandomProgram::*)();
    // What a program is made of mostly stands more than once.
    static const Kind kinds[] = {
        &RandomProgram::straight,    &RandomProgram::straight,    &RandomProgram::straight,
        &RandomProgram::straight,    &RandomProgram::arcByCentre, &RandomProgram::arcByCentre,
        &RandomProgram::arcByRadius, &RandomProgram::cycles,      &RandomProgram::modes,
        &RandomProgram::modes,       &RandomProgram::offsets,     &RandomProgram::tools,
        &RandomProgram::feedModes,   &RandomProgram::textOnly,    &RandomProgram::homeOrMachine,
    };
    (this->*kinds[pick(std::size(kinds))])();
}

double RandomProgram::thousandth(double low, double high) {
    return rounded(m_chance.between(low, high), 1000);
}

// One of the ways to write the same number.
std::string RandomProgram::number(double value) {
    std::string text = fixed(std::abs(value), 4);
    while (text.back() == '0') {
        text.pop_back();
    }
    if (text.back() == '.' && maybe(80)) {
        text.pop_back();
    }
    if (text.compare(0, 2, "0.") == 0 && text.size() > 2 && maybe(30)) {
        text.erase(0, 1);
    }
    if (maybe(5)) {
        text.insert(0, "00");
    }
    if (maybe(4)) {
        text.insert(1 + pick(text.size()), " ");
    }
    const bool isNegative = std::signbit(value) && value != 0;
    text.insert(0, isNegative ? "-" : maybe(5) ? "+" : maybe(1) ? "--" : "");
    return text;
}

std::string RandomProgram::word(char letter, double value) {
    std::string result(1, letter);
    if (maybe(10)) {
        result += ' ';
    }
    return result + number(value);
}

std::string RandomProgram::code(const char* code) {
    std::string text = code;
    if (text.size() == 2 && maybe(30)) {
        text.insert(1, "0");
    }
    return text;
}

std::string RandomProgram::comment() {
    static const char* const texts[] = {"(feed)", "(msg, go)", "()", "(G1 X5; no)", "( a  b )"};
    return texts[pick(std::size(texts))];
}

// Words may stand in any order, in any case, with or without blanks and comments in between.
void RandomProgram::put(std::vector<std::string> words) {
    for (std::size_t i = words.size(); i > 1; --i) {
        std::swap(words[i - 1], words[m_chance.below(i)]);
    }
    std::string text;
    if (maybe(5)) {
        text += maybe(50) ? "/" : " / ";
    }
    if (maybe(15)) {
        m_lineNumber += 5;
        text += "N" + std::to_string(m_lineNumber) + (maybe(80) ? " " : "");
    }
    const char* const gap = maybe(60) ? " " : maybe(60) ? "" : "\t ";
    for (const std::string& word : words) {
        text += word + gap;
        if (maybe(2)) {
            text += comment();
        }
    }
    if (maybe(4)) {
        text += "; a comment ( like that";
    }
    if (maybe(30)) {
        std::transform(text.begin(), text.end(), text.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
    }
    m_lines.push_back(text);
}

void RandomProgram::feedWord(std::vector<std::string>& words) {
    if (m_isInverseTime || !m_hasFeed || maybe(10)) {
        words.push_back(word('F', thousandth(1, 500)));
        m_hasFeed = true;
    }
}

void RandomProgram::axisWords(std::vector<std::string>& words, const Axes& target) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (target[i] != m_at[i] || maybe(10)) {
            words.push_back(word(kAxisLetters[i], m_isRelative ? target[i] - m_at[i] : target[i]));
        }
    }
    m_at = target;
}

// Names all axes, so that from here on the position is known again.
void RandomProgram::known() {
    if (m_isKnown) {
        return;
    }
    std::vector<std::string> words = {"G0"};
    if (m_isRelative) {
        words.push_back("G90");
        m_isRelative = false;
    }
    for (std::size_t i = 0; i < m_at.size(); ++i) {
        m_at[i] = thousandth(-50 * unit(), 50 * unit());
        words.push_back(word(kAxisLetters[i], m_at[i]));
    }
    m_motion = "G0";
    m_isKnown = true;
    put(words);
}

void RandomProgram::straight() {
    if (!m_isRelative) {
        known();
    }
    const std::string motion = maybe(40) ? "G0" : "G1";
    std::vector<std::string> words;
    if (motion != m_motion || maybe(50)) {
        words.push_back(code(motion.c_str()));
        m_motion = motion;
    }
    Axes to = m_at;
    for (double& value : to) {
        value = maybe(60) ? thousandth(-50 * unit(), 50 * unit()) : value;
    }
    axisWords(words, to);
    for (const char letter : {'A', 'B', 'C'}) {
        if (maybe(4)) {
            words.push_back(word(letter, thousandth(-180, 180)));
        }
    }
    if (motion == "G1") {
        feedWord(words);
    }
    if (words.empty()) {
        words.push_back(motion);
        if (motion == "G1" && m_isInverseTime) {
            words.push_back("F5");
        }
    }
    put(words);
}

void RandomProgram::homeOrMachine() {
    const std::size_t kind = pick(4);
    std::vector<std::string> words;
    if (kind == 0 && !m_isRelative) {
        words = {"G53", "G0"};
        m_motion = "G0";
    } else if (kind == 1) {
        words = {maybe(50) ? "G28.1" : "G30.1"};
        put(words);
        return;
    } else {
        words = {maybe(50) ? "G28" : "G30"};
    }
    for (std::size_t i = 0; i < m_at.size(); ++i) {
        if (maybe(50)) {
            words.push_back(word(kAxisLetters[i], thousandth(-50 * unit(), 50 * unit())));
        }
    }
    m_isKnown = false;
    put(words);
}

void RandomProgram::arcByCentre() {
    known();
    const PlaneAxes& plane = kPlanes[static_cast<std::size_t>(m_plane)];
    const double radius = m_chance.between(1, 40) * unit();
    const double toCentre = m_chance.between(0, 6.283);
    const double first = rounded(radius * std::cos(toCentre), 1000);
    const double second = rounded(radius * std::sin(toCentre), 1000);
    const double exact = std::hypot(first, second);
    const bool isFull = maybe(20);
    const double angle = m_chance.between(0, 6.283);
    Axes to = m_at;
    if (!isFull) {
        to[plane.first] = rounded(m_at[plane.first] + first + exact * std::cos(angle), 10000);
        to[plane.second] = rounded(m_at[plane.second] + second + exact * std::sin(angle), 10000);
    }
    if (maybe(25)) {
        to[plane.depth] = thousandth(-20 * unit(), 20 * unit());
    }
    const double base = m_hasAbsoluteCentres ? 1 : 0;
    std::vector<std::string> words = {word(plane.firstOffset, first + base * m_at[plane.first]),
                                      word(plane.secondOffset, second + base * m_at[plane.second])};
    axisWords(words, to);
    const std::string motion = maybe(50) ? "G2" : "G3";
    if (motion != m_motion || maybe(60)) {
        words.push_back(code(motion.c_str()));
        m_motion = motion;
    }
    if (maybe(15)) {
        words.push_back("P" + std::to_string(1 + pick(5)));
    }
    feedWord(words);
    put(words);
}

void RandomProgram::arcByRadius() {
    known();
    const PlaneAxes& plane = kPlanes[static_cast<std::size_t>(m_plane)];
    Axes to = m_at;
    to[plane.first] += thousandth(1 * unit(), 30 * unit()) * (maybe(50) ? 1 : -1);
    to[plane.second] += thousandth(-30 * unit(), 30 * unit());
    const double half =
        std::hypot(to[plane.first] - m_at[plane.first], to[plane.second] - m_at[plane.second]) / 2;
    // A half turn has its radius rounded: the controller takes it as the half chord.
    const double radius =
        maybe(15) ? rounded(half, 10000) : rounded(half * m_chance.between(1.01, 3), 1000) + 0.01;
    if (maybe(15)) {
        to[plane.depth] = thousandth(-20 * unit(), 20 * unit());
    }
    std::vector<std::string> words = {word('R', maybe(50) ? radius : -radius)};
    axisWords(words, to);
    m_motion = maybe(50) ? "G2" : "G3";
    words.push_back(code(m_motion.c_str()));
    feedWord(words);
    put(words);
}

void RandomProgram::cycles() {
    if (m_isInverseTime) {
        return;
    }
    known();
    static constexpr int codes[] = {73, 81, 82, 83, 85, 86, 89};
    const int cycle = codes[pick(std::size(codes))];
    std::vector<std::string> words;
    if (cycle == 86 && !m_spindleTurns) {
        put({"M3", "S1000"});
        m_spindleTurns = true;
    }
    const double bottom = thousandth(-30 * unit(), 10 * unit());
    const double above = thousandth(0, 20 * unit());
    const PlaneAxes& plane = kPlanes[static_cast<std::size_t>(m_plane)];
    words = {"G" + std::to_string(cycle),
             word(kAxisLetters[plane.depth], m_isRelative ? -above : bottom),
             word('R', m_isRelative ? thousandth(-5 * unit(), 20 * unit()) : bottom + above)};
    if (cycle == 82 || cycle == 86 || cycle == 89) {
        words.push_back(word('P', thousandth(0, 3)));
    }
    if (cycle == 73 || cycle == 83) {
        words.push_back(word('Q', std::max(above, unit()) / static_cast<double>(1 + pick(4))));
    }
    feedWord(words);
    m_motion.clear();
    m_isKnown = false;
    const std::size_t holes = 1 + pick(5);
    for (std::size_t hole = 0; hole < holes; ++hole) {
        for (const std::size_t axis : {plane.first, plane.second}) {
            if (maybe(70)) {
                words.push_back(word(kAxisLetters[axis], thousandth(-50 * unit(), 50 * unit())));
            }
        }
        if (maybe(20)) {
            words.push_back(maybe(50) ? "G98" : "G99");
        }
        if (maybe(15)) {
            words.push_back("L" + std::to_string(1 + pick(4)));
        }
        if (words.empty() ||
            (hole > 0 && words[0][0] != 'X' && words[0][0] != 'Y' && words[0][0] != 'Z')) {
            words.push_back(word(kAxisLetters[plane.depth], m_isRelative ? -above : bottom));
        }
        put(words);
        words.clear();
    }
    if (maybe(60)) {
        put({"G80"});
    }
}

void RandomProgram::modes() {
    std::vector<std::string> words;
    switch (pick(11)) {
        case 0:
            m_plane = static_cast<int>(pick(3));
            words = {"G" + std::to_string(17 + m_plane)};
            break;
        case 1:
            if (m_hasToolOffset) {
                return;
            }
            m_isInches = !m_isInches;
            m_isKnown = false;
            // Where the words of a cycle would mean other lengths, there is none in force.
            words = {m_isInches ? "G20" : "G21", "G80"};
            m_motion.clear();
            break;
        case 2:
        case 3:
            m_isRelative = !m_isRelative;
            words = {m_isRelative ? "G91" : "G90"};
            break;
        case 4:
            m_hasAbsoluteCentres = !m_hasAbsoluteCentres;
            words = {m_hasAbsoluteCentres ? "G90.1" : "G91.1"};
            break;
        case 5:
            words = {maybe(50) ? "G61" : maybe(50) ? "G61.1" : "G64", "M48"};
            break;
        case 6:
            words = {"G64", word('P', thousandth(0, 1))};
            break;
        case 7:
            words = {maybe(50) ? "G98" : "G99", maybe(50) ? "G40" : "G49"};
            if (words[1] == "G49") {
                m_hasToolOffset = false;
                m_isKnown = false;
            }
            break;
        case 8: {
            const std::size_t spindle = pick(3);
            static const char* const codes[] = {"M3", "M4", "M5"};
            words = {code(codes[spindle]), word('S', thousandth(0, 20000))};
            m_spindleTurns = spindle != 2;
            break;
        }
        case 9: {
            static const char* const codes[] = {"M7",     "M8",     "M9", "M49", "M50 P0", "M51 P1",
                                                "M52 P1", "M53 P0", "M0", "M1",  "M60",    "G97"};
            words = {codes[pick(std::size(codes))]};
            break;
        }
        default:
            words = {code("G4"), word('P', thousandth(0, 10))};
            break;
    }
    put(words);
}

void RandomProgram::offsets() {
    std::vector<std::string> words;
    m_isKnown = false;
    const std::size_t kind = pick(8);
    if (kind == 0) {
        static const char* const codes[] = {"G54", "G55",   "G56",   "G57",  "G58",
                                            "G59", "G59.1", "G59.2", "G59.3"};
        put({codes[pick(std::size(codes))]});
        return;
    }
    if (kind == 1) {
        static const char* const codes[] = {"G92.1", "G92.2", "G92.3"};
        put({codes[pick(std::size(codes))]});
        return;
    }
    if (kind <= 4) {
        words = {"G10", kind == 4 ? "L20" : "L2", "P" + std::to_string(pick(10))};
        if (kind != 4 && maybe(30)) {
            words.push_back(word('R', thousandth(-180, 180)));
        }
    } else {
        words = {kind <= 6 ? "G92" : "G52"};
    }
    const std::size_t certain = pick(m_at.size());
    for (std::size_t i = 0; i < m_at.size(); ++i) {
        if (i == certain || maybe(50)) {
            words.push_back(word(kAxisLetters[i], thousandth(-50 * unit(), 50 * unit())));
        }
    }
    if (maybe(5)) {
        words.push_back(word('A', thousandth(-180, 180)));
    }
    put(words);
}

void RandomProgram::tools() {
    m_isKnown = false;
    switch (pick(4)) {
        case 0: {
            m_tool = pick(4);
            put({"T" + std::to_string(m_tool), "M6"});
            m_spindleTurns = false;
            // The judge by itself forgets where offsets put the tool when a tool is changed.
            known();
            break;
        }
        case 1:
            // Without a tool in its spindle the judge by itself takes the one before.
            put({"G43", "H" + std::to_string(m_tool == 0 ? 1 + pick(2) : pick(3))});
            m_hasToolOffset = true;
            break;
        case 2:
            put({"G43.1", word('Z', thousandth(-20 * unit(), 20 * unit()))});
            m_hasToolOffset = true;
            break;
        default:
            put({"G49"});
            m_hasToolOffset = false;
            break;
    }
}

void RandomProgram::feedModes() {
    const std::size_t mode = pick(3);
    m_isInverseTime = mode == 0;
    m_hasFeed = true;
    if (mode == 0) {
        // An arc's or a cycle's words count on a feed that stays; here each line has its own.
        put({"G93"});
    } else if (mode == 1) {
        put({"G94", word('F', thousandth(1, 500))});
    } else {
        put({"G95", word('F', thousandth(0.01, 1)), "S500"});
    }
}

void RandomProgram::textOnly() {
    static const char* const texts[] = {
        "",  "  ", "(only a comment)", "; only a comment", "(MSG, hello)", "N77", "/(left out)",
        "\t"};
    m_lines.emplace_back(texts[pick(std::size(texts))]);
}

}  // namespace judge
