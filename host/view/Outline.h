// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <QPointF>
#include <QString>

#include <kx/kxObject.h>

#include "view/WorldBox.h"

/// The exact curves of objects as plain data, in drawing units.
namespace outline {

struct Segment {
    QPointF first;
    QPointF second;
};

/// Counter-clockwise; a sweep of 2 pi is a full circle. Radians.
struct Arc {
    QPointF center;
    double radius = 0;
    double start = 0;
    double sweep = 0;

    bool isFull() const { return sweep >= 6.283185307179586; }
    QPointF at(double angle) const;
};

/// A control point (x / w, y / w) of weight w > 0.
struct WeightedPoint {
    double x = 0;
    double y = 0;
    double w = 1;

    QPointF point() const { return {x / w, y / w}; }
};

/// A rational Bezier curve: its control points in the list of all.
struct Bezier {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// A text: the corners of its box from the start of the base line, counter-clockwise.
struct Note {
    QString text;
    QPointF position;
    double height = 0;
    double rotation = 0;
    std::array<QPointF, 4> corners;
};

/// Where the pieces of an object begin in the lists of all; the next object's begin ends them.
struct Begin {
    std::uint32_t segment = 0;
    std::uint32_t arc = 0;
    std::uint32_t bezier = 0;
    std::uint32_t note = 0;
    /// A point of the drawing: a segment without length that is shown by a mark.
    bool isPoint = false;
};

/// The pieces of many objects in flat lists, which are read many times a second.
struct Outlines {
    std::vector<Segment> segments;
    std::vector<Arc> arcs;
    std::vector<Bezier> beziers;
    std::vector<WeightedPoint> bezierPoints;
    std::vector<Note> notes;
    /// One more than objects.
    std::vector<Begin> begins = {Begin()};
    /// The exact box of each object.
    std::vector<WorldBox> boxes;

    /// Appends an object. One of an unknown kind has an empty box.
    void add(kxObject* object);
    /// About how many straight lines show an object.
    std::size_t lineCount(std::size_t object) const;
};

/// The exact box of an arc.
WorldBox boxOf(const Arc& arc);
/// Whether the arc passes the angle, at any number of turns.
bool passes(const Arc& arc, double angle);

}  // namespace outline
