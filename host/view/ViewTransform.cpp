// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/ViewTransform.h"

#include <cmath>

namespace {

constexpr double kMinScale = 1e-18;
constexpr double kMaxScale = 1e12;
/// The middle of the screen is no more pixels than this from the origin: a quarter of a pixel is
/// then still a step that a double can take.
constexpr double kMaxPixels = 1125899906842624.0;  // 2^50
/// What the shorter side of the screen shows when there is nothing to go by, in drawing units.
constexpr double kUnitsOfNothing = 100;

double magnitude(const QPointF& point) {
    return std::max(std::abs(point.x()), std::abs(point.y()));
}

double limitedScale(double scale, double farthest) {
    if (!std::isfinite(scale)) {
        return 1;
    }
    const double most = farthest > 0 ? std::min(kMaxScale, kMaxPixels / farthest) : kMaxScale;
    return std::clamp(scale, kMinScale, std::max(kMinScale, most));
}

QPointF limitedCenter(const QPointF& center, double scale) {
    // Twice as much as the scale allows, so that the point under the cursor never gives way.
    const double most = 2 * kMaxPixels / scale;
    const auto limited = [most](double value) {
        return std::isfinite(value) ? std::clamp(value, -most, most) : 0;
    };
    return {limited(center.x()), limited(center.y())};
}

}  // namespace

QPointF ViewTransform::toScreen(const QPointF& world) const {
    return {(world.x() - m_center.x()) * m_scale + m_size.width() / 2,
            (m_center.y() - world.y()) * m_scale + m_size.height() / 2};
}

QPointF ViewTransform::toWorld(const QPointF& screen) const {
    return {m_center.x() + (screen.x() - m_size.width() / 2) / m_scale,
            m_center.y() - (screen.y() - m_size.height() / 2) / m_scale};
}

void ViewTransform::resize(const QSizeF& size) {
    m_size = QSizeF(std::max(1.0, size.width()), std::max(1.0, size.height()));
}

void ViewTransform::zoomAt(const QPointF& screen, double factor) {
    if (!(factor > 0)) {
        return;
    }
    const QPointF world = toWorld(screen);
    const double scale =
        limitedScale(m_scale * factor, std::max(magnitude(world), magnitude(m_center)));
    const QPointF offset(screen.x() - m_size.width() / 2, screen.y() - m_size.height() / 2);
    m_scale = scale;
    m_center = limitedCenter(world + QPointF(-offset.x(), offset.y()) / scale, scale);
}

void ViewTransform::panBy(const QPointF& screenDelta) {
    m_center =
        limitedCenter(m_center + QPointF(-screenDelta.x(), screenDelta.y()) / m_scale, m_scale);
}

void ViewTransform::fit(const WorldBox& box, double margin) {
    const QPointF center = box.isEmpty() ? QPointF() : box.center();
    const double width = std::max(1.0, m_size.width() - 2 * margin);
    const double height = std::max(1.0, m_size.height() - 2 * margin);
    double scale = std::min(m_size.width(), m_size.height()) / kUnitsOfNothing;
    // An extent that is no more than rounding does not count.
    const double least = magnitude(center) * 1e-14;
    if (box.width() > least || box.height() > least) {
        const double across = box.width() > 0 ? width / box.width() : kMaxScale;
        const double along = box.height() > 0 ? height / box.height() : kMaxScale;
        scale = std::min(across, along);
    }
    m_scale = limitedScale(scale, magnitude(center));
    m_center = limitedCenter(center, m_scale);
}

WorldBox ViewTransform::visibleBox() const {
    WorldBox box;
    box.add(toWorld({0, 0}));
    box.add(toWorld({m_size.width(), m_size.height()}));
    return box;
}
