// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/BlockRules.h"

namespace gcode_check {
namespace {

constexpr int kMostMCodes = 4;

bool takesAxes(int oneShot) {
    switch (oneShot) {
        case 100:
        case 280:
        case 300:
        case 520:
        case 920:
            return true;
        default:
            return false;
    }
}

bool isArc(int motion) {
    return motion == 20 || motion == 30;
}

// Radius compensation.
bool turnsOn(int radiusOffset) {
    return radiusOffset > 400;
}

bool withoutUse(const Block& block, char letter, const char* codes, Fault& fault) {
    return reject(fault, Rule::WordWithoutUse, block.column(letter), std::string(1, letter),
                  std::string(codes) + " to use it");
}

bool isBetween(int code, int first, int last) {
    return code >= first && code <= last;
}

bool checkMCodes(const Block& block, Fault& fault) {
    if (block.mCount <= kMostMCodes) {
        return true;
    }
    return reject(fault, Rule::WordsTooMany, 1, std::to_string(block.mCount) + " M codes",
                  "at most " + std::to_string(kMostMCodes) + " on a line");
}

std::uint32_t columnOfAxes(const Block& block) {
    std::uint32_t first = 0;
    for (const char letter : {'X', 'Y', 'Z', 'A', 'B', 'C', '@', '^'}) {
        if (block.has(letter) && (first == 0 || block.column(letter) < first)) {
            first = block.column(letter);
        }
    }
    return first;
}

// Of two codes that both take the coordinates none can have them.
bool checkAxes(const Block& block, int mode, Fault& fault) {
    const int oneShot = block.g(GGroup::OneShot);
    if (takesAxes(oneShot) && block.hasG(GGroup::Motion)) {
        return reject(fault, Rule::CodesClash, block.columnOfG(GGroup::Motion),
                      textOfG(block.g(GGroup::Motion)).text,
                      std::string("no motion code beside ") + textOfG(oneShot).text);
    }
    if ((oneShot == 520 || oneShot == 920) && !block.hasAxes()) {
        return reject(fault, Rule::AxesMissing, block.columnOfG(GGroup::OneShot),
                      textOfG(oneShot).text, "a coordinate");
    }
    if (!block.hasAxes() || takesAxes(oneShot) || block.hasG(GGroup::Motion)) {
        return true;
    }
    if (block.hasG(GGroup::CancelMotion)) {
        return reject(fault, Rule::AxesWithoutUse, columnOfAxes(block), "coordinates beside G80",
                      "a motion code for them");
    }
    if (mode == kNoMotion && block.g(GGroup::ToolLength) != 431) {
        return reject(fault, Rule::AxesWithoutUse, columnOfAxes(block), "coordinates",
                      "a motion code before them");
    }
    return true;
}

bool checkRotaryAxes(const Block& block, int motion, Fault& fault) {
    if (!isCycle(motion)) {
        return true;
    }
    for (const char letter : {'A', 'B', 'C'}) {
        if (block.has(letter)) {
            return reject(fault, Rule::CycleClash, block.column(letter), std::string(1, letter),
                          "X, Y and Z only in a cycle");
        }
    }
    return true;
}

bool checkPolar(const Block& block, Fault& fault) {
    if (!block.hasAny(Block::polarBits())) {
        return true;
    }
    const char letter = block.has('@') ? '@' : '^';
    const int oneShot = block.g(GGroup::OneShot);
    const bool isMotion =
        !takesAxes(oneShot) && oneShot != 530 && block.g(GGroup::ToolLength) != 431;
    if (isMotion && !block.has('X') && !block.has('Y')) {
        return true;
    }
    return reject(fault, Rule::CodesClash, block.column(letter), std::string(1, letter),
                  "a motion code that is not G53, and no X and Y beside it");
}

bool checkG53(const Block& block, int motion, Fault& fault) {
    if (block.g(GGroup::OneShot) != 530 || motion == 0 || motion == 10) {
        return true;
    }
    return reject(fault, Rule::CodesClash, block.columnOfG(GGroup::OneShot), "G53",
                  "G0 or G1 in force");
}

bool checkP(const Block& block, int motion, Fault& fault) {
    const int oneShot = block.g(GGroup::OneShot);
    if (oneShot == 40 && !block.has('P')) {
        return reject(fault, Rule::WordMissing, block.columnOfG(GGroup::OneShot), "G4",
                      "P with the seconds");
    }
    if (oneShot == 40 && isArc(block.g(GGroup::Motion))) {
        return reject(fault, Rule::CodesClash, block.columnOfG(GGroup::Motion),
                      textOfG(block.g(GGroup::Motion)).text,
                      "no arc beside G4: both would take the P");
    }
    const int output = block.m(MGroup::Output);
    if (isBetween(output, 62, 65) && !block.has('P')) {
        return reject(fault, Rule::WordMissing, block.columnOfM(MGroup::Output),
                      "M" + std::to_string(output), "P with the output");
    }
    const bool isUsed = oneShot == 40 || oneShot == 100 || isArc(motion) || motion == 820 ||
                        motion == 860 || motion == 890 || block.g(GGroup::Path) == 640 ||
                        isBetween(block.m(MGroup::Override), 50, 53) || isBetween(output, 62, 66);
    return !block.has('P') || isUsed ||
           withoutUse(block, 'P', "G2 G3 G4 G10 G64 G82 G86 G89 M50 to M53 M62 to M66", fault);
}

bool checkQ(const Block& block, int motion, Fault& fault) {
    const bool isUsed = block.g(GGroup::OneShot) == 100 || motion == 730 || motion == 830 ||
                        block.g(GGroup::Path) == 640 || block.m(MGroup::Tool) == 61 ||
                        isBetween(block.m(MGroup::Output), 66, 68);
    return !block.has('Q') || isUsed ||
           withoutUse(block, 'Q', "G10 G64 G73 G83 M61 M66 to M68", fault);
}

bool checkR(const Block& block, int motion, Fault& fault) {
    // Of G41.1 and G42.1 a controller takes an R and does nothing with it.
    const int radiusOffset = block.g(GGroup::RadiusOffset);
    const bool isUsed = block.g(GGroup::OneShot) == 100 || isArc(motion) || isCycle(motion) ||
                        radiusOffset == 411 || radiusOffset == 421;
    return !block.has('R') || isUsed || withoutUse(block, 'R', "G2 G3 G10 or a cycle", fault);
}

bool checkL(const Block& block, int motion, Fault& fault) {
    const bool isUsed = block.g(GGroup::OneShot) == 100 || isCycle(motion) ||
                        block.m(MGroup::Output) == 66 || turnsOn(block.g(GGroup::RadiusOffset));
    return !block.has('L') || isUsed || withoutUse(block, 'L', "G10, M66 or a cycle", fault);
}

bool checkIJK(const Block& block, int motion, Fault& fault) {
    const bool isUsed = isArc(motion) || block.g(GGroup::OneShot) == 100;
    for (const char letter : {'I', 'J', 'K'}) {
        if (block.has(letter) && !isUsed) {
            return withoutUse(block, letter, "G2 or G3", fault);
        }
    }
    return true;
}

bool checkHDE(const Block& block, Fault& fault) {
    const int length = block.g(GGroup::ToolLength);
    if (block.has('H') && length != 430 && length != 432) {
        return withoutUse(block, 'H', "G43", fault);
    }
    if (block.has('D') && !turnsOn(block.g(GGroup::RadiusOffset))) {
        return withoutUse(block, 'D', "G41 or G42", fault);
    }
    const int output = block.m(MGroup::Output);
    if (block.has('E') && !isBetween(output, 66, 68)) {
        return withoutUse(block, 'E', "M66 to M68", fault);
    }
    if (isBetween(output, 66, 68) && !block.has('E') && !(output == 66 && block.has('P'))) {
        return reject(fault, Rule::WordMissing, block.columnOfM(MGroup::Output),
                      "M" + std::to_string(output), "E with the number of the signal");
    }
    return true;
}

}  // namespace

int motionOf(const Block& block, int mode) {
    if (block.hasG(GGroup::Motion)) {
        return block.g(GGroup::Motion);
    }
    if (block.hasG(GGroup::CancelMotion) || takesAxes(block.g(GGroup::OneShot))) {
        return kNoMotion;
    }
    constexpr std::uint32_t kCentre = Block::bit('I') | Block::bit('J') | Block::bit('K');
    const bool movesAxes = block.hasAxes() && block.g(GGroup::ToolLength) != 431;
    return movesAxes || (isArc(mode) && block.hasAny(kCentre)) ? mode : kNoMotion;
}

bool checkBlock(const Block& block, int mode, Fault& fault) {
    constexpr std::uint32_t kParameters =
        Block::bit('P') | Block::bit('Q') | Block::bit('R') | Block::bit('L') | Block::bit('I') |
        Block::bit('J') | Block::bit('K') | Block::bit('H') | Block::bit('D') | Block::bit('E');
    const int motion = motionOf(block, mode);
    if (!checkAxes(block, mode, fault) || !checkRotaryAxes(block, motion, fault) ||
        !checkPolar(block, fault)) {
        return false;
    }
    const bool hasPlainCodesOnly = !block.hasG(GGroup::OneShot) && block.mCount == 0;
    if (hasPlainCodesOnly && !block.hasAny(kParameters)) {
        return true;
    }
    return checkMCodes(block, fault) && checkG53(block, motion, fault) &&
           checkP(block, motion, fault) && checkQ(block, motion, fault) &&
           checkR(block, motion, fault) && checkL(block, motion, fault) &&
           checkIJK(block, motion, fault) && checkHDE(block, fault);
}

}  // namespace gcode_check
