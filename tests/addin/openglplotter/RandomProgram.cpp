// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RandomProgram.h"

#include <array>
#include <cctype>

std::string RandomProgram::text() {
    std::string result;
    const int lines = below(16);
    for (int i = 0; i < lines; ++i) {
        result += line();
        result += lineEnd();
    }
    return oneIn(2) ? result + line() : result;
}

std::string RandomProgram::line() {
    std::string result = oneIn(8) ? "N" + digits(2) + " " : "";
    switch (below(12)) {
        case 0:
            return comment();
        case 1:
            return result + words("XYZ");
        case 2:
        case 3:
            return result + drillLine();
        case 4:
            return result + gWord() + words("XYZIJ");
        case 5:
            return result + gWord() + gWord() + words("XYZIJRQFMS");
        case 6:
            return bytes(below(40));
        case 7:
            result += gWord() + words("XYZIJ") + comment();
            break;
        case 8:
            return result + words("DFGHIJKLMPQRSTXYZ") + bytes(below(4));
        default:
            result += (oneIn(2) ? "G1" : "G2") + words("XYIJ");
            break;
    }
    if (oneIn(10)) {
        for (char& c : result) {
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return result;
}

std::size_t RandomProgram::maxVertices() {
    return static_cast<std::size_t>(oneIn(4) ? below(60) : 2000);
}

int RandomProgram::below(int limit) {
    return static_cast<int>(m_random() % static_cast<std::uint64_t>(limit));
}

std::string RandomProgram::digits(int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += static_cast<char>('0' + below(10));
    }
    return result;
}

std::string RandomProgram::number() {
    switch (below(16)) {
        case 0: {
            std::string malformed;
            const int length = 1 + below(6);
            for (int i = 0; i < length; ++i) {
                malformed += oneOf(std::string("0123456789.+-"));
            }
            return malformed;
        }
        case 1: {
            static const std::array<std::string, 10> edges{
                "-0",
                "+0",
                ".",
                "-",
                "5.",
                "-.5",
                "340282356779733661637539395458142568447",
                "16777217",
                "-2147483649",
                "2147483647.9"};
            return oneOf(edges);
        }
        case 2:
            return oneIn(4) ? (oneIn(2) ? "-" : "") + digits(30 + below(400))
                            : "." + std::string(static_cast<std::size_t>(30 + below(300)), '0') +
                                  digits(3);
        case 3:
            return digits(1 + below(12)) + "." + digits(below(30));
        default:
            return coordinate();
    }
}

std::string RandomProgram::coordinate() {
    const std::string sign = oneIn(3) ? "-" : oneIn(10) ? "+" : "";
    const std::string whole = sign + digits(1 + below(2));
    return oneIn(2) ? whole : whole + "." + digits(1 + below(6));
}

std::string RandomProgram::word(char letter) {
    std::string result(1, letter);
    if (oneIn(20)) {
        return result + (oneIn(2) ? " " : "");
    }
    return result + number();
}

/// Some of the letters in a random order, now and then one of them twice.
std::string RandomProgram::words(const std::string& letters) {
    std::string result;
    const int count = below(static_cast<int>(letters.size()) + 2);
    for (int i = 0; i < count; ++i) {
        result += (oneIn(3) ? "" : " ") + word(oneOf(letters));
    }
    return result;
}

std::string RandomProgram::gWord() {
    static const std::array<std::string, 32> words{
        "G0",  "G00", "G1",  "G01",  "G1",   "G2",   "G02", "G3",   "G3",   "G80",         "G90",
        "G90", "G91", "G91", "G4",   "G17",  "G20",  "G21", "G28",  "G40",  "G54",         "G84",
        "G92", "G-1", "G",   "G0.5", "G1.9", "G2.5", "G-0", "G182", "G184", "G99999999999"};
    return (oneIn(3) ? "" : " ") + (oneIn(20) ? word('G') : oneOf(words));
}

std::string RandomProgram::drillLine() {
    static const std::array<std::string, 6> cycles{"G81", "G82", "G83", "G83", "G183", "G183"};
    std::string result = oneIn(6) ? "" : oneOf(cycles);
    result += words("XY");
    result += oneIn(4) ? "" : " Z-" + (oneIn(30) ? number() : digits(1 + below(2)));
    result += oneIn(3) ? "" : " R" + (oneIn(10) ? number() : coordinate());
    result += oneIn(3) ? "" : " Q" + (oneIn(4) ? number() : coordinate());
    result += oneIn(3) ? word('P') : "";
    return oneIn(3) ? result + word('F') : result;
}

std::string RandomProgram::comment() {
    static const std::array<std::string, 9> texts{
        "(Z safe height)",    "(G-code file)", "(TOOL 3 DIA. 6.0)",
        "; Drill at X10 Y10", "(R2 then G1)",  "%",
        "(lower case only)",  ";G0 Home",      "(F-10.5 Q)"};
    return oneIn(4) ? "(" + bytes(below(12)) + ")" : oneOf(texts);
}

std::string RandomProgram::bytes(int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result +=
            oneIn(3) ? oneOf(std::string("GXYZIJRQ0123456789.-+ ")) : static_cast<char>(below(256));
    }
    return result;
}

std::string RandomProgram::lineEnd() {
    static const std::array<std::string, 8> ends{"\n",   "\n",   "\r\n",   "\r",
                                                 "\n\r", "\n\n", "\r\r\n", "\r\n\r\n"};
    return oneOf(ends);
}
