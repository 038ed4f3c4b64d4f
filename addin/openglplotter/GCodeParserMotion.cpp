// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What a line does: the modal state and the vertices of the path.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "openglplotter/GCodeParser.h"
#include "openglplotter/WordNumber.h"

namespace {

constexpr std::size_t kF = wordIndex('F');
constexpr std::size_t kG = wordIndex('G');
constexpr std::size_t kI = wordIndex('I');
constexpr std::size_t kJ = wordIndex('J');
constexpr std::size_t kP = wordIndex('P');
constexpr std::size_t kQ = wordIndex('Q');
constexpr std::size_t kR = wordIndex('R');
constexpr std::size_t kX = wordIndex('X');
constexpr std::size_t kY = wordIndex('Y');
constexpr std::size_t kZ = wordIndex('Z');

constexpr int kArcSegments = 30;

constexpr Color kRapidColor(0.7F, 0, 0, 0);
constexpr Color kFeedColor(0, 1, 0, 0);
constexpr Color kNoCodeColor(0, 0, 255, 0);

/// The angle of the way from `point` to `center` in degrees.
float angleDeg(const Point3d& center, const Point3d& point) {
    constexpr double kSinglePi = 3.1415927410125732;
    const double angle = std::atan2(static_cast<double>(center.y - point.y),
                                    static_cast<double>(center.x - point.x));
    return static_cast<float>(angle * 180.0 / kSinglePi);
}

/// Turns a way to the centre into one from it. The fraction of a negative angle is meant to be
/// lost.
float reversedDeg(float angle) {
    return angle < 0 ? static_cast<float>(180 - std::abs(truncateToInt(angle))) : angle + 180;
}

}  // namespace

float GCodeParserN::lengthValue(std::size_t index) const {
    return convertToMM(wordValue(index), units);
}

void GCodeParserN::executeGCodes() {
    if (m_cutShort) {
        return;
    }
    const Point3d temp = targetOfLine();
    if (hasWord(kF)) {
        feedrate = wordValue(kF);
    }
    if (hasWord(kG)) {
        executeMotion(truncateToInt(wordValue(kG)), temp);
    }
}

Point3d GCodeParserN::targetOfLine() const {
    const auto coordinate = [this](std::size_t word, float from) {
        if (!hasWord(word)) {
            return from;
        }
        return absoluteMode ? lengthValue(word) : from + lengthValue(word);
    };
    return {coordinate(kX, current.x), coordinate(kY, current.y), coordinate(kZ, current.z)};
}

void GCodeParserN::executeMotion(int gNumber, const Point3d& temp) {
    switch (gNumber) {
        case 0:
        case 1:
            return setTarget(temp);
        case 2:
        case 3:
            return executeArc(gNumber == 2, temp);
        case 80:
            return cancelDrillCycle();
        case 81:
        case 82:
        case 83:
        case 183:
            return executeDrillCycle(gNumber, temp);
        case 90:
        case 91:
            absoluteMode = gNumber == 90;
            return;
        default:
            return;
    }
}

void GCodeParserN::setTarget(Point3d p) {
    if (static_cast<std::size_t>(m_pointVector.size()) >= m_maxVertices) {
        m_cutShort = true;
        return;
    }
    m_ColorVector.append(hasWord(kG) ? (codeValues[kG] == 0 ? kRapidColor : kFeedColor)
                                     : kNoCodeColor);
    m_pointVector.append(p);
    current = p;
    CalculateMinMax(p);
}

void GCodeParserN::executeArc(bool clockwise, const Point3d& temp) {
    // An arc given by its radius is not drawn.
    if (!hasWord(kI) && !hasWord(kJ)) {
        return;
    }
    const Point3d center(current.x + lengthValue(kI), current.y + lengthValue(kJ), 0);
    drawArc(current, center, temp, clockwise);
}

void GCodeParserN::drawArc(Point3d startPoint, Point3d center, Point3d endpoint,
                           bool /*clockwise*/) {
    const auto radius = static_cast<float>(GetDistance(startPoint, center));
    if (endpoint == startPoint) {
        return DrawCircle(center.x, center.y, radius, kArcSegments);
    }
    float startAngle = reversedDeg(angleDeg(center, startPoint));
    const float endAngle = reversedDeg(angleDeg(center, endpoint));
    if (startAngle > endAngle) {
        startAngle -= 360;
    }
    DrawArc(center.x, center.y, endpoint.z, radius, startAngle, endAngle, kArcSegments);
}

