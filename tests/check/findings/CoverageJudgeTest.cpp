// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cmath>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "LiteralCoverage.h"
#include "interpreter/Interpreter.h"
#include "report/TextReport.h"

namespace gcode_check {
namespace {

constexpr double kTolerance = 0.05;
constexpr double kSpacing = 0.01;
constexpr double kTurn = 2 * 3.14159265358979323846;

// A program of cuts, flat, slanted and in the air, and shapes that lie on them, beside them, on
// parts of them or elsewhere.
class Scene {
public:
    explicit Scene(unsigned seed) : m_engine(seed) {
        m_text.imbue(std::locale::classic());
        m_text << "M3 S1000\nG21 G90\nG0 Z5\nF100\n";
        const int visits = 1 + below(3);
        for (int visit = 0; visit < visits; ++visit) {
            m_at = place();
            m_text << "G0 X" << m_at.x << " Y" << m_at.y << "\nG1 Z" << height() << '\n';
            for (int cut = 1 + below(4); cut > 0; --cut) {
                below(2) == 0 ? line() : arc();
            }
            m_text << "G0 Z5\n";
        }
        m_text << "M30\n";
        if (below(3) == 0) {
            Shape extra;
            extra.first = place();
            drawing.shapes.push_back(extra);
        }
    }

    std::string program() const { return m_text.str(); }
    Drawing drawing;

private:
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_engine); }
    double between(double from, double to) {
        const double value = std::uniform_real_distribution<double>(from, to)(m_engine);
        return std::round(value * 1000) / 1000;
    }
    PlanePoint place() { return {between(0, 3), between(0, 3)}; }
    double height() { return below(6) == 0 ? 0.5 : -1 - below(2); }
    // Mostly well within or well beyond the tolerance.
    double jitter() { return below(3) == 0 ? between(-0.2, 0.2) : between(-0.01, 0.01); }

    void line() {
        const PlanePoint to = place();
        m_text << "G1 X" << to.x << " Y" << to.y;
        if (below(4) == 0) {
            m_text << " Z" << height();
        }
        m_text << '\n';
        Shape shape;
        shape.kind = ShapeKind::Line;
        const double from = below(3) == 0 ? between(-0.3, 0.3) : 0;
        const double end = below(3) == 0 ? between(0.7, 1.3) : 1;
        const PlanePoint off{jitter(), jitter()};
        const auto at = [&](double t) {
            return PlanePoint{m_at.x + (to.x - m_at.x) * t + off.x,
                              m_at.y + (to.y - m_at.y) * t + off.y};
        };
        shape.first = at(from);
        shape.second = at(end);
        keep(shape);
        m_at = to;
    }

    void arc() {
        const double radius = between(0.3, 1.5);
        const double start = between(0, 6);
        const bool clockwise = below(2) == 0;
        const double sweep = below(5) == 0 ? kTurn : between(0.3, 6);
        const PlanePoint centre{m_at.x - radius * std::cos(start),
                                m_at.y - radius * std::sin(start)};
        const double end = clockwise ? start - sweep : start + sweep;
        const bool full = sweep == kTurn;
        const PlanePoint to =
            full ? m_at
                 : PlanePoint{centre.x + radius * std::cos(end), centre.y + radius * std::sin(end)};
        m_text.precision(9);
        m_text << (clockwise ? "G2 X" : "G3 X") << to.x << " Y" << to.y << " I" << centre.x - m_at.x
               << " J" << centre.y - m_at.y << '\n';
        Shape shape;
        shape.kind = full && below(2) == 0 ? ShapeKind::Circle : ShapeKind::Arc;
        shape.centre = {centre.x + jitter(), centre.y + jitter()};
        shape.radius = radius + (below(4) == 0 ? jitter() : 0);
        shape.startRad = (clockwise ? end : start) + (!full && below(4) == 0 ? jitter() : 0);
        shape.endRad = (clockwise ? start : end) + (!full && below(4) == 0 ? jitter() : 0);
        keep(shape);
        m_at = to;
    }

