// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <locale>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "LiteralTwice.h"
#include "report/TextReport.h"

namespace gcode_check {
namespace {

constexpr double kTurn = 2 * 3.14159265358979323846;
constexpr std::size_t kPlaces = 700;

// Objects, and cuts that follow them once, again, in part, backwards, as chords, a little beside,
// across, beyond the ends, in the same depth, deeper, less deep and slanted, in any order.
class Scene {
public:
    explicit Scene(unsigned seed) : m_engine(seed) {
        m_text.imbue(std::locale::classic());
        m_text.precision(9);
        m_text << std::fixed << "M3 S1000\nG21 G90\nG0 Z5\nF100\n";
        drawing.mmPerUnit = 1;
        for (int count = 1 + below(3); count > 0; --count) {
            object();
        }
        for (int count = 1 + below(6); count > 0; --count) {
            const Shape& shape = drawing.shapes[static_cast<std::size_t>(
                below(static_cast<int>(drawing.shapes.size())))];
            follow(shape);
        }
        m_text << "M30\n";
    }

    std::string program() const { return m_text.str(); }
    Drawing drawing;

private:
    int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(m_engine); }
    double between(double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(m_engine);
    }
    PlanePoint place() { return {between(0, 10), between(0, 10)}; }

    void object() {
        Shape shape;
        const int kind = below(3);
        if (kind == 0) {
            shape.kind = ShapeKind::Line;
            shape.first = place();
            shape.second = place();
            // Some begin where the one before ends, some lie upon it.
            if (!drawing.shapes.empty() && drawing.shapes.back().kind == ShapeKind::Line) {
                const Shape& last = drawing.shapes.back();
                shape.first = below(2) == 0 ? last.second : shape.first;
                shape.second = below(5) == 0 ? last.first : shape.second;
            }
        } else {
            shape.kind = kind == 1 ? ShapeKind::Arc : ShapeKind::Circle;
            shape.centre = place();
            shape.radius = between(0.5, 4);
            shape.startRad = between(0, 6);
            shape.endRad = shape.startRad + between(0.5, 6);
        }
        drawing.shapes.push_back(shape);
    }

    double height() {
        const std::array<double, 4> heights{-1, -1, -2, -1.5};
        return heights[static_cast<std::size_t>(below(4))];
    }

    void begin(const PlanePoint& at, double z) {
        m_text << "G0 X" << at.x << " Y" << at.y << "\nG1 Z" << z << '\n';
    }

    void follow(const Shape& shape) {
        double from = below(3) == 0 ? between(-0.2, 0.6) : 0;
        double to = below(3) == 0 ? from + between(0.1, 0.6) : 1;
        if (below(2) == 0) {
            std::swap(from, to);
        }
        const double off = below(4) == 0 ? between(-0.05, 0.05) : between(-0.004, 0.004);
        const double z = height();
        const double endZ = below(5) == 0 ? height() : z;
        if (shape.kind == ShapeKind::Line) {
            line(shape, from, to, off, z, endZ);
        } else if (below(4) == 0) {
            chords(shape, from, to, z);
        } else {
            arc(shape, from, to, off, z, endZ);
        }
        m_text << "G0 Z5\n";
    }

    void line(const Shape& shape, double from, double to, double off, double z, double endZ) {
        const double dx = shape.second.x - shape.first.x;
        const double dy = shape.second.y - shape.first.y;
        const double length = std::hypot(dx, dy);
        // Turned: across the object, or nearly along it.
        const double turned = below(4) == 0 ? between(-1, 1) : 0;
        const auto at = [&](double t) {
            const double side = off + turned * (t - 0.5) * (below(1) + 1);
            return PlanePoint{shape.first.x + dx * t - dy / length * side,
                              shape.first.y + dy * t + dx / length * side};
        };
        begin(at(from), z);
        const PlanePoint end = at(to);
        m_text << "G1 X" << end.x << " Y" << end.y << " Z" << endZ << '\n';
    }

    PlanePoint onArc(const Shape& shape, double t, double off) const {
        const double sweep =
            shape.kind == ShapeKind::Circle ? kTurn : shape.endRad - shape.startRad;
        const double angle = (shape.kind == ShapeKind::Circle ? 0 : shape.startRad) + sweep * t;
        return {shape.centre.x + (shape.radius + off) * std::cos(angle),
                shape.centre.y + (shape.radius + off) * std::sin(angle)};
    }

    void arc(const Shape& shape, double from, double to, double off, double z, double endZ) {
        const PlanePoint start = onArc(shape, from, off);
        const PlanePoint end = shape.kind == ShapeKind::Circle && std::abs(to - from) == 1
                                   ? start
                                   : onArc(shape, to, off);
        begin(start, z);
        m_text << (to > from ? "G3 X" : "G2 X") << end.x << " Y" << end.y << " Z" << endZ << " I"
               << shape.centre.x - start.x << " J" << shape.centre.y - start.y << '\n';
    }

