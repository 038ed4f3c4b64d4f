// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/BoxTree.h"

#include <numeric>

namespace gcode_check {
namespace {

PlaneBox around(const PlaneBox& a, const PlaneBox& b) {
    return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
            std::max(a.maxY, b.maxY)};
}

std::uint64_t spread(std::uint64_t bits) {
    bits = (bits | bits << 16U) & 0x0000FFFF0000FFFFU;
    bits = (bits | bits << 8U) & 0x00FF00FF00FF00FFU;
    bits = (bits | bits << 4U) & 0x0F0F0F0F0F0F0F0FU;
    bits = (bits | bits << 2U) & 0x3333333333333333U;
    return (bits | bits << 1U) & 0x5555555555555555U;
}

std::uint64_t stepOf(double middle, double least, double width) {
    const double scaled = width > 0 ? (middle - least) / width * 1048575.0 : 0;
    return static_cast<std::uint64_t>(std::clamp(scaled, 0.0, 1048575.0));
}

// Along a curve that keeps neighbours together.
std::vector<std::uint64_t> keysOf(const std::vector<PlaneBox>& boxes) {
    PlaneBox all = boxes.front();
    for (const PlaneBox& box : boxes) {
        all = around(all, box);
    }
    std::vector<std::uint64_t> keys;
    keys.reserve(boxes.size());
    for (const PlaneBox& box : boxes) {
        const double x = box.minX / 2 + box.maxX / 2;
        const double y = box.minY / 2 + box.maxY / 2;
        keys.push_back(spread(stepOf(x, all.minX, all.maxX - all.minX)) |
                       spread(stepOf(y, all.minY, all.maxY - all.minY)) << 1U);
    }
    return keys;
}

// The keys have 40 bits, which are sorted by 14 at a time, the lowest first; equal ones keep their
// order.
void sortByKey(const std::vector<std::uint64_t>& keys, std::vector<std::uint32_t>& order) {
    constexpr unsigned kBits = 14;
    constexpr std::uint64_t kMask = (1U << kBits) - 1;
    if (order.size() < 1024) {
        std::stable_sort(order.begin(), order.end(),
                         [&keys](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });
        return;
    }
    std::vector<std::uint32_t> next(order.size());
    for (unsigned shift = 0; shift < 40; shift += kBits) {
        std::vector<std::uint32_t> begin(kMask + 2);
        for (const std::uint64_t key : keys) {
            ++begin[(key >> shift & kMask) + 1];
        }
        std::partial_sum(begin.begin(), begin.end(), begin.begin());
        for (const std::uint32_t index : order) {
            next[begin[keys[index] >> shift & kMask]++] = index;
        }
        order.swap(next);
    }
}

}  // namespace

BoxTree::BoxTree(const std::vector<PlaneBox>& boxes) {
    if (boxes.empty()) {
        return;
    }
    const std::vector<std::uint64_t> keys = keysOf(boxes);
    m_order.resize(boxes.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    sortByKey(keys, m_order);
    std::vector<PlaneBox> level;
    level.reserve(boxes.size());
    for (const std::uint32_t index : m_order) {
        level.push_back(boxes[index]);
    }
    m_levels.push_back(std::move(level));
    while (m_levels.back().size() > 1) {
        const std::vector<PlaneBox>& below = m_levels.back();
        std::vector<PlaneBox> above;
        above.reserve(below.size() / kChildren + 1);
        for (std::size_t at = 0; at < below.size(); ++at) {
            if (at % kChildren == 0) {
                above.push_back(below[at]);
            } else {
                above.back() = around(above.back(), below[at]);
            }
        }
        m_levels.push_back(std::move(above));
    }
}

}  // namespace gcode_check
