// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>
#include <cstddef>
#include <optional>
#include <string_view>

#include "openglplotter/Color.h"
#include "openglplotter/GCodeParser.h"
#include "openglplotter/PathList.h"
#include "openglplotter/Point3d.h"

/// The bounding box of a path and of the origin, which always lies inside.
struct PathExtents {
    float minX = 0;
    float minY = 0;
    float minZ = 0;
    float maxX = 0;
    float maxY = 0;
    float maxZ = 0;
    float min = 0;  // the least of the three minima
    float max = 0;  // the greatest of the three maxima
};

/// Where a program was cut short: in the line that would have drawn one point too many.
struct PathStop {
    std::size_t points = 0;      // how many were kept
    std::size_t lineNumber = 0;  // from 1, blank lines counted
    std::size_t offset = 0;      // of the line's first byte or, in UTF-16, unit
};

/// What the view draws of a program.
struct PreviewPath {
    PathList<Point3d> vertices;
    PathList<Color> colors;  // one per vertex
    PathExtents extents;
    std::optional<PathStop> stop;  // set when the path is not the whole program's
};

/// Interprets a whole program in UTF-8, or in any bytes. "\r\n", "\n\r", "\r" and "\n" end a line,
/// blank lines are skipped. Reads no further when the path would exceed `maxVertices`.
PreviewPath interpretProgram(std::string_view text,
                             std::size_t maxVertices = GCodeParserN::kMaxVertices);
/// The same in UTF-16, without a copy of the text in UTF-8.
PreviewPath interpretProgram(QStringView text,
                             std::size_t maxVertices = GCodeParserN::kMaxVertices);
