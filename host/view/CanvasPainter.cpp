// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/CanvasPainter.h"

#include <algorithm>
#include <cmath>

#include "view/DeviceCanvas.h"
#include "view/Grid.h"
#include "view/NotePainter.h"
#include "view/ObjectLines.h"
#include "view/SceneData.h"

namespace {

/// Up to this many lines are smoothed; more would take too long.
constexpr std::size_t kMostSmoothLines = 5000;
/// Up to this many lines of selected objects are drawn bold.
constexpr std::size_t kMostBoldLines = 30000;
/// How far beyond the part lines are drawn, so that no end of a bold one shows.
constexpr double kMargin = 4;
/// In device pixels.
constexpr double kLineWidth = 1;
constexpr double kSelectedWidth = 2;

WorldBox grown(const WorldBox& box, double by) {
    return {box.minX - by, box.minY - by, box.maxX + by, box.maxY + by};
}

QColor mixed(const QColor& a, const QColor& b, double shareOfB) {
    const auto channel = [shareOfB](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * shareOfB));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

void drawGrid(DeviceCanvas* canvas, const CanvasColors& colors) {
    const GridLines grid = gridLines(canvas->map(), canvas->part(), canvas->ratio());
    canvas->drawLines(grid.minor, devicePen(colors.minorGrid, 1));
    canvas->drawLines(grid.major, devicePen(colors.majorGrid, 1));
}

void drawAxes(DeviceCanvas* canvas, const CanvasColors& colors) {
    const WorldBox& part = canvas->part();
    const QPointF origin = canvas->map().map({0, 0});
    const double size = 4 * canvas->ratio();
    const auto draw = [&](const std::vector<QLineF>& lines, const QColor& color) {
        std::vector<QLineF> visible;
        for (const QLineF& line : lines) {
            if (const std::optional<QLineF> inside = outline::clipped(line, grown(part, kMargin))) {
                visible.push_back(*inside);
            }
        }
        canvas->drawLines(visible, devicePen(color, 1));
    };
    draw({{part.minX, origin.y(), part.maxX, origin.y()}}, colors.xAxis);
    draw({{origin.x(), part.minY, origin.x(), part.maxY}}, colors.yAxis);
    const QRectF mark(origin - QPointF(size, size), origin + QPointF(size, size));
    draw({{mark.topLeft(), mark.topRight()},
          {mark.topRight(), mark.bottomRight()},
          {mark.bottomRight(), mark.bottomLeft()},
          {mark.bottomLeft(), mark.topLeft()}},
         mixed(colors.background, colors.object, 0.6));
}

struct Look {
    QColor color;
    double width = 1;
    bool smooth = true;
};

CollectorSetup setupOf(const DeviceCanvas& canvas, double margin, double width, bool smooth) {
    CollectorSetup setup{canvas.map(), grown(canvas.part(), margin), canvas.ratio(), smooth, {}};
    if (smooth) {
        setup.snap = canvas.snap(width);
    }
    return setup;
}

void drawObjects(DeviceCanvas* canvas, const outline::Outlines& outlines,
                 const ObjectLines& objects, const Look& look) {
    if (look.smooth) {
        // A hair wider than one pixel: the rasteriser's own way for one draws curves unevenly.
        const QPen pen = devicePen(look.color, look.width + 0.001);
        canvas->drawSharp(objects.straight, pen);
        canvas->drawJoined(objects.curved, pen);
    } else {
        canvas->drawLines(objects.straight, devicePen(look.color, 1));
        canvas->drawLines(objects.curved, devicePen(look.color, 1));
    }
    if (!objects.dots.empty()) {
        canvas->painter().setRenderHint(QPainter::Antialiasing, false);
        canvas->painter().setPen(devicePen(look.color, look.width));
        canvas->painter().drawPoints(objects.dots.data(), static_cast<int>(objects.dots.size()));
    }
    drawNotes(canvas, outlines, objects.notes, look.color);
}

/// A second line beside each makes it bold at the price of a thin one.
void drawBold(DeviceCanvas* canvas, std::vector<QLineF>* lines, const QColor& color) {
    for (QLineF& line : *lines) {
        const bool steep = std::abs(line.dy()) > std::abs(line.dx());
        line.translate(steep ? 1 : 0, steep ? 0 : 1);
    }
    canvas->drawLines(*lines, devicePen(color, 1));
}

void drawSelected(DeviceCanvas* canvas, const outline::Outlines& outlines, ObjectLines* objects,
                  const Look& look) {
    drawObjects(canvas, outlines, *objects, look);
    if (!look.smooth && objects->straight.size() + objects->curved.size() < kMostBoldLines) {
        drawBold(canvas, &objects->straight, look.color);
        drawBold(canvas, &objects->curved, look.color);
    }
}

}  // namespace

