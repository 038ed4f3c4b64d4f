// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/CanvasPainter.h"

#include <algorithm>
#include <cmath>

#include <QPainterPath>

#include "view/Grid.h"
#include "view/NoteShape.h"
#include "view/ObjectLines.h"
#include "view/SceneData.h"

namespace {

/// Up to this many lines are smoothed; more would take too long.
constexpr std::size_t kMostSmoothLines = 5000;
/// Up to this many lines of selected objects are drawn bold.
constexpr std::size_t kMostBoldLines = 30000;
/// Text is drawn by glyphs up to this height of a capital letter, above by its outlines.
constexpr double kGreatestGlyphs = 300;
/// How far beyond the part lines are drawn, so that no end of a bold one shows.
constexpr double kMargin = 4;

WorldBox grown(const WorldBox& box, double by) {
    return {box.minX - by, box.minY - by, box.maxX + by, box.maxY + by};
}

QPen penOf(const QColor& color, double width) {
    QPen pen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    pen.setCosmetic(true);
    return pen;
}

QColor mixed(const QColor& a, const QColor& b, double shareOfB) {
    const auto channel = [shareOfB](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * shareOfB));
    };
    return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

/// Draws in device pixels on a painter that is set up for logical ones.
class DeviceCanvas {
public:
    DeviceCanvas(QPainter* painter, const ViewTransform& transform) : m_painter(*painter) {
        m_painter.save();
        m_ratio = m_painter.deviceTransform().m11();
        m_ratio = m_ratio > 0 ? m_ratio : 1;
        m_map.scale = transform.scale() * m_ratio;
        m_map.pixel = QPointF(transform.size().width(), transform.size().height()) / 2 * m_ratio;
        m_map.center =
            transform.toWorld({transform.size().width() / 2, transform.size().height() / 2});
    }
    DeviceCanvas(const DeviceCanvas&) = delete;
    DeviceCanvas& operator=(const DeviceCanvas&) = delete;
    ~DeviceCanvas() { m_painter.restore(); }

    /// Limits drawing to a part in logical pixels; from now on pixels are the device's.
    void begin(const QRectF& part) {
        m_painter.setClipRect(part, Qt::IntersectClip);
        m_painter.scale(1 / m_ratio, 1 / m_ratio);
        m_part = {part.left() * m_ratio, part.top() * m_ratio, part.right() * m_ratio,
                  part.bottom() * m_ratio};
        const QTransform device = m_painter.deviceTransform();
        m_shift = {device.dx(), device.dy()};
    }

    const outline::DeviceMap& map() const { return m_map; }
    const WorldBox& part() const { return m_part; }
    double ratio() const { return m_ratio; }
    QPainter& painter() { return m_painter; }

    /// Moves lines along an axis into the middle of their pixels, so that smoothing keeps them
    /// sharp.
    void snap(std::vector<QLineF>* lines) const {
        for (QLineF& line : *lines) {
            if (std::abs(line.dy()) < 0.01) {
                const double y = middle(line.y1(), m_shift.y());
                line.setLine(line.x1(), y, line.x2(), y);
            } else if (std::abs(line.dx()) < 0.01) {
                const double x = middle(line.x1(), m_shift.x());
                line.setLine(x, line.y1(), x, line.y2());
            }
        }
    }

    void drawLines(const std::vector<QLineF>& lines, const QPen& pen) {
        m_painter.setPen(pen);
        m_painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }

private:
    static double middle(double at, double shift) { return std::floor(at + shift) + 0.5 - shift; }

    QPainter& m_painter;
    double m_ratio = 1;
    outline::DeviceMap m_map;
    WorldBox m_part;
    QPointF m_shift;
};

void drawGrid(DeviceCanvas* canvas, const CanvasColors& colors) {
    GridLines grid = gridLines(canvas->map(), canvas->part(), canvas->ratio());
    canvas->painter().setRenderHint(QPainter::Antialiasing, false);
    canvas->snap(&grid.minor);
    canvas->drawLines(grid.minor, penOf(colors.minorGrid, 1));
    canvas->snap(&grid.major);
    canvas->drawLines(grid.major, penOf(colors.majorGrid, 1));
}

void drawAxes(DeviceCanvas* canvas, const CanvasColors& colors) {
    const WorldBox& part = canvas->part();
    const QPointF origin = canvas->map().map({0, 0});
    outline::Flattener xAxis(canvas->map(), part);
    outline::Flattener yAxis(canvas->map(), part);
    outline::Flattener mark(canvas->map(), part);
    xAxis.addLine({part.minX, origin.y()}, {part.maxX, origin.y()});
    yAxis.addLine({origin.x(), part.minY}, {origin.x(), part.maxY});
    canvas->painter().setRenderHint(QPainter::Antialiasing, false);
    canvas->snap(&xAxis.lines());
    canvas->drawLines(xAxis.lines(), penOf(colors.xAxis, 1));
    canvas->snap(&yAxis.lines());
    canvas->drawLines(yAxis.lines(), penOf(colors.yAxis, 1));
    const double size = 4 * canvas->ratio();
    for (const double side : {-size, size}) {
        mark.addLine(origin + QPointF(side, -size), origin + QPointF(side, size));
        mark.addLine(origin + QPointF(-size, side), origin + QPointF(size, side));
    }
    canvas->snap(&mark.lines());
    canvas->drawLines(mark.lines(), penOf(mixed(colors.background, colors.object, 0.6), 1));
}

/// What brings pixels of the font to pixels of the device.
QTransform textTransform(const outline::Note& note, const outline::DeviceMap& map) {
    const QPointF origin = map.map(note.position);
    const double scale = note.height * map.scale / outline::noteCapHeight();
    QTransform transform;
    transform.translate(origin.x(), origin.y());
    transform.rotateRadians(-note.rotation);
    transform.scale(scale, scale);
    return transform;
}

