// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/MotionLine.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

#include "CommaLocale.h"

using GCode::formatNumber;
using GCode::MotionLines;
using GCode::Point;
using GCode::PositionAndFeed;
using GCode::TravelEnd;

namespace {

std::string asTheStreamWrites(double value) {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream << value;
    return stream.str();
}

double fromBits(std::uint64_t bits) {
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

Parameters heights() {
    Parameters parameters;
    parameters.SetParams(5, 10, -1, mm);
    return parameters;
}

}  // namespace

TEST(MotionLineNumber, DropsTrailingZerosAndTheTrailingPoint) {
    EXPECT_EQ(formatNumber(10.0), "10");
    EXPECT_EQ(formatNumber(2.5), "2.5");
    EXPECT_EQ(formatNumber(0.1), "0.1");
    EXPECT_EQ(formatNumber(0.0), "0");
}

TEST(MotionLineNumber, HasSixSignificantDigits) {
    EXPECT_EQ(formatNumber(123.4567), "123.457");
    EXPECT_EQ(formatNumber(-123.4567), "-123.457");
    EXPECT_EQ(formatNumber(0.1 + 0.2), "0.3");
}

TEST(MotionLineNumber, TakesTheExponentFormBelowMinusFourAndFromSix) {
    EXPECT_EQ(formatNumber(1234567.0), "1.23457e+06");
    EXPECT_EQ(formatNumber(1000000.0), "1e+06");
    EXPECT_EQ(formatNumber(999999.0), "999999");
    EXPECT_EQ(formatNumber(0.00001), "1e-05");
    EXPECT_EQ(formatNumber(0.0001), "0.0001");
    EXPECT_EQ(formatNumber(0.000123456789), "0.000123457");
}

TEST(MotionLineNumber, ChoosesTheFormByTheExponentAfterRounding) {
    EXPECT_EQ(formatNumber(999999.4), "999999");
    EXPECT_EQ(formatNumber(999999.5), "1e+06");
    EXPECT_EQ(formatNumber(0.00009999996), "0.0001");
}

TEST(MotionLineNumber, WritesTheMinusOfNegativeZero) {
    EXPECT_EQ(formatNumber(-0.0), "-0");
}

TEST(MotionLineNumber, WritesWhatIsNoNumberAsTheStreamDoes) {
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(formatNumber(inf), "inf");
    EXPECT_EQ(formatNumber(-inf), "-inf");
    EXPECT_EQ(formatNumber(std::copysign(nan, 1.0)), "nan");
    EXPECT_EQ(formatNumber(std::copysign(nan, -1.0)), "-nan");
}

TEST(MotionLineNumber, ExtremesFitAndMatchTheStream) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::max(), Limits::lowest(), Limits::min(), -Limits::min(),
                               Limits::denorm_min(), -Limits::denorm_min()}) {
        EXPECT_EQ(formatNumber(value), asTheStreamWrites(value));
    }
}

TEST(MotionLineNumber, MatchesTheStreamForRandomValues) {
    std::mt19937_64 random(20240611);
    for (int i = 0; i < 20000; ++i) {
        const double anyBits = fromBits(random());
        EXPECT_EQ(formatNumber(anyBits), asTheStreamWrites(anyBits));
        const double inUse = static_cast<double>(static_cast<std::int64_t>(random() >> 24U)) / 1e6;
        EXPECT_EQ(formatNumber(inUse), asTheStreamWrites(inUse));
    }
}

TEST(MotionLineNumber, IgnoresADecimalCommaAndGroupingOfTheGlobalLocale) {
    const CommaLocale comma;
    std::ostringstream affected;
    affected << 12345.5;
    ASSERT_EQ(affected.str(), "12.345,5");
    EXPECT_EQ(formatNumber(12345.5), "12345.5");
    EXPECT_EQ(formatNumber(123456.0), "123456");
    EXPECT_EQ(formatNumber(1234567.0), "1.23457e+06");
    EXPECT_EQ(formatNumber(-0.25), "-0.25");
}

TEST(MotionLines, ApproachLiftsTravelsDescendsAndPlunges) {
    PositionAndFeed state;
    MotionLines lines(&state);
    lines.useFeed(100);
    lines.approach(Point(1, 2, 3), heights());
    EXPECT_EQ(lines.text(), "G01 Z5 F100\nG0 Z10\nG0 X1 Y2\nG0 Z5\nG01 Z-1 F100\n");
}

TEST(MotionLines, ApproachMayEndItsTravelLineInABlank) {
    PositionAndFeed state;
    MotionLines lines(&state);
    lines.approach(Point(1, 2, 3), heights(), TravelEnd::blank);
    EXPECT_EQ(lines.text(), "G01 Z5 \nG0 Z10\nG0 X1 Y2 \nG0 Z5\nG01 Z-1 \n");
}

TEST(MotionLines, FeedWordIsWrittenOnlyWhenTheFeedChangesAndThenRepeated) {
    PositionAndFeed state(Point(), 100);
    MotionLines lines(&state);
    lines.useFeed(100);
    lines.cutTo(Point(1, 0, 0));
    lines.useFeed(200);
    lines.cutTo(Point(2, 0, 0));
    lines.useFeed(200);
    lines.cutTo(Point(3, 0, 0));
    EXPECT_EQ(lines.text(), "G01 X1 Y0 \nG01 X2 Y0 F200\nG01 X3 Y0 F200\n");
    EXPECT_EQ(state.GetFeedRate(), 200);
}

TEST(MotionLines, NeverMoveTheToolStatesPositionOrZFeed) {
    PositionAndFeed state(Point(7, 8, 9), 0);
    state.SetFeedRateZ(55);
    MotionLines lines(&state);
    lines.useFeed(100);
    lines.approach(Point(1, 2, 3), heights());
    lines.cutTo(Point(4, 5, 6));
    lines.arcTo("G02", Point(4, 5, 6), 1, 2);
    EXPECT_EQ(state.GetPoint(), Point(7, 8, 9));
    EXPECT_EQ(state.GetFeedRateZ(), 55);
}

TEST(MotionLines, AnUnknownArcKeyGivesALineThatBeginsWithABlank) {
    PositionAndFeed state;
    MotionLines lines(&state);
    lines.arcTo("", Point(1, 2, 0), 3, 4);
    EXPECT_EQ(lines.text(), " X1 Y2 I3 J4 \n");
}

TEST(MotionLines, HoldNoCarriageReturn) {
    PositionAndFeed state;
    MotionLines lines(&state);
    lines.approach(Point(1, 2, 3), heights());
    lines.cutTo(Point(1, 1, 1));
    EXPECT_EQ(lines.text().find('\r'), std::string::npos);
}

TEST(MotionLines, FollowNeitherDecimalCommaNorGroupingOfTheGlobalLocale) {
    const CommaLocale comma;
    PositionAndFeed state;
    MotionLines lines(&state);
    lines.useFeed(1500.5);
    lines.cutTo(Point(12345.5, -0.25, 0));
    EXPECT_EQ(lines.text(), "G01 X12345.5 Y-0.25 F1500.5\n");
}
