// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/CanvasPainter.h"

CanvasColors CanvasColors::of(Canvas canvas) {
    CanvasColors colors;
    if (canvas == Canvas::Dark) {
        colors.background = QColor(30, 35, 42);
        colors.minorGrid = QColor(40, 46, 54);
        colors.majorGrid = QColor(54, 61, 71);
        colors.xAxis = QColor(176, 72, 72);
        colors.yAxis = QColor(72, 150, 84);
        colors.object = QColor(222, 226, 230);
        colors.selected = QColor(255, 158, 44);
        colors.hovered = QColor(94, 200, 255);
        colors.windowBox = QColor(80, 150, 255);
        colors.crossingBox = QColor(90, 200, 110);
    } else {
        colors.background = QColor(252, 252, 250);
        colors.minorGrid = QColor(238, 240, 242);
        colors.majorGrid = QColor(218, 222, 227);
        colors.xAxis = QColor(208, 84, 84);
        colors.yAxis = QColor(70, 150, 80);
        colors.object = QColor(32, 37, 43);
        colors.selected = QColor(214, 84, 0);
        colors.hovered = QColor(0, 122, 214);
        colors.windowBox = QColor(30, 100, 220);
        colors.crossingBox = QColor(30, 140, 60);
    }
    return colors;
}
