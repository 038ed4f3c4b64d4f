// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/DistanceFilter.h"

#include <algorithm>
#include <cmath>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace GCode {

namespace {

/// Beyond this the squares of single precision overflow.
constexpr double kWildest = 1e17;
constexpr float kNowhere = std::numeric_limits<float>::quiet_NaN();

bool isUsual(double coordinate) {
    return std::fabs(coordinate) <= kWildest;
}

bool hasFirst(const Entity& entity) {
    switch (entity.type) {
        case kxLineType:
        case kxCircleType:
        case kxCircleArcType:
        case kxPointType:
            return true;
        default:
            return false;
    }
}

bool hasSecond(const Entity& entity) {
    return entity.type == kxLineType;
}

/// How far a coordinate lies outside of an interval. What is no number counts as inside: then
/// nothing is ruled out.
double outside(double value, double low, double high) {
    const double below = low - value;
    const double above = value - high;
    return below > 0 ? below : (above > 0 ? above : 0);
}

#ifdef __SSE2__
/// Which of four points lie inside of a circle; its edge belongs to it.
class Circle {
public:
    static constexpr std::size_t kWidth = 4;

    Circle(float x, float y, float squaredRadius)
        : m_x(_mm_set1_ps(x)), m_y(_mm_set1_ps(y)), m_squaredRadius(_mm_set1_ps(squaredRadius)) {}

    std::uint64_t inside(const float* x, const float* y) const {
        const __m128 dx = _mm_sub_ps(_mm_loadu_ps(x), m_x);
        const __m128 dy = _mm_sub_ps(_mm_loadu_ps(y), m_y);
        const __m128 square = _mm_add_ps(_mm_mul_ps(dx, dx), _mm_mul_ps(dy, dy));
        return static_cast<std::uint64_t>(_mm_movemask_ps(_mm_cmple_ps(square, m_squaredRadius)));
    }

private:
    __m128 m_x;
    __m128 m_y;
    __m128 m_squaredRadius;
};
#else
/// Whether a point lies inside of a circle; its edge belongs to it.
class Circle {
public:
    static constexpr std::size_t kWidth = 1;

    Circle(float x, float y, float squaredRadius)
        : m_x(x), m_y(y), m_squaredRadius(squaredRadius) {}

    std::uint64_t inside(const float* x, const float* y) const {
        const float dx = *x - m_x;
        const float dy = *y - m_y;
        return dx * dx + dy * dy <= m_squaredRadius ? 1U : 0U;
    }

private:
    float m_x;
    float m_y;
    float m_squaredRadius;
};
#endif

}  // namespace

bool DistanceFilter::isTame() const {
    return std::none_of(m_groups.begin(), m_groups.end(),
                        [](const Part& group) { return group.isWild; });
}

bool DistanceFilter::isTame(const Point& point) {
    return isUsual(point.m_x) && isUsual(point.m_y) && isUsual(point.m_z);
}

void DistanceFilter::Part::add(const Point& point) {
    // What is no number is nowhere, and compares so.
    minX = point.m_x < minX ? point.m_x : minX;
    maxX = point.m_x > maxX ? point.m_x : maxX;
    minY = point.m_y < minY ? point.m_y : minY;
    maxY = point.m_y > maxY ? point.m_y : maxY;
}

void DistanceFilter::Part::add(const Part& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
    rows += other.rows;
    isWild = isWild || other.isWild;
}

void DistanceFilter::load(const std::vector<Entity>& rows) {
    surround(rows);
    findMiddle();
    narrow(rows);
}

void DistanceFilter::surround(const std::vector<Entity>& rows) {
    m_blocks.assign((rows.size() + kBlock - 1) / kBlock, {});
    m_groups.assign((m_blocks.size() + kGroup - 1) / kGroup, {});
    for (std::size_t row = 0; row < rows.size(); ++row) {
        Part& block = m_blocks[row / kBlock];
        const Entity& entity = rows[row];
        ++block.rows;
        block.isWild = block.isWild || !isTame(entity.firstPoint);
        if (hasFirst(entity)) {
            block.add(entity.firstPoint);
        }
        if (hasSecond(entity)) {
            block.add(entity.secondPoint);
            block.isWild = block.isWild || !isTame(entity.secondPoint);
        }
    }
    for (std::size_t block = 0; block < m_blocks.size(); ++block) {
        m_groups[block / kGroup].add(m_blocks[block]);
    }
}