    void keep(const Shape& shape) {
        if (below(8) != 0) {
            drawing.shapes.push_back(shape);
        }
    }

    std::mt19937 m_engine;
    std::ostringstream m_text;
    PlanePoint m_at;
};

struct Tally {
    int agreed = 0;
    int close = 0;  // too near the tolerance for looking place by place
    int cut = 0;
};

// Gives false when the literal answer is too close to call.
bool expectLiteral(double farthest, bool found, Tally& tally, const std::string& what) {
    if (std::abs(farthest - kTolerance) <= kSpacing) {
        ++tally.close;
        return false;
    }
    EXPECT_EQ(farthest > kTolerance, found) << what << ", " << farthest;
    ++tally.agreed;
    tally.cut += found ? 0 : 1;
    return true;
}

bool isUncut(const CheckResult& result, std::size_t shape) {
    for (const Finding& finding : result.findings) {
        if (finding.kind == FindingKind::NotCut && finding.shape == shape) {
            return true;
        }
    }
    return false;
}

bool isOff(const CheckResult& result, std::size_t motion) {
    for (const Finding& finding : result.findings) {
        if (finding.kind == FindingKind::CutOffDrawing && finding.place->firstMotion <= motion &&
            motion <= finding.place->lastMotion) {
            return true;
        }
    }
    return false;
}

CheckOptions judgedOptions() {
    CheckOptions options;
    options.tolerance = kTolerance;
    options.findingsPerKind = 100000;
    return options;
}

TEST(CoverageJudge, FindsTheObjectsThatLookUncutPlaceByPlace) {
    Tally tally;
    for (unsigned seed = 0; seed < 150; ++seed) {
        Scene scene(seed);
        const std::string program = scene.program();
        scene.drawing.mmPerUnit = 1;
        const CheckResult result = check(program, judgedOptions(), &scene.drawing);
        ASSERT_EQ(result.reading.stopLine, 0U) << "seed " << seed << '\n' << program;
        const LiteralCoverage literal(result.reading, kSpacing);
        if (result.figures.cutLength == 0) {
            continue;
        }
        for (std::size_t shape = 0; shape < scene.drawing.shapes.size(); ++shape) {
            expectLiteral(literal.farthestFromCuts(scene.drawing.shapes[shape]),
                          isUncut(result, shape), tally,
                          "seed " + std::to_string(seed) + " shape " + std::to_string(shape));
        }
    }
    EXPECT_GT(tally.agreed, 500);
    EXPECT_GT(tally.cut, 200);
    EXPECT_LT(tally.close, tally.agreed / 5);
}

TEST(CoverageJudge, FindsTheCutsThatLieOffTheDrawingPlaceByPlace) {
    Tally tally;
    for (unsigned seed = 1000; seed < 1150; ++seed) {
        Scene scene(seed);
        const std::string program = scene.program();
        scene.drawing.mmPerUnit = 1;
        const CheckResult result = check(program, judgedOptions(), &scene.drawing);
        if (result.figures.cutLength == 0 || scene.drawing.shapes.empty()) {
            continue;
        }
        const LiteralCoverage literal(result.reading, kSpacing);
        for (std::size_t motion = 0; motion < result.reading.motions.size(); ++motion) {
            const double farthest = literal.farthestFromShapes(motion, scene.drawing.shapes);
            if (farthest > 0) {
                expectLiteral(farthest, isOff(result, motion), tally,
                              "seed " + std::to_string(seed) + " line " +
                                  std::to_string(result.reading.motions[motion].line));
            }
        }
    }
    EXPECT_GT(tally.agreed, 500);
    EXPECT_GT(tally.cut, 200);
    EXPECT_LT(tally.close, tally.agreed / 5);
}

}  // namespace
}  // namespace gcode_check
