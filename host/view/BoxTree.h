// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "view/WorldBox.h"

/// Finds those of many boxes that meet a box.
class BoxTree {
public:
    BoxTree();
    /// Empty boxes and such with values that are no numbers are never found.
    explicit BoxTree(const std::vector<WorldBox>& boxes);
    BoxTree(BoxTree&&) noexcept;
    BoxTree& operator=(BoxTree&&) noexcept;
    ~BoxTree();

    /// Calls `visit(index)` for those that meet the box, edges included, in any order, until it
    /// returns false.
    void visit(const WorldBox& box, const std::function<bool(std::uint32_t)>& visit) const;
    /// The indices of those that meet the box, edges included, in rising order.
    std::vector<std::uint32_t> meeting(const WorldBox& box) const;

private:
    struct Tree;
    std::unique_ptr<Tree> m_tree;
};
