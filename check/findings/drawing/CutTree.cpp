// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/drawing/CutTree.h"

namespace gcode_check {
namespace {

constexpr std::size_t kLongestRun = 8;

double halfAround(const PlaneBox& box) {
    return (box.maxX - box.minX) + (box.maxY - box.minY);
}

PlaneBox around(const PlaneBox& a, const PlaneBox& b) {
    return {std::min(a.minX, b.minX), std::min(a.minY, b.minY), std::max(a.maxX, b.maxX),
            std::max(a.maxY, b.maxY)};
}

PlaneBox boxOfSegment(const Cut& cut) {
    return {std::min(cut.a.x, cut.b.x), std::min(cut.a.y, cut.b.y), std::max(cut.a.x, cut.b.x),
            std::max(cut.a.y, cut.b.y)};
}

// Boxes that touch need no more room together.
bool belongTogether(const PlaneBox& a, const PlaneBox& b) {
    return halfAround(around(a, b)) <= (halfAround(a) + halfAround(b)) * 1.01;
}

}  // namespace

CutTree::CutTree(const CutList& cuts) : m_size(cuts.cuts.size()) {
    std::vector<PlaneBox> boxes;
    bool mayGrow = false;
    for (std::size_t index = 0; index < cuts.cuts.size(); ++index) {
        const Cut& cut = cuts.cuts[index];
        const bool isStraight = cut.arc == Cut::kStraight;
        const PlaneBox box = isStraight ? boxOfSegment(cut) : boxOf(cuts.arcs[cut.arc].curve);
        if (mayGrow && isStraight && index - m_begins.back() < kLongestRun &&
            belongTogether(boxes.back(), box)) {
            boxes.back() = around(boxes.back(), box);
        } else {
            boxes.push_back(box);
            m_begins.push_back(static_cast<std::uint32_t>(index));
        }
        mayGrow = isStraight;
    }
    m_begins.push_back(static_cast<std::uint32_t>(cuts.cuts.size()));
    m_tree = BoxTree(boxes);
}

}  // namespace gcode_check
