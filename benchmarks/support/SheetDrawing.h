// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/PathEntity.h"
#include "core/ProgramText.h"

/// A line, an arc or a circle in the plane. Angles in degrees; an arc runs counter-clockwise.
struct Drawn {
    enum class Kind { line, arc, circle };

    Kind kind = Kind::line;
    GCode::Point first;
    GCode::Point second;
    GCode::Point centre;
    double radius = 0;
    double startDeg = 0;
    double endDeg = 0;
};

/// That many entities, always the same ones, in the order in which they are drawn: rows of plates,
/// each with its outline of lines and arcs end to end, a slot and holes, all of different sizes.
std::vector<Drawn> sheetDrawing(std::size_t entities);

/// That many short lines anywhere in a square.
std::vector<Drawn> scatteredLines(std::size_t lines);

/// The same entities in an order that has nothing to do with where they are.
std::vector<Drawn> inRandomOrder(std::vector<Drawn> drawing);

/// What the add-in's panel makes of a selection of all of it. The objects are numbers, from 1 on.
std::vector<GCode::Entity> pathEntities(const std::vector<Drawn>& drawing);

/// The geometry of an arc or a circle as a host gives it to the panel.
GCode::ArcGeometry arcGeometry(const Drawn& drawn);

/// A DXF file of the drawing, as CAD programs write it.
std::string dxfText(const std::vector<Drawn>& drawing);
