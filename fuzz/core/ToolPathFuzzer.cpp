// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Tool paths and drill cycles of any objects with any numbers are, byte for byte, those that the
// literal generators write, and leave the tool where these leave it.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <sstream>

#include "ByteReader.h"
#include "FuzzCheck.h"
#include "LiteralGenerators.h"
#include "core/MotionLine.h"

using GCode::Point;

namespace {

/// Mostly on a grid, so that points fall together and differences come near the rounding's limits;
/// at times any bits.
double number(ByteReader* input) {
    const std::uint8_t kind = input->byte();
    if (kind < 128) {
        return static_cast<double>(kind) - 64;
    }
    if (kind < 224) {
        return static_cast<double>(input->value<std::int32_t>()) / (kind < 176 ? 10000.0 : 1000.0);
    }
    if (kind < 240) {
        constexpr double kSpecial[] = {0.01, -0.01, 0.005, -0.0, 1e15, 1e300, 5e-324, 999999.5};
        return kSpecial[kind % 8];
    }
    return input->value<double>();
}

Point point(ByteReader* input) {
    const double x = number(input);
    const double y = number(input);
    return {x, y, input->flag() ? number(input) : 0.0};
}

GCode::ToolPathSettings settings(ByteReader* input) {
    GCode::ToolPathSettings result;
    result.mode = input->flag() ? GCode::MotionMode::relative : GCode::MotionMode::absolute;
    result.feedXY = number(input);
    result.feedZ = number(input);
    const double safe = number(input);
    const double clearance = number(input);
    result.parameters.SetParams(safe, clearance, number(input), mm);
    return result;
}

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

bool same(const GCode::PositionAndFeed& a, const GCode::PositionAndFeed& b) {
    return sameBits(a.m_point.m_x, b.m_point.m_x) && sameBits(a.m_point.m_y, b.m_point.m_y) &&
           sameBits(a.m_point.m_z, b.m_point.m_z) && sameBits(a.m_feedRateXY, b.m_feedRateXY) &&
           sameBits(a.m_feedRateZ, b.m_feedRateZ);
}

/// The same objects written by both.
class BothPaths {
public:
    explicit BothPaths(const GCode::ToolPathSettings& settings)
        : m_writer(settings, &m_state), m_judge(settings, &m_judgeState) {}

    void add(ByteReader* input) {
        const std::uint8_t kind = input->byte();
        // Objects often begin where the one before ended.
        const Point first = kind < 128 ? m_last : point(input);
        if (kind % 4 == 0) {
            FUZZ_CHECK(m_writer.point(first) == m_judge.point(first));
            m_last = first;
        } else if (kind % 4 == 1) {
            const GCode::ArcGeometry arc{first, point(input), point(input), number(input)};
            FUZZ_CHECK(m_writer.arc(arc) == m_judge.arc(arc));
            m_last = arc.end;
        } else {
            m_last = point(input);
            FUZZ_CHECK(m_writer.line(first, m_last) == m_judge.line(first, m_last));
        }
        FUZZ_CHECK(same(m_state, m_judgeState));
    }

private:
    GCode::PositionAndFeed m_state;
    GCode::PositionAndFeed m_judgeState;
    GCode::ToolPathWriter m_writer;
    LiteralToolPath m_judge;
    Point m_last;
};

void checkToolPath(ByteReader* input) {
    BothPaths paths(settings(input));
    while (!input->atEnd()) {
        paths.add(input);
    }
}

std::string literalCycle(int cycle, const GCode::DrillSettings& drill) {
    std::string text = "G8" + std::to_string(1 + cycle) + " Z" + literalNumber(drill.depth) + "R" +
                       literalNumber(drill.retractHeight);
    text += cycle == 0 ? "" : "P" + literalNumber(drill.dwell);
    text += cycle == 2 ? "Q" + literalNumber(drill.peckDepth) : "";
    return text + "F" + literalNumber(drill.feedRate) + "\n";
}

void checkDrillCycle(ByteReader* input) {
    const int cycle = static_cast<int>(input->below(3));
    const bool relative = input->flag();
    const GCode::DrillSettings drill{number(input), number(input), number(input), number(input),
                                     number(input)};
    std::vector<Point> positions;
    std::string judge;
    while (!input->atEnd()) {
        positions.push_back(point(input));
        const Point& at = positions.back();
        const bool absolute = positions.size() == 1 || !relative;
        const Point from = absolute ? Point() : positions[positions.size() - 2];
        const double x = absolute ? at.m_x : at.m_x - from.m_x;
        const double y = absolute ? at.m_y : at.m_y - from.m_y;
        judge += "X" + literalNumber(x) + " Y" + literalNumber(y) + "\n";
        judge += positions.size() == 1 ? literalCycle(cycle, drill) : "";
    }
    judge += positions.empty() ? "" : "G80\n";
    const GCode::MotionMode mode =
        relative ? GCode::MotionMode::relative : GCode::MotionMode::absolute;
    FUZZ_CHECK(GCode::drillCycleText(static_cast<GCode::DrillCycle>(cycle), drill, mode,
                                     positions) == judge);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(data, size);
    const std::uint8_t what = input.byte();
    if (what < 160) {
        checkToolPath(&input);
    } else if (what < 224) {
        checkDrillCycle(&input);
    } else {
        const auto value = input.value<double>();
        FUZZ_CHECK(GCode::formatNumber(value) == literalNumber(value));
    }
    return 0;
}
