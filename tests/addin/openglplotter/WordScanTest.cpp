// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordScan.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "openglplotter/WordNumber.h"

namespace {

bool isWordLetter(int byte) {
    return byte < 128 && kWordLetters.find(static_cast<char>(byte)) != std::string_view::npos;
}

}  // namespace

TEST(WordScan, FindsEachLetterWithTheNumberBehindIt) {
    WordValues values;
    const WordSet seen = scanWords("G1X10.5 Y-3", &values);
    EXPECT_EQ(seen, wordBit(wordIndex('G')) | wordBit(wordIndex('X')) | wordBit(wordIndex('Y')));
    EXPECT_EQ(values[wordIndex('G')], 1.0F);
    EXPECT_EQ(values[wordIndex('X')], 10.5F);
    EXPECT_EQ(values[wordIndex('Y')], -3.0F);
    EXPECT_EQ(values[wordIndex('Z')], 0.0F);
}

TEST(WordScan, OverwritesTheValuesOfTheLineBefore) {
    WordValues values;
    values.fill(7);
    EXPECT_EQ(scanWords("", &values), 0U);
    for (const float value : values) {
        EXPECT_EQ(value, 0.0F);
    }
}

TEST(WordScan, OfAllBytesOnlyTheLettersAreWords) {
    for (int byte = 0; byte < 256; ++byte) {
        WordValues values;
        const std::string line = std::string(1, static_cast<char>(byte)) + "5";
        const WordSet seen = scanWords(line, &values);
        EXPECT_EQ(seen != 0, isWordLetter(byte)) << byte;
        if (isWordLetter(byte)) {
            EXPECT_EQ(values[wordIndex(static_cast<char>(byte))], 5.0F) << byte;
        }
    }
}

TEST(WordScan, OfAllBytesOnlyDigitsPointsAndSignsContinueANumber) {
    for (int byte = 0; byte < 256; ++byte) {
        WordValues values;
        scanWords("X1" + std::string(1, static_cast<char>(byte)) + "2", &values);
        const bool isDigit = byte >= '0' && byte <= '9';
        float expected = isDigit ? static_cast<float>(102 + 10 * (byte - '0')) : 1.0F;
        if (byte == '.') {
            expected = 1.2F;
        } else if (byte == '+' || byte == '-') {
            expected = 0;
        }
        EXPECT_EQ(values[wordIndex('X')], expected) << byte;
    }
}

TEST(WordScan, NumbersOfAnyLengthAreReadAsTheirWholeTextIs) {
    // Digits, points and signs at random, beyond what the short way takes; every bit must agree.
    std::mt19937_64 random(2026);
    WordValues values{};
    for (int round = 0; round < 300'000 && !HasFailure(); ++round) {
        static constexpr std::string_view kParts = "00123456789..-+";
        const std::size_t kinds = random() % 4 == 0 ? kParts.size() : kParts.size() - 4;
        std::string number(random() % 2 == 0 ? "-" : "");
        const std::size_t length = random() % 24;
        const std::size_t point = random() % 24;
        for (std::size_t i = 0; i < length; ++i) {
            number += i == point ? '.' : kParts[random() % kinds];
        }
        scanWords("X" + number + " ", &values);
        const float expected = wordNumber(number);
        EXPECT_EQ(std::memcmp(&values[wordIndex('X')], &expected, sizeof expected), 0) << number;
    }
}

TEST(NumberBehind, TakesTheFirstPlaceThatHasANumber) {
    EXPECT_EQ(numberBehind("X Y1 X2 X3", "X"), 2.0F);
    EXPECT_EQ(numberBehind("XX5", "X"), 5.0F);
    EXPECT_EQ(numberBehind("AABAAB7", "AAB"), 7.0F);
    EXPECT_EQ(numberBehind("X105", "X1"), 5.0F);
    EXPECT_EQ(numberBehind("abc 12", ""), 12.0F);
    EXPECT_EQ(numberBehind("X", "X"), 0.0F);
    EXPECT_EQ(numberBehind("", ""), 0.0F);
}
