// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/NoteShape.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QRectF>
#include <QStringList>

namespace outline {

namespace {

constexpr int kPixelSize = 64;

const QFontMetricsF& metrics() {
    static const QFontMetricsF known(noteFont());
    return known;
}

}  // namespace

QFont noteFont() {
    QFont font(QStringLiteral("sans-serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(kPixelSize);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double noteCapHeight() {
    static const double height = std::max(1.0, metrics().capHeight());
    return height;
}

QTransform noteTransform(const Note& note) {
    const double scale = note.height / noteCapHeight();
    QTransform transform;
    transform.translate(note.position.x(), note.position.y());
    transform.rotateRadians(note.rotation);
    transform.scale(scale, -scale);
    return transform;
}

std::array<QPointF, 4> noteCorners(const Note& note) {
    double width = 0;
    const QStringList lines = note.text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        width = std::max(width, metrics().horizontalAdvance(line));
    }
    const double below = (lines.size() - 1) * kNoteLineDistance * noteCapHeight();
    const QTransform transform = noteTransform(note);
    const double top = -noteCapHeight();
    return {transform.map(QPointF(0, below)), transform.map(QPointF(width, below)),
            transform.map(QPointF(width, top)), transform.map(QPointF(0, top))};
}

}  // namespace outline
