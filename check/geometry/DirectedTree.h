// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "geometry/Along.h"
#include "geometry/BoxTree.h"
#include "geometry/Reach.h"

namespace gcode_check {

// Finds what may run along a segment among very many curves that only cross it. Made when it is
// first asked, so one thread at a time.
class DirectedTree {
public:
    using CurveAt = std::function<Curve(std::size_t)>;

    // `curveAt` must last as long as this does.
    DirectedTree(std::size_t count, CurveAt curveAt, double reach, const AlongBounds& bounds)
        : m_count(count), m_curveAt(std::move(curveAt)), m_reach(reach), m_bounds(bounds) {}

    // Calls visit(index) for each curve that may run along the segment within the reach, and for
    // some that do not, in a fixed order, until visit gives false.
    template <typename Visit>
    void each(const Curve& segment, Visit&& visit) const {
        if (!m_isMade) {
            make();
        }
        const Reach wanted(segment, m_reach);
        bool goesOn = true;
        const auto visitIn = [&](const Group& group) {
            group.tree.each(wanted, [&](std::size_t at) {
                goesOn = visit(static_cast<std::size_t>(group.curves[at]));
                return goesOn;
            });
        };
        visitIn(m_arcs);
        const double angle = angleOf(segment);
        for (std::size_t width = 0; width < kWidths && goesOn; ++width) {
            const std::int64_t sectors = m_sectors[width];
            const std::int64_t middle = sectorOf(angle, sectors);
            const std::int64_t near = m_isUsed[width] ? std::min<std::int64_t>(3, sectors) : 0;
            for (std::int64_t next = 0; next < near && goesOn; ++next) {
                // Its own sector, the next one, the one before.
                const std::int64_t sector = (middle + (next == 2 ? sectors - 1 : next)) % sectors;
                const auto group = m_groups.find(keyOf(width, sector));
                if (group != m_groups.end()) {
                    visitIn(group->second);
                }
            }
        }
    }

private:
    static constexpr std::size_t kWidths = 10;

    struct Group {
        std::vector<std::uint32_t> curves;
        BoxTree tree;
    };

    // 0 up to below half a turn.
    static double angleOf(const Curve& segment);
    static std::int64_t sectorOf(double angle, std::int64_t sectors);
    static std::uint64_t keyOf(std::size_t width, std::int64_t sector) {
        return static_cast<std::uint64_t>(width) << 32U | static_cast<std::uint64_t>(sector);
    }
    std::size_t widthFor(const Curve& segment) const;
    void make() const;
    void close(Group& group) const;

    std::size_t m_count;
    CurveAt m_curveAt;
    double m_reach;
    AlongBounds m_bounds;
    // What `make` makes.
    mutable bool m_isMade = false;
    mutable std::array<double, kWidths> m_sines{};
    mutable std::array<std::int64_t, kWidths> m_sectors{};  // so many in half a turn
    mutable std::array<bool, kWidths> m_isUsed{};
    mutable std::unordered_map<std::uint64_t, Group> m_groups;
    mutable Group m_arcs;
};

}  // namespace gcode_check
