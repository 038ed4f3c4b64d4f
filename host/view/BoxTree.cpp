// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/BoxTree.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>

namespace {

using TreePoint = boost::geometry::model::point<double, 2, boost::geometry::cs::cartesian>;
using TreeBox = boost::geometry::model::box<TreePoint>;
using Entry = std::pair<TreeBox, std::uint32_t>;

TreeBox treeBox(const WorldBox& box) {
    return {{box.minX, box.minY}, {box.maxX, box.maxY}};
}

bool isUsable(const WorldBox& box) {
    return !box.isEmpty() && std::isfinite(box.minX) && std::isfinite(box.minY) &&
           std::isfinite(box.maxX) && std::isfinite(box.maxY);
}

}  // namespace

struct BoxTree::Tree {
    boost::geometry::index::rtree<Entry, boost::geometry::index::linear<16>> entries;
};

BoxTree::BoxTree() = default;
BoxTree::BoxTree(BoxTree&&) noexcept = default;
BoxTree& BoxTree::operator=(BoxTree&&) noexcept = default;
BoxTree::~BoxTree() = default;

BoxTree::BoxTree(const std::vector<WorldBox>& boxes) : m_tree(std::make_unique<Tree>()) {
    std::vector<Entry> entries;
    entries.reserve(boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (isUsable(boxes[i])) {
            entries.emplace_back(treeBox(boxes[i]), static_cast<std::uint32_t>(i));
        }
    }
    // Made of all at once, the tree is packed.
    m_tree->entries = decltype(m_tree->entries)(entries);
}

void BoxTree::visit(const WorldBox& box, const std::function<bool(std::uint32_t)>& visit) const {
    if (m_tree == nullptr || !isUsable(box)) {
        return;
    }
    const auto wanted = boost::geometry::index::intersects(treeBox(box));
    const auto end = m_tree->entries.qend();
    for (auto found = m_tree->entries.qbegin(wanted); found != end; ++found) {
        if (!visit(found->second)) {
            return;
        }
    }
}

std::vector<std::uint32_t> BoxTree::meeting(const WorldBox& box) const {
    std::vector<std::uint32_t> result;
    visit(box, [&result](std::uint32_t index) {
        result.push_back(index);
        return true;
    });
    std::sort(result.begin(), result.end());
    return result;
}
