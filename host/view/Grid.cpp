// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/Grid.h"

#include <algorithm>
#include <cmath>

#include "view/CanvasPainter.h"

GridStep gridStep(double scale, double minimumPixels) {
    const double least = minimumPixels / scale;
    const double power = std::floor(std::log10(least));
    const auto unit = [](double exponent) { return std::pow(10.0, exponent); };
    // The logarithm may be rounded to the wrong side of a power of ten.
    for (double exponent = power - 1; exponent <= power + 1; ++exponent) {
        if (unit(exponent) >= least) {
            return {unit(exponent), 10};
        }
        if (2 * unit(exponent) >= least) {
            return {2 * unit(exponent), 5};
        }
        if (5 * unit(exponent) >= least) {
            return {5 * unit(exponent), 10};
        }
    }
    return {unit(power + 2), 10};
}

namespace {

struct Range {
    double first;
    double last;
};

/// The numbers of the grid lines between two coordinates.
Range linesBetween(double low, double high, double step) {
    return {std::ceil(low / step), std::floor(high / step)};
}

}  // namespace

GridLines gridLines(const outline::DeviceMap& map, const WorldBox& part, double pixelRatio) {
    const GridStep step = gridStep(map.scale / pixelRatio);
    const double halfWidth = (part.width() + part.height()) / map.scale;
    const double x = map.center.x() + (part.center().x() - map.pixel.x()) / map.scale;
    const double y = map.center.y() - (part.center().y() - map.pixel.y()) / map.scale;
    GridLines lines;
    const Range columns = linesBetween(x - halfWidth, x + halfWidth, step.minor);
    for (double i = columns.first; i <= columns.last; ++i) {
        const double at = map.map({i * step.minor, 0}).x();
        if (i != 0 && part.minX <= at && at <= part.maxX) {
            const bool major = std::fmod(i, step.minorsPerMajor) == 0;
            (major ? lines.major : lines.minor).emplace_back(at, part.minY, at, part.maxY);
        }
    }
    const Range rows = linesBetween(y - halfWidth, y + halfWidth, step.minor);
    for (double i = rows.first; i <= rows.last; ++i) {
        const double at = map.map({0, i * step.minor}).y();
        if (i != 0 && part.minY <= at && at <= part.maxY) {
            const bool major = std::fmod(i, step.minorsPerMajor) == 0;
            (major ? lines.major : lines.minor).emplace_back(part.minX, at, part.maxX, at);
        }
    }
    return lines;
}
