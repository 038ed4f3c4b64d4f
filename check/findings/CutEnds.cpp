// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/CutEnds.h"

#include <algorithm>

namespace gcode_check {
namespace {

constexpr double kCellsPerUnit = 1000;
constexpr double kCoordinateAtMost = 1e9;

std::uint64_t cellOf(double x, double y) {
    const auto column = static_cast<std::uint64_t>(std::llround(x * kCellsPerUnit));
    const auto row = static_cast<std::uint64_t>(std::llround(y * kCellsPerUnit));
    return column * 0x9E3779B97F4A7C15U ^ row;
}

bool isInReach(const Point& place) {
    return std::abs(place.x) < kCoordinateAtMost && std::abs(place.y) < kCoordinateAtMost;
}

}  // namespace

bool CutEnds::isCutTo(const Point& place, std::size_t index) {
    while (m_next < index && m_walk.next()) {
        note(m_walk.step());
        ++m_next;
    }
    if (!isInReach(place)) {
        return false;
    }
    // The same place may be rounded to either side of a cell's border.
    for (const double x : {place.x - kSame, place.x + kSame}) {
        for (const double y : {place.y - kSame, place.y + kSame}) {
            const auto found = m_lowest.find(cellOf(x, y));
            if (found != m_lowest.end() && found->second <= place.z + kSame) {
                return true;
            }
        }
    }
    return false;
}

void CutEnds::note(const Step& step) {
    const std::uint32_t zeroLine = m_setting.reading.frames[step.motion->frame].zeroLine;
    if (zeroLine != m_zeroLine || step.motion->kind == MotionKind::ToolChange) {
        m_lowest.clear();
        m_zeroLine = zeroLine;
    }
    if (step.isMove() && step.isFeed() && step.heightKnown) {
        keep(step.from);
        keep(step.to);
    }
}

void CutEnds::keep(const Point& place) {
    if (place.z < m_setting.surface - kSame && isInReach(place)) {
        double& lowest = m_lowest.try_emplace(cellOf(place.x, place.y), place.z).first->second;
        lowest = std::min(lowest, place.z);
    }
}

}  // namespace gcode_check
