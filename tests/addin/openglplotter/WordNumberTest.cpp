// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "openglplotter/WordNumber.h"

#include <gtest/gtest.h>

#include <QString>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "../core/CommaLocale.h"
#include "RandomProgram.h"

namespace {

const float kInfinity = std::numeric_limits<float>::infinity();

testing::AssertionResult likeQt(const std::string& text) {
    const float value = wordNumber(text);
    const float expected = QString::fromStdString(text).toFloat();
    if (std::memcmp(&value, &expected, sizeof value) == 0) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << text << " is " << value << ", not " << expected;
}

}  // namespace

TEST(WordNumber, ReadsWholeAndFractionalNumbersOfBothSigns) {
    EXPECT_EQ(wordNumber("10"), 10.0F);
    EXPECT_EQ(wordNumber("-1.5"), -1.5F);
    EXPECT_EQ(wordNumber("+2"), 2.0F);
    EXPECT_EQ(wordNumber(".5"), 0.5F);
    EXPECT_EQ(wordNumber("-.5"), -0.5F);
    EXPECT_EQ(wordNumber("5."), 5.0F);
    EXPECT_EQ(wordNumber("007.250"), 7.25F);
}

TEST(WordNumber, WhatIsNoNumberIsZero) {
    for (const char* text : {"", "-", "+", ".", "-.", "1.2.3", "5-", "--5", "+-5", "-+5", "++5",
                             "1-2", "..1", "5.-", "+.", "1+"}) {
        EXPECT_EQ(wordNumber(text), 0.0F) << text;
        EXPECT_TRUE(likeQt(text));
    }
}

TEST(WordNumber, WhatExceedsAFloatIsInfinite) {
    EXPECT_EQ(wordNumber(std::string(50, '9')), kInfinity);
    EXPECT_EQ(wordNumber("-" + std::string(50, '9')), -kInfinity);
    EXPECT_EQ(wordNumber(std::string(400, '9')), kInfinity);
    EXPECT_EQ(wordNumber("-" + std::string(400, '9') + ".5"), -kInfinity);
    EXPECT_EQ(wordNumber("340282346638528859811704183484516925440"),
              std::numeric_limits<float>::max());
    EXPECT_EQ(wordNumber("340282356779733661637539395458142568447"), kInfinity);
}

TEST(WordNumber, WhatVanishesInAFloatIsPositiveZero) {
    for (const int zeros : {50, 400}) {
        const float value =
            wordNumber("-0." + std::string(static_cast<std::size_t>(zeros), '0') + "1");
        EXPECT_EQ(value, 0.0F);
        EXPECT_FALSE(std::signbit(value));
    }
    EXPECT_TRUE(std::signbit(wordNumber("-0")));
}

TEST(WordNumber, IsRoundedToADoubleFirst) {
    // Half way between two floats but for what a double can't hold: the even float, not the next.
    const std::string text = "1.00000005960464477539062500000001";
    EXPECT_EQ(wordNumber(text), 1.0F);
    EXPECT_TRUE(likeQt(text));
}

TEST(WordNumber, LongNumbersAreReadToTheirEnd) {
    EXPECT_EQ(wordNumber(std::string(1'000'000, '0') + "12"), 12.0F);
    EXPECT_EQ(wordNumber("0." + std::string(1'000'000, '3')), 0.333333343F);
    EXPECT_EQ(wordNumber(std::string(1'000'000, '7') + "-"), 0.0F);
}

TEST(WordNumber, DoesNotDependOnTheLocale) {
    const CommaLocale comma;
    EXPECT_EQ(wordNumber("1.5"), 1.5F);
}

TEST(WordNumber, ReadsAHundredThousandRandomTextsAsQtDoes) {
    RandomProgram random(99);
    for (int i = 0; i < 100'000 && !HasFailure(); ++i) {
        EXPECT_TRUE(likeQt(random.number()));
    }
}

TEST(TruncateToInt, DropsTheFractionTowardsZero) {
    EXPECT_EQ(truncateToInt(2.7F), 2);
    EXPECT_EQ(truncateToInt(-2.7F), -2);
    EXPECT_EQ(truncateToInt(-0.9F), 0);
    EXPECT_EQ(truncateToInt(16777216.0F), 16777216);
}

TEST(TruncateToInt, BeyondThirtyTwoBitsIsTheNearestLimit) {
    EXPECT_EQ(truncateToInt(2147483520.0F), 2147483520);
    EXPECT_EQ(truncateToInt(2147483648.0F), 2147483647);
    EXPECT_EQ(truncateToInt(-2147483648.0F), -2147483647 - 1);
    EXPECT_EQ(truncateToInt(1e30F), 2147483647);
    EXPECT_EQ(truncateToInt(kInfinity), 2147483647);
    EXPECT_EQ(truncateToInt(-kInfinity), -2147483647 - 1);
    EXPECT_EQ(truncateToInt(std::numeric_limits<float>::quiet_NaN()), 0);
}
