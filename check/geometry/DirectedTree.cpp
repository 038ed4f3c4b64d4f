// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/DirectedTree.h"

#include <cmath>

namespace gcode_check {
namespace {

constexpr double kSlack = 1 + 1e-6;

}  // namespace

double DirectedTree::angleOf(const Curve& segment) {
    const double angle = std::atan2(segment.b.y - segment.a.y, segment.b.x - segment.a.x);
    return std::max(angle < 0 ? angle + kPi : angle, 0.0);
}

std::int64_t DirectedTree::sectorOf(double angle, std::int64_t sectors) {
    return static_cast<std::int64_t>(angle / kPi * static_cast<double>(sectors)) % sectors;
}

// What lies beside a straight curve and crosses it at an angle is at most two reaches by its sine.
std::size_t DirectedTree::widthFor(const Curve& segment) const {
    const double rough = 2 * m_reach / (m_bounds.part * lengthOf(segment));
    const double sine = std::min(rough, m_bounds.rough);
    std::size_t width = 0;
    while (width + 1 < kWidths && m_sines[width] < sine) {
        ++width;
    }
    return width;
}

void DirectedTree::make() const {
    m_isMade = true;
    double sine = m_bounds.parallel;
    for (std::size_t width = 0; width < kWidths; ++width, sine *= 2) {
        m_sines[width] = width + 1 < kWidths ? sine : std::max(sine, m_bounds.rough);
        const double angle = std::asin(std::min(m_sines[width] * kSlack, 1.0));
        m_sectors[width] = std::max<std::int64_t>(1, static_cast<std::int64_t>(kPi / angle));
    }
    for (std::size_t index = 0; index < m_count; ++index) {
        const Curve curve = m_curveAt(index);
        Group* group = &m_arcs;
        if (curve.kind == Curve::Kind::Segment) {
            const std::size_t width = widthFor(curve);
            m_isUsed[width] = true;
            group = &m_groups[keyOf(width, sectorOf(angleOf(curve), m_sectors[width]))];
        }
        group->curves.push_back(static_cast<std::uint32_t>(index));
    }
    close(m_arcs);
    for (auto& [key, group] : m_groups) {
        close(group);
    }
}

void DirectedTree::close(Group& group) const {
    std::vector<PlaneBox> boxes;
    boxes.reserve(group.curves.size());
    for (const std::uint32_t index : group.curves) {
        boxes.push_back(boxOf(m_curveAt(index)));
    }
    group.tree = BoxTree(boxes);
}

}  // namespace gcode_check
