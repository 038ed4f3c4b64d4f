// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/Curve.h"

namespace gcode_check {

// Finds boxes among very many: neighbours lie in a common box, and those again, up to one.
class BoxTree {
public:
    BoxTree() = default;
    // Keeps no reference. No box may be empty, all numbers are finite.
    explicit BoxTree(const std::vector<PlaneBox>& boxes);

    std::size_t size() const { return m_order.size(); }

    // Calls visit(index) for each box that `wanted(box)` takes together with all boxes around it,
    // in a fixed order, until visit gives false.
    template <typename Wanted, typename Visit>
    void each(Wanted&& wanted, Visit&& visit) const {
        if (!m_levels.empty()) {
            descend(m_levels.size() - 1, 0, wanted, visit);
        }
    }

    // The least of distanceTo(index) over all boxes, below `bound`; `bound` when there is none.
    template <typename Distance>
    double nearest(const PlanePoint& place, double bound, Distance&& distanceTo) const {
        if (!m_levels.empty()) {
            approach(m_levels.size() - 1, 0, place, bound, distanceTo);
        }
        return bound;
    }

private:
    static constexpr std::size_t kChildren = 8;

    template <typename Wanted, typename Visit>
    bool descend(std::size_t level, std::size_t at, Wanted& wanted, Visit& visit) const {
        if (!wanted(m_levels[level][at])) {
            return true;
        }
        if (level == 0) {
            return visit(static_cast<std::size_t>(m_order[at]));
        }
        const std::size_t end = std::min((at + 1) * kChildren, m_levels[level - 1].size());
        for (std::size_t child = at * kChildren; child < end; ++child) {
            if (!descend(level - 1, child, wanted, visit)) {
                return false;
            }
        }
        return true;
    }

    template <typename Distance>
    void approach(std::size_t level, std::size_t at, const PlanePoint& place, double& bound,
                  Distance& distanceTo) const {
        if (level == 0) {
            bound = std::min(bound, distanceTo(static_cast<std::size_t>(m_order[at])));
            return;
        }
        struct Child {
            double off;
            std::size_t at;
        };
        std::array<Child, kChildren> children{};
        std::size_t count = 0;
        const std::size_t end = std::min((at + 1) * kChildren, m_levels[level - 1].size());
        for (std::size_t child = at * kChildren; child < end; ++child) {
            children[count++] = {offOf(m_levels[level - 1][child], place), child};
        }
        std::sort(children.begin(), children.begin() + static_cast<std::ptrdiff_t>(count),
                  [](const Child& a, const Child& b) {
                      return a.off < b.off || (a.off == b.off && a.at < b.at);
                  });
        for (std::size_t child = 0; child < count && children[child].off < bound; ++child) {
            approach(level - 1, children[child].at, place, bound, distanceTo);
        }
    }

    static double offOf(const PlaneBox& box, const PlanePoint& place) {
        const double dx = std::max({box.minX - place.x, place.x - box.maxX, 0.0});
        const double dy = std::max({box.minY - place.y, place.y - box.maxY, 0.0});
        return std::sqrt(dx * dx + dy * dy);
    }

    std::vector<std::uint32_t> m_order;  // of the boxes that were given
    std::vector<std::vector<PlaneBox>> m_levels;
};

}  // namespace gcode_check