void GCodeParserN::DrawArc(float cx, float cy, float zDepth, float r, float start_angle,
                           float end_angle, int num_segments) {
    constexpr float kPi = 3.1415927F;
    const float deltaAngle = (end_angle - start_angle) / static_cast<float>(num_segments);
    float angle = start_angle;
    for (int ii = 0; ii < num_segments && !m_cutShort; ++ii) {
        const auto radians = static_cast<double>(kPi * angle / 180);
        const float x = static_cast<float>(std::cos(radians) * static_cast<double>(r)) + cx;
        const float y = static_cast<float>(std::sin(radians) * static_cast<double>(r)) + cy;
        angle += deltaAngle;
        setTarget({x, y, zDepth});
    }
}

void GCodeParserN::DrawCircle(float cx, float cy, float r, int num_segments) {
    constexpr float kTwoPi = 6.283185F;
    for (std::int64_t ii = 0; ii <= num_segments && !m_cutShort; ++ii) {
        const float theta = static_cast<float>(ii) * kTwoPi / static_cast<float>(num_segments);
        // At Z 0 whatever the depth of the move.
        setTarget({std::cos(theta) * r + cx, std::sin(theta) * r + cy, 0});
    }
}

void GCodeParserN::executeDrillCycle(int gNumber, const Point3d& temp) {
    drillTarget.x = temp.x;
    drillTarget.y = temp.y;
    if (hasWord(kZ)) {
        drillTarget.z = temp.z;
    }
    readDrillWords(gNumber);
    drillingCycle(gNumber == 183);
}

void GCodeParserN::readDrillWords(int gNumber) {
    if (hasWord(kF)) {
        drillFeedrate = wordValue(kF);
    }
    // An absolute level, in incremental mode too.
    if (hasWord(kR)) {
        drillRetract = lengthValue(kR);
    }
    if (gNumber == 81) {
        drillDwell = 0;
    } else if (hasWord(kP)) {
        drillDwell = truncateToInt(wordValue(kP));
    }
    if (gNumber == 81 || gNumber == 82) {
        drillPecksize = 0;
    } else if (hasWord(kQ)) {
        // Whole units only: the fraction is meant to be dropped.
        drillPecksize = std::fabs(static_cast<float>(truncateToInt(wordValue(kQ))));
    }
}

void GCodeParserN::cancelDrillCycle() {
    drillTarget = Point3d(0, 0, 0);
    drillRetract = 0;
    drillFeedrate = 0;
    drillDwell = 0;
    drillPecksize = 0;
}

void GCodeParserN::drillingCycle(bool speedPeck) {
    if (drillRetract > current.z) {
        setTarget({current.x, current.y, drillRetract});
    }
    setTarget({drillTarget.x, drillTarget.y, current.z});
    drillPecks(speedPeck);
    if (drillRetract > current.z) {
        setTarget({drillTarget.x, drillTarget.y, drillRetract});
    }
}

void GCodeParserN::drillPecks(bool speedPeck) {
    const auto feedTo = [this](double z) {
        setTarget({drillTarget.x, drillTarget.y, static_cast<float>(z)});
    };
    const double depth = drillTarget.z;
    double targetZ = drillRetract;
    do {
        if (targetZ != static_cast<double>(drillRetract) && !speedPeck) {
            feedTo(targetZ);
        }
        // Without a peck depth one plunge, exact whatever the difference of the levels rounds to.
        const double next = drillPecksize > 0
                                ? std::max(depth, targetZ - static_cast<double>(drillPecksize))
                                : depth;
        // A peck too small to change the depth would never get to the bottom.
        if (next == targetZ && next > depth) {
            return;
        }
        targetZ = next;
        feedTo(targetZ);
        if (!speedPeck) {
            feedTo(drillRetract);
        }
    } while (targetZ > depth && !m_cutShort);
}

double GCodeParserN::GetDistance(const Point3d& a, const Point3d& b) const {
    const auto dx = static_cast<double>(a.x - b.x);
    const auto dy = static_cast<double>(a.y - b.y);
    return std::sqrt(dx * dx + dy * dy);
}

void GCodeParserN::CalculateMinMax(Point3d p) {
    const auto widen = [](float value, float* least, float* greatest) {
        if (value < *least) {
            *least = value;
        }
        if (value > *greatest) {
            *greatest = value;
        }
    };
    widen(p.x, &m_minX, &m_maxX);
    widen(p.y, &m_minY, &m_maxY);
    widen(p.z, &m_minZ, &m_maxZ);
}

void GCodeParserN::ClearMinMaxValue() {
    m_minX = m_minY = m_minZ = 0;
    m_maxX = m_maxY = m_maxZ = 0;
}

void GCodeParserN::GetMinMaxValues(float* minX, float* minY, float* minZ, float* maxX, float* maxY,
                                   float* maxZ, float* min, float* max) const {
    *minX = m_minX;
    *minY = m_minY;
    *minZ = m_minZ;
    *maxX = m_maxX;
    *maxY = m_maxY;
    *maxZ = m_maxZ;
    *min = std::min({m_minX, m_minY, m_minZ});
    *max = std::max({m_maxX, m_maxY, m_maxZ});
}
