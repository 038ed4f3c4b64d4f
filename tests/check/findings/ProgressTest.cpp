// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/Progress.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "findings/Check.h"
#include "geometry/Curve.h"
#include "report/JsonReport.h"

namespace gcode_check {
namespace {

constexpr int kRows = 3000;

// Rows of cuts with a hole at the end of each.
std::string program() {
    std::string text = "M3 S6000\nG21 G90\nG0 Z5\n";
    for (int row = 0; row < kRows; ++row) {
        const std::string y = std::to_string(row);
        text += "G0 X0 Y" + y + "\nG1 Z-1 F100\nX10 F300\nG0 Z5\nG0 X20\nG1 Z-1 F100\nG0 Z5\n";
    }
    return text + "M5\nM30\n";
}

Drawing drawing() {
    Drawing rows;
    for (int row = 0; row < kRows; ++row) {
        const double y = row;
        Shape line;
        line.kind = ShapeKind::Line;
        line.first = {0, y};
        line.second = {10, y};
        Shape point;
        point.kind = ShapeKind::Point;
        point.first = {20, y};
        rows.shapes.push_back(line);
        rows.shapes.push_back(point);
    }
    return rows;
}

std::vector<double> partsOf(const Drawing* rows) {
    std::vector<double> parts;
    CheckOptions options;
    options.progress = [&parts](double part) {
        parts.push_back(part);
        return true;
    };
    EXPECT_FALSE(check(program(), options, rows).stopped);
    return parts;
}

void expectGrowing(const std::vector<double>& parts) {
    ASSERT_GT(parts.size(), 100U);
    EXPECT_LT(parts.size(), 5000U);
    EXPECT_EQ(parts.front(), 0);
    double widest = 0;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        ASSERT_GE(parts[i], parts[i - 1]) << i;
        widest = std::max(widest, parts[i] - parts[i - 1]);
    }
    EXPECT_LT(widest, 0.02) << "a part of the work is not told of";
    EXPECT_GT(parts.back(), 0.98);
    EXPECT_LE(parts.back(), 1);
}

TEST(Progress, OfACheckGrowsFromNothingToAll) {
    expectGrowing(partsOf(nullptr));
    const Drawing rows = drawing();
    expectGrowing(partsOf(&rows));
}

TEST(Progress, AskedToStopTheCheckStopsAtOnce) {
    const std::string text = program();
    const Drawing rows = drawing();
    for (const double at : {0.0, 0.05, 0.15, 0.25, 0.4, 0.62, 0.7, 0.95}) {
        int toldAfter = -1;
        CheckOptions options;
        options.progress = [&toldAfter, at](double part) {
            toldAfter += part >= at ? 1 : 0;
            return part < at;
        };
        const CheckResult result = check(text, options, &rows);
        EXPECT_TRUE(result.stopped) << at;
        EXPECT_TRUE(result.findings.empty() && result.reading.motions.empty()) << at;
        EXPECT_EQ(toldAfter, 0) << "asked again after " << at;
    }
}

// All of the program goes round one circle.
TEST(Progress, AskedToStopWithinOneObjectTheCheckStops) {
    std::string text = "M3 S6000\nG21 G90\nG0 Z5\nG0 X50 Y0\nG1 Z-1 F100\nF300\n";
    for (int at = 1; at <= 30000; ++at) {
        const double angle = at * kPi / 2500;
        text += "X" + std::to_string(50 * std::cos(angle)) + " Y" +
                std::to_string(50 * std::sin(angle)) + "\n";
    }
    Drawing circle;
    circle.shapes.resize(1);
    circle.shapes[0].kind = ShapeKind::Circle;
    circle.shapes[0].radius = 50;
    circle.shapes[0].endRad = 2 * kPi;
    int times = 0;  // that the same is told
    int most = 0;
    double before = -1;
    CheckOptions options;
    options.progress = [&](double part) {
        times = part == before ? times + 1 : 1;
        before = part;
        most = std::max(most, times);
        return true;
    };
    const CheckResult whole = check(text + "G0 Z5\nM5\nM30\n", options, &circle);
    EXPECT_FALSE(whole.stopped);
    EXPECT_EQ(whole.shapesCut, 1U);
    ASSERT_GT(most, 10);
    options.progress = [&](double part) {
        times = part == before ? times + 1 : 1;
        before = part;
        return times < 3;
    };
    before = -1;
    EXPECT_TRUE(check(text + "G0 Z5\nM5\nM30\n", options, &circle).stopped);
    EXPECT_EQ(times, 3);
}

TEST(Progress, HeardOrNotTheResultIsTheSame) {
    const std::string text = program();
    const Drawing rows = drawing();
    CheckOptions options;
    options.progress = [](double) { return true; };
    EXPECT_EQ(jsonReport(check(text, options, &rows), {}), jsonReport(check(text, {}, &rows), {}));
}

TEST(Progress, OfNothingIsNothing) {
    CheckOptions options;
    options.progress = [](double part) { return part < 1; };
    const Drawing none;
    EXPECT_FALSE(check("", options, &none).stopped);
}

}  // namespace
}  // namespace gcode_check
