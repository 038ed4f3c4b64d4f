// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QPointF>

#include "view/Flatten.h"
#include "view/PixelSnap.h"
#include "view/SceneData.h"

/// What is drawn of many objects, in device pixels.
struct ObjectLines {
    std::vector<QLineF> straight;
    std::vector<QLineF> curved;
    /// Objects smaller than a pixel, one for each pixel.
    std::vector<QPointF> dots;
    /// Texts that can be read, by their index.
    std::vector<std::uint32_t> notes;
};

struct CollectorSetup {
    outline::DeviceMap map;
    /// In device pixels.
    WorldBox clip;
    /// Device pixels per logical pixel.
    double pixelRatio = 1;
    /// Whether lines are smoothed: then the eye sees finer corners.
    bool smooth = false;
    /// How lines along an axis will be moved, so that arcs still meet them.
    std::optional<PixelSnap> snap;
};

/// Collects what is seen of objects inside of a box of pixels.
class ObjectCollector {
public:
    ObjectCollector(const outline::Outlines& outlines, const CollectorSetup& setup);

    void add(std::size_t object);
    ObjectLines take();

private:
    void addDot(const QPointF& pixel);
    void addMark(const QPointF& pixel);
    void addNote(std::uint32_t note);

    const outline::Outlines& m_outlines;
    outline::Flattener m_flattener;
    double m_pixelRatio;
    ObjectLines m_result;
    int m_columns;
    int m_rows;
    std::vector<bool> m_dotted;
};
