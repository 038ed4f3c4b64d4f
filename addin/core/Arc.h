// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "core/Entity.h"
#include "core/Point.h"

namespace GCode {

/// The sense of an arc: clockwise is written as "G02", counter-clockwise as "G03".
enum Direction : std::int32_t { CW = 1, CCW = 2 };

/// How an arc's shape is given: by centre offsets or, declared only, by a radius word.
enum Arcform : std::int32_t { ijkForm = 1, radiusForm = 2 };

/// An arc of the drawing, in drawing units. Its sense travels apart from it, as a `Direction`.
class Arc : public ::Entity {
public:
    Arc(const Point& start, const Point& end, const Point& center, double radius)
        : m_startPoint(start), m_endPoint(end), m_centerPoint(center), m_radius(radius) {}

    const Point& GetStartPoint() const { return m_startPoint; }
    const Point& GetEndPoint() const { return m_endPoint; }
    const Point& GetCenterPoint() const { return m_centerPoint; }
    double GetRadius() const { return m_radius; }

private:
    Point m_startPoint;
    Point m_endPoint;
    Point m_centerPoint;
    double m_radius;
};

}  // namespace GCode
