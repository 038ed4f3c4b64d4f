// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <utility>
#include <vector>

#include "view/BoxTree.h"
#include "view/DrawingScene.h"
#include "view/Outline.h"

/// What a scene holds, for those who draw it.
struct DrawingScene::Data {
    std::vector<kxObject_ptr> objects;
    outline::Outlines outlines;
    BoxTree tree;
    WorldBox extents;
    /// By address, to find an object's index.
    std::vector<std::pair<const kxObject*, std::size_t>> indices;
};