CanvasPainter::CanvasPainter(const DrawingScene& scene, const ViewTransform& transform,
                             const CanvasOptions& options)
    : m_scene(scene), m_transform(transform), m_options(options) {}

bool CanvasPainter::isSmooth() const {
    // Asked of all that the window shows, not of the part: parts painted one by one must match.
    const DrawingScene::Data& data = m_scene.data();
    std::size_t lines = 0;
    data.tree.visit(m_transform.visibleBox(), [&](std::uint32_t object) {
        lines += data.outlines.lineCount(object);
        return lines <= kMostSmoothLines;
    });
    return lines <= kMostSmoothLines;
}

void CanvasPainter::paint(QPainter* painter, const QRectF& part,
                          const std::vector<bool>& selected) const {
    const CanvasColors colors = CanvasColors::of(m_options.canvas);
    const DrawingScene::Data& data = m_scene.data();
    painter->fillRect(part, colors.background);
    DeviceCanvas canvas(painter, m_transform, part);
    if (m_options.grid) {
        drawGrid(&canvas, colors);
    }
    if (m_options.axes) {
        drawAxes(&canvas, colors);
    }
    WorldBox visible;
    const QPointF margin(2 * kMargin, 2 * kMargin);
    visible.add(m_transform.toWorld(part.topLeft() - margin));
    visible.add(m_transform.toWorld(part.bottomRight() + margin));
    const bool smooth = isSmooth();
    ObjectCollector others(data.outlines, setupOf(canvas, kMargin, kLineWidth, smooth));
    ObjectCollector chosen(data.outlines, setupOf(canvas, kMargin, kSelectedWidth, smooth));
    data.tree.visit(visible, [&](std::uint32_t object) {
        const bool isSelected = object < selected.size() && selected[object];
        (isSelected ? chosen : others).add(object);
        return true;
    });
    drawObjects(&canvas, data.outlines, others.take(), {colors.object, kLineWidth, smooth});
    ObjectLines lines = chosen.take();
    drawSelected(&canvas, data.outlines, &lines, {colors.selected, kSelectedWidth, smooth});
}

void CanvasPainter::paintHovered(QPainter* painter, std::size_t object) const {
    const outline::Outlines& outlines = m_scene.data().outlines;
    if (object >= outlines.boxes.size()) {
        return;
    }
    const CanvasColors colors = CanvasColors::of(m_options.canvas);
    DeviceCanvas canvas(painter, m_transform, QRectF(QPointF(), m_transform.size()));
    const bool smooth = outlines.lineCount(object) <= kMostSmoothLines;
    ObjectCollector collector(outlines, setupOf(canvas, 2 * kMargin, kLineWidth, smooth));
    collector.add(object);
    const ObjectLines lines = collector.take();
    const Look halo{mixed(colors.background, colors.hovered, 0.45), 5 * canvas.ratio(), smooth};
    drawObjects(&canvas, outlines, lines, halo);
    drawObjects(&canvas, outlines, lines, {colors.hovered, kLineWidth, smooth});
}