void drawGlyphs(DeviceCanvas* canvas, const outline::Note& note) {
    QPainter& painter = canvas->painter();
    painter.save();
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.setTransform(textTransform(note, canvas->map()), true);
    double y = 0;
    for (const QString& line : note.text.split(QLatin1Char('\n'))) {
        painter.drawText(QPointF(0, y), line);
        y += outline::kNoteLineDistance * outline::noteCapHeight();
    }
    painter.restore();
}

/// Letters larger than the screen: only their visible edges reach the rasteriser.
void drawLetterEdges(DeviceCanvas* canvas, const outline::Note& note, const QPen& pen) {
    QPainterPath path;
    double y = 0;
    for (const QString& line : note.text.split(QLatin1Char('\n'))) {
        path.addText(QPointF(0, y), outline::noteFont(), line);
        y += outline::kNoteLineDistance * outline::noteCapHeight();
    }
    outline::Flattener edges(canvas->map(), grown(canvas->part(), kMargin));
    const QTransform transform = textTransform(note, canvas->map());
    const QList<QPolygonF> polygons = path.toSubpathPolygons(QTransform::fromScale(64, 64));
    for (const QPolygonF& polygon : polygons) {
        for (int i = 1; i < polygon.size(); ++i) {
            edges.addLine(transform.map(polygon[i - 1] / 64), transform.map(polygon[i] / 64));
        }
    }
    canvas->drawLines(edges.lines(), pen);
}

void drawNotes(DeviceCanvas* canvas, const outline::Outlines& outlines,
               const std::vector<std::uint32_t>& notes, const QPen& pen) {
    canvas->painter().setPen(pen);
    canvas->painter().setFont(outline::noteFont());
    for (const std::uint32_t index : notes) {
        const outline::Note& note = outlines.notes[index];
        if (note.height * canvas->map().scale <= kGreatestGlyphs * canvas->ratio()) {
            drawGlyphs(canvas, note);
        } else {
            drawLetterEdges(canvas, note, pen);
        }
    }
}

void drawObjects(DeviceCanvas* canvas, const outline::Outlines& outlines, ObjectLines* objects,
                 const QColor& color) {
    const bool smooth = objects->lines.size() < kMostSmoothLines;
    const QPen pen = penOf(color, 1);
    QPainter& painter = canvas->painter();
    if (!objects->dots.empty()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(pen);
        painter.drawPoints(objects->dots.data(), static_cast<int>(objects->dots.size()));
    }
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    canvas->snap(&objects->lines);
    canvas->drawLines(objects->lines, pen);
    drawNotes(canvas, outlines, objects->notes, pen);
}

/// A second line beside each makes it bold at the price of a thin one.
void drawBold(DeviceCanvas* canvas, std::vector<QLineF>* lines) {
    for (QLineF& line : *lines) {
        const bool steep = std::abs(line.dy()) > std::abs(line.dx());
        line.translate(steep ? 1 : 0, steep ? 0 : 1);
    }
    canvas->drawLines(*lines, canvas->painter().pen());
}

}  // namespace

CanvasPainter::CanvasPainter(const DrawingScene& scene, const ViewTransform& transform,
                             const CanvasOptions& options)
    : m_scene(scene), m_transform(transform), m_options(options) {}

void CanvasPainter::paint(QPainter* painter, const QRectF& part,
                          const std::vector<bool>& selected) const {
    const CanvasColors colors = CanvasColors::of(m_options.canvas);
    const outline::Outlines& outlines = m_scene.data().outlines;
    DeviceCanvas canvas(painter, m_transform);
    painter->fillRect(part, colors.background);
    canvas.begin(part);
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
    const WorldBox clip = grown(canvas.part(), kMargin);
    ObjectCollector others(outlines, canvas.map(), clip, canvas.ratio());
    ObjectCollector chosen(outlines, canvas.map(), clip, canvas.ratio());
    for (const std::uint32_t object : m_scene.data().tree.meeting(visible)) {
        const bool isSelected = object < selected.size() && selected[object];
        (isSelected ? chosen : others).add(object);
    }
    ObjectLines lines = others.take();
    drawObjects(&canvas, outlines, &lines, colors.object);
    lines = chosen.take();
    drawObjects(&canvas, outlines, &lines, colors.selected);
    if (lines.lines.size() < kMostBoldLines) {
        drawBold(&canvas, &lines.lines);
    }
}

void CanvasPainter::paintHovered(QPainter* painter, std::size_t object) const {
    const outline::Outlines& outlines = m_scene.data().outlines;
    if (object >= outlines.boxes.size()) {
        return;
    }
    const CanvasColors colors = CanvasColors::of(m_options.canvas);
    DeviceCanvas canvas(painter, m_transform);
    canvas.begin(QRectF(QPointF(), m_transform.size()));
    ObjectCollector collector(outlines, canvas.map(), grown(canvas.part(), 2 * kMargin),
                              canvas.ratio());
    collector.add(object);
    ObjectLines lines = collector.take();
    if (lines.lines.size() < kMostSmoothLines) {
        painter->setRenderHint(QPainter::Antialiasing, true);
        const QPen halo = penOf(mixed(colors.background, colors.hovered, 0.4), 5 * canvas.ratio());
        canvas.snap(&lines.lines);
        canvas.drawLines(lines.lines, halo);
        painter->drawPoints(lines.dots.data(), static_cast<int>(lines.dots.size()));
    }
    drawObjects(&canvas, outlines, &lines, colors.hovered);
}
