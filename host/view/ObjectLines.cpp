// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/ObjectLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Half the size of the mark of a point, and the least height of readable text, logical pixels.
constexpr double kMarkSize = 3;
constexpr double kReadableHeight = 4;

/// How far lines may lie from their curve, in device pixels.
constexpr double kTolerance = 0.2;
constexpr double kSmoothTolerance = 0.05;

int pixels(double length) {
    return static_cast<int>(std::clamp(std::ceil(length), 0.0, 30000.0)) + 1;
}

}  // namespace

ObjectCollector::ObjectCollector(const outline::Outlines& outlines, const CollectorSetup& setup)
    : m_outlines(outlines),
      m_flattener(setup.map, setup.clip, setup.smooth ? kSmoothTolerance : kTolerance),
      m_pixelRatio(setup.pixelRatio),
      m_columns(pixels(setup.clip.width())),
      m_rows(pixels(setup.clip.height())),
      m_dotted(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows)) {
    if (setup.snap) {
        m_flattener.setSnap(*setup.snap);
    }
}

void ObjectCollector::add(std::size_t object) {
    const WorldBox& world = m_outlines.boxes[object];
    const outline::DeviceMap& map = m_flattener.map();
    if (m_outlines.begins[object].isPoint) {
        addMark(map.map({world.minX, world.minY}));
        return;
    }
    const double size = std::max(world.maxX - world.minX, world.maxY - world.minY) * map.scale;
    if (size < 1) {
        addDot(map.map(world.center()));
        return;
    }
    m_flattener.add(m_outlines, object);
    const std::uint32_t end = m_outlines.begins[object + 1].note;
    for (std::uint32_t i = m_outlines.begins[object].note; i < end; ++i) {
        addNote(i);
    }
}

void ObjectCollector::addDot(const QPointF& pixel) {
    const WorldBox& clip = m_flattener.clip();
    const double column = std::floor(pixel.x() - clip.minX);
    const double row = std::floor(pixel.y() - clip.minY);
    if (!(column >= 0 && row >= 0 && column < m_columns && row < m_rows)) {
        return;
    }
    const std::size_t index = static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
                              static_cast<std::size_t>(column);
    if (!m_dotted[index]) {
        m_dotted[index] = true;
        m_result.dots.push_back(pixel);
    }
}

void ObjectCollector::addMark(const QPointF& pixel) {
    const double size = kMarkSize * m_pixelRatio;
    m_flattener.addLine(pixel - QPointF(size, 0), pixel + QPointF(size, 0));
    m_flattener.addLine(pixel - QPointF(0, size), pixel + QPointF(0, size));
}

void ObjectCollector::addNote(std::uint32_t note) {
    const outline::Note& shape = m_outlines.notes[note];
    if (shape.height * m_flattener.map().scale >= kReadableHeight * m_pixelRatio) {
        m_result.notes.push_back(note);
        return;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        m_flattener.add(outline::Segment{shape.corners[i], shape.corners[(i + 1) % 4]});
    }
}

ObjectLines ObjectCollector::take() {
    m_result.straight = std::move(m_flattener.straight());
    m_result.curved = std::move(m_flattener.curved());
    return std::move(m_result);
}