    void chords(const Shape& shape, double from, double to, double z) {
        begin(onArc(shape, from, 0), z);
        // Long enough for many places.
        const double most = LiteralTwice::lengthOf(shape) * std::abs(to - from) / 0.2;
        const int count = 3 + below(std::clamp(static_cast<int>(most), 1, 60));
        for (int chord = 1; chord <= count; ++chord) {
            const PlanePoint end = onArc(shape, from + (to - from) * chord / count, 0);
            m_text << "G1 X" << end.x << " Y" << end.y << '\n';
        }
    }

    std::mt19937 m_engine;
    std::ostringstream m_text;
};

double widthOf(const LiteralTwice::Found& found) {
    double width = 0;
    for (const LiteralTwice::Part& part : found.parts) {
        width += part.to - part.from;
    }
    return width;
}

// What places can't tell: the answer changes when the bounds move by a hair.
class Judge {
public:
    Judge(const Reading& reading, const Shape& shape)
        : m_step(LiteralTwice::lengthOf(shape) / static_cast<double>(kPlaces)) {
        const LiteralTwice literal(reading, kPlaces);
        m_found = literal.look(shape, {});
        for (const double sign : {-1.0, 1.0}) {
            LiteralTwice::Bounds moved;
            moved.reach += sign * 1e-4;
            moved.least += sign * 3 * m_step;
            moved.parallel *= 1 + sign * 0.02;
            moved.rough += sign * 0.01;
            moved.mostOfCut -= sign * 0.05;
            moved.height -= sign * 5e-3;
            const LiteralTwice::Found other = literal.look(shape, moved);
            m_close = m_close || other.parts.size() != m_found.parts.size() ||
                      std::abs(widthOf(other) - widthOf(m_found)) > 0.02;
        }
    }

    bool isClose() const { return m_close; }
    const LiteralTwice::Found& found() const { return m_found; }
    double width() const { return widthOf(m_found); }

    // Whether the two lines cut a place of the object twice.
    bool knows(std::uint32_t second) const {
        for (const LiteralTwice::Pair& pair : m_found.pairs) {
            if (pair.second == second) {
                return true;
            }
        }
        return false;
    }

private:
    double m_step;
    LiteralTwice::Found m_found;
    bool m_close = false;
};

struct Tally {
    int once = 0;
    int twice = 0;
    int close = 0;
};

const Finding* findingOf(const CheckResult& result, std::size_t shape) {
    for (const Finding& finding : result.findings) {
        if (finding.kind == FindingKind::CutTwice && finding.shape == shape) {
            return &finding;
        }
    }
    return nullptr;
}

void expectLiteral(const CheckResult& result, const Shape& shape, std::size_t index, Tally& tally) {
    const Judge judge(result.reading, shape);
    if (judge.isClose()) {
        ++tally.close;
        return;
    }
    const Finding* const finding = findingOf(result, index);
    ASSERT_EQ(finding != nullptr, !judge.found().parts.empty()) << judge.width();
    if (finding == nullptr) {
        ++tally.once;
        return;
    }
    ++tally.twice;
    const double length = LiteralTwice::lengthOf(shape);
    EXPECT_NEAR(finding->numbers.front().value / length, judge.width(),
                0.003 + 0.002 * static_cast<double>(judge.found().pairs.size()))
        << finding->sentence;
    EXPECT_TRUE(judge.knows(finding->line)) << finding->sentence;
}

TEST(CutTwiceJudge, FindsWhatIsCutTwicePlaceByPlaceAndPairByPair) {
    Tally tally;
    CheckOptions options;
    options.findingsPerKind = 100000;
    for (unsigned seed = 0; seed < 2000; ++seed) {
        const Scene scene(seed);
        const std::string program = scene.program();
        const CheckResult result = check(program, options, &scene.drawing);
        ASSERT_EQ(result.reading.stopLine, 0U) << "seed " << seed << '\n' << program;
        for (std::size_t shape = 0; shape < scene.drawing.shapes.size(); ++shape) {
            SCOPED_TRACE("seed " + std::to_string(seed) + " shape " + std::to_string(shape));
            expectLiteral(result, scene.drawing.shapes[shape], shape, tally);
            if (HasFailure()) {
                FAIL() << program << textReport(result);
            }
        }
    }
    EXPECT_GT(tally.once, 2000);
    EXPECT_GT(tally.twice, 500);
    EXPECT_LT(tally.close, 650);
}

}  // namespace
}  // namespace gcode_check