void DistanceFilter::findMiddle() {
    Part tame;
    for (const Part& block : m_blocks) {
        if (!block.isWild) {
            tame.add(block);
        }
    }
    const bool isEmpty = !(tame.minX <= tame.maxX && tame.minY <= tame.maxY);
    m_middleX = isEmpty ? 0 : (tame.minX + tame.maxX) / 2;
    m_middleY = isEmpty ? 0 : (tame.minY + tame.maxY) / 2;
    m_extent = isEmpty ? 0 : std::max(tame.maxX - tame.minX, tame.maxY - tame.minY);
}

void DistanceFilter::narrow(const std::vector<Entity>& rows) {
    Points nowhere;
    for (auto* axis : {&nowhere.firstX, &nowhere.firstY, &nowhere.secondX, &nowhere.secondY}) {
        axis->fill(kNowhere);
    }
    m_points.assign(m_blocks.size(), nowhere);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (m_blocks[row / kBlock].isWild) {
            continue;  // Never looked at: its middle may not fit, and its conversion not be
                       // defined.
        }
        Points& points = m_points[row / kBlock];
        const Entity& entity = rows[row];
        if (hasFirst(entity)) {
            points.firstX[row % kBlock] = static_cast<float>(entity.firstPoint.m_x - m_middleX);
            points.firstY[row % kBlock] = static_cast<float>(entity.firstPoint.m_y - m_middleY);
        }
        if (hasSecond(entity)) {
            points.secondX[row % kBlock] = static_cast<float>(entity.secondPoint.m_x - m_middleX);
            points.secondY[row % kBlock] = static_cast<float>(entity.secondPoint.m_y - m_middleY);
        }
    }
}

void DistanceFilter::remove(std::size_t row) {
    const std::size_t block = row / kBlock;
    m_points[block].firstX[row % kBlock] = kNowhere;
    m_points[block].secondX[row % kBlock] = kNowhere;
    --m_blocks[block].rows;
    --m_groups[block / kGroup].rows;
}

void DistanceFilter::measureFrom(const Point& from) {
    m_from = from;
    m_isFromWild = !isTame(from);
    if (m_isFromWild) {
        return;
    }
    m_fromX = static_cast<float>(from.m_x - m_middleX);
    m_fromY = static_cast<float>(from.m_y - m_middleY);
    const double extent =
        std::max({m_extent, std::fabs(from.m_x - m_middleX), std::fabs(from.m_y - m_middleY)});
    // Each of two coordinates and their difference are rounded by at most 2^-24 of their sizes, the
    // extent and twice the extent: half of what is allowed for here.
    m_error = extent * std::ldexp(1.0, -21);
}

DistanceFilter::Limits DistanceFilter::limitsOf(double bar) const {
    // Widened by more than the rounding of roots and squares can amount to, so that no tie is lost.
    const double reach = bar + 2 * m_error;
    const double squaredReach = reach * reach * (1 + 1e-6) + 1e-37;
    const double greatest = std::numeric_limits<float>::max();
    return {bar * bar * (1 + 1e-12) + 1e-300,
            static_cast<float>(squaredReach > greatest ? greatest : squaredReach)};
}

DistanceFilter::Found DistanceFilter::next(std::size_t block, double bar) const {
    if (std::isnan(bar)) {
        return {m_blocks.size(), 0};
    }
    const Limits limits = limitsOf(bar);
    while (block < m_blocks.size()) {
        if (block % kGroup == 0 && isOutside(m_groups[block / kGroup], limits)) {
            block += kGroup;
            continue;
        }
        if (!isOutside(m_blocks[block], limits)) {
            const std::uint64_t rows = nearRows(block, limits);
            if (rows != 0) {
                return {block, rows};
            }
        }
        ++block;
    }
    return {m_blocks.size(), 0};
}

bool DistanceFilter::isOutside(const Part& part, const Limits& limits) const {
    if (part.rows == 0) {
        return true;
    }
    const double dx = outside(m_from.m_x, part.minX, part.maxX);
    const double dy = outside(m_from.m_y, part.minY, part.maxY);
    return dx * dx + dy * dy > limits.squaredBar;
}

std::uint64_t DistanceFilter::nearRows(std::size_t block, const Limits& limits) const {
    if (m_isFromWild || m_blocks[block].isWild) {
        return ~std::uint64_t{0};
    }
    const Points& points = m_points[block];
    const Circle circle(m_fromX, m_fromY, limits.squaredReach);
    std::uint64_t near = 0;
    for (std::size_t i = 0; i < kBlock; i += Circle::kWidth) {
        const std::uint64_t rows =
            circle.inside(points.firstX.data() + i, points.firstY.data() + i) |
            circle.inside(points.secondX.data() + i, points.secondY.data() + i);
        near |= rows << i;
    }
    return near;
}

}  // namespace GCode
