// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/TypedPoints.h"

#include <cmath>

#include <QLocale>

namespace {

std::optional<QPointF> pointOf(const QString& word) {
    const QStringList numbers = word.split(',');
    bool isX = false;
    bool isY = false;
    const double x = QLocale::c().toDouble(numbers.value(0), &isX);
    const double y = QLocale::c().toDouble(numbers.value(1), &isY);
    if (numbers.size() != 2 || !isX || !isY || !std::isfinite(x) || !std::isfinite(y)) {
        return std::nullopt;
    }
    return QPointF(x, y);
}

}  // namespace

std::optional<std::pair<QPointF, QPointF>> typedPoints(const QStringList& words) {
    const std::optional<QPointF> first = pointOf(words.value(0));
    const std::optional<QPointF> second = pointOf(words.value(1));
    if (words.size() != 2 || !first || !second) {
        return std::nullopt;
    }
    return std::make_pair(*first, *second);
}
