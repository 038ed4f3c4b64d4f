// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostDocument.h>

namespace kxdrawing {

struct PointShape {
    kxVector3 position;
};

struct LineShape {
    kxVector3 first;
    kxVector3 second;
};

struct CircleShape {
    kxVector3 center;
    double radius = 0;
};

/// The geometry of one object, in the coordinates of its block or of the world.
using Shape = std::variant<PointShape, LineShape, CircleShape, kxCircleArcData, kxEllipseArcData,
                           kxPolyLineData, kxSplineData, kxSimpleNoteData>;

/// A reference to a block, with rows and columns of copies.
struct InsertShape {
    std::string block;
    kxVector3 position;
    kxVector3 scale{1, 1, 1};
    double rotationDeg = 0;
    int columns = 1;
    int rows = 1;
    double columnSpacing = 0;
    double rowSpacing = 0;
    /// The extrusion points down: all of the above is in a mirrored system.
    bool mirrored = false;
};

/// Why an entity gives no object.
struct LeftOut {
    std::string reason;
};

/// One entity of the file, before blocks are expanded.
struct Entity {
    std::string type;
    std::string layer;
    std::variant<LeftOut, Shape, InsertShape> content;
    /// What the entity was turned into; empty when it gives an object of its own kind.
    std::string convertedInto;
};

struct Block {
    kxVector3 base;
    std::vector<Entity> entities;
};

/// A drawing as the file has it.
struct DxfModel {
    std::vector<Entity> entities;
    /// By name in capital letters: block names have no case.
    std::map<std::string, Block> blocks;
    std::vector<kxLayer> layers;
    /// By name in capital letters: an insert on one of these hides all of its block.
    std::set<std::string> frozenLayers;
    std::optional<int> insertUnits;
    std::optional<int> measurement;
};

/// ASCII letters as capitals: how names of layers and blocks are compared.
std::string nameKey(std::string_view name);

}  // namespace kxdrawing
