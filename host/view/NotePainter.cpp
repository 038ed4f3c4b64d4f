// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/NotePainter.h"

#include <QPainterPath>

#include "view/NoteShape.h"

namespace {

/// Text is drawn by glyphs up to this height of a capital letter, above by its outlines.
constexpr double kGreatestGlyphs = 300;

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
    outline::Flattener edges(canvas->map(), canvas->part(), 0);
    const QTransform transform = textTransform(note, canvas->map());
    const QList<QPolygonF> polygons = path.toSubpathPolygons(QTransform::fromScale(64, 64));
    for (const QPolygonF& polygon : polygons) {
        for (int i = 1; i < polygon.size(); ++i) {
            edges.addLine(transform.map(polygon[i - 1] / 64), transform.map(polygon[i] / 64));
        }
    }
    canvas->drawJoined(edges.straight(), pen);
}

}  // namespace

void drawNotes(DeviceCanvas* canvas, const outline::Outlines& outlines,
               const std::vector<std::uint32_t>& notes, const QColor& color) {
    const QPen pen = devicePen(color, 1);
    canvas->painter().setFont(outline::noteFont());
    for (const std::uint32_t index : notes) {
        const outline::Note& note = outlines.notes[index];
        if (note.height * canvas->map().scale <= kGreatestGlyphs * canvas->ratio()) {
            canvas->painter().setPen(pen);
            drawGlyphs(canvas, note);
        } else {
            drawLetterEdges(canvas, note, pen);
        }
    }
}
