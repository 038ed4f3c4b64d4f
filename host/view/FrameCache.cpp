// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/FrameCache.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

#include <QRect>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

namespace {

int tileIndex(double device) {
    // Far beyond all tiles, and an int.
    constexpr double kMost = 1e8;
    return static_cast<int>(std::floor(std::clamp(device / FrameCache::kTileSize, -kMost, kMost)));
}

QRectF scaled(const QRectF& rect, double factor) {
    return {rect.topLeft() * factor, rect.size() * factor};
}

/// Calls `work` for each index below `count`, in this thread and others that are free; returns when
/// all are done.
void forEachInThreads(std::size_t count, const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    const auto workOff = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
        }
    };
    // Outlives this call by as much as the last helper needs to let go of it.
    const auto done = std::make_shared<QSemaphore>();
    const int most = std::min(static_cast<int>(count), QThread::idealThreadCount());
    int helpers = 0;
    while (helpers + 1 < most && QThreadPool::globalInstance()->tryStart([&workOff, done] {
        workOff();
        done->release();
    })) {
        ++helpers;
    }
    workOff();
    done->acquire(helpers);
}

}  // namespace

void FrameCache::start(const ViewTransform& transform, double devicePixelRatio) {
    m_base = transform;
    m_ratio = devicePixelRatio;
    m_size = transform.size();
    m_wantedShift = {};
    m_tiles.clear();
}

void FrameCache::panBy(const QPointF& delta) {
    m_wantedShift += delta;
    // Numbers of tiles are ints; nobody pans that far without a zoom, but a test may.
    constexpr double kFar = 1e6;
    if (std::max(std::abs(m_wantedShift.x()), std::abs(m_wantedShift.y())) > kFar) {
        ViewTransform there = m_base;
        there.panBy(m_wantedShift);
        there.resize(m_size);
        there.panBy(QPointF(m_base.size().width() - m_size.width(),
                            m_base.size().height() - m_size.height()) /
                    2);
        start(there, m_ratio);
    }
}

void FrameCache::resize(const QSizeF& size) {
    const QSizeF growth = (size - m_size) / 2;
    m_wantedShift += {growth.width(), growth.height()};
    m_size = size;
}

QPoint FrameCache::deviceShift() const {
    return (m_wantedShift * m_ratio).toPoint();
}

QPointF FrameCache::shift() const {
    return QPointF(deviceShift()) / m_ratio;
}

ViewTransform FrameCache::transform() const {
    ViewTransform result = m_base;
    const QSizeF growth = (m_size - m_base.size()) / 2;
    result.resize(m_size);
    result.panBy(shift() - QPointF(growth.width(), growth.height()));
    return result;
}

QRect FrameCache::tilesOf(const QRectF& devicePart) const {
    const QPoint first(tileIndex(devicePart.left()), tileIndex(devicePart.top()));
    const QPoint last(tileIndex(std::ceil(devicePart.right()) - 1),
                      tileIndex(std::ceil(devicePart.bottom()) - 1));
    return {first, last};
}

void FrameCache::invalidate(const QRectF& part) {
    const QRect touched = tilesOf(scaled(part, m_ratio));
    for (auto tile = m_tiles.begin(); tile != m_tiles.end();) {
        const bool isTouched = touched.contains(tile.key().first, tile.key().second);
        tile = isTouched ? m_tiles.erase(tile) : std::next(tile);
    }
}

int FrameCache::draw(QPainter* painter, const QRectF& target, const PaintPart& paint) {
    const QPoint shift = deviceShift();
    const QRect tiles = tilesOf(scaled(target, m_ratio).translated(-shift));
    const int painted = paintMissing(tiles, paint);
    painter->save();
    painter->scale(1 / m_ratio, 1 / m_ratio);
    for (int y = tiles.top(); y <= tiles.bottom(); ++y) {
        for (int x = tiles.left(); x <= tiles.right(); ++x) {
            painter->drawImage(QPoint(x, y) * kTileSize + shift, m_tiles.value({x, y}));
        }
    }
    painter->restore();
    forgetFarTiles();
    return painted;
}

int FrameCache::paintMissing(const QRect& tiles, const PaintPart& paint) {
    std::vector<TileKey> missing;
    for (int y = tiles.top(); y <= tiles.bottom(); ++y) {
        for (int x = tiles.left(); x <= tiles.right(); ++x) {
            if (!m_tiles.contains({x, y})) {
                missing.emplace_back(x, y);
            }
        }
    }
    std::vector<QImage> images(missing.size());
    forEachInThreads(missing.size(),
                     [&](std::size_t i) { images[i] = paintTile(missing[i], paint); });
    for (std::size_t i = 0; i < missing.size(); ++i) {
        m_tiles.insert(missing[i], images[i]);
    }
    return static_cast<int>(missing.size());
}

QImage FrameCache::paintTile(const TileKey& key, const PaintPart& paint) const {
    QImage image(kTileSize, kTileSize, QImage::Format_RGB32);
    const QRectF devicePart(key.first * kTileSize, key.second * kTileSize, kTileSize, kTileSize);
    const QRectF part = scaled(devicePart, 1 / m_ratio);
    image.setDevicePixelRatio(m_ratio);
    {
        QPainter painter(&image);
        painter.translate(-part.topLeft());
        paint(&painter, part);
    }
    // Drawn by device pixels.
    image.setDevicePixelRatio(1);
    return image;
}

void FrameCache::forgetFarTiles() {
    // Those around the view serve the way back.
    const QRectF shown(-shift(), m_size);
    const QRectF near = shown.adjusted(-m_size.width() / 2, -m_size.height() / 2,
                                       m_size.width() / 2, m_size.height() / 2);
    const QRect kept = tilesOf(scaled(near, m_ratio));
    for (auto tile = m_tiles.begin(); tile != m_tiles.end();) {
        const bool isNear = kept.contains(tile.key().first, tile.key().second);
        tile = isNear ? std::next(tile) : m_tiles.erase(tile);
    }
}
