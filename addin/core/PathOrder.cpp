// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PathOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "core/DistanceFilter.h"

namespace GCode {

namespace {

/// The entities still to be visited, in list order.
class RemainingList {
public:
    explicit RemainingList(std::vector<Entity> selection);

    bool empty() const { return m_live == 0; }

    /// One pass over the list: the entity nearest to `from`, removed.
    Entity takeNearest(const Point& from);

private:
    struct Pass {
        Point from;
        double bar;
        std::size_t candidate;
    };

    void load();
    void walk(const DistanceFilter::Found& near, Pass* pass);
    void offer(std::size_t row, Pass* pass);
    void offerLine(std::size_t row, Pass* pass);
    void remove(std::size_t row);
    void closeGaps();

    std::vector<Entity> m_entities;
    std::vector<char> m_removed;
    DistanceFilter m_filter;
    std::size_t m_head = 0;
    std::size_t m_live = 0;
};

RemainingList::RemainingList(std::vector<Entity> selection) : m_entities(std::move(selection)) {
    load();
}

void RemainingList::load() {
    m_live = m_entities.size();
    m_head = 0;
    m_removed.assign(m_live, 0);
    m_filter.load(m_entities);
}

Entity RemainingList::takeNearest(const Point& from) {
    // Only the first point of the head sets the bar, in the first pass too: the head is the first
    // to be offered, and a line brings the bar down to its nearer end by itself.
    Pass pass{from, distance(from, m_entities[m_head].firstPoint), m_head};
    // What lies beyond the bar can't become the candidate, and is left alone by the walk.
    m_filter.measureFrom(from);
    DistanceFilter::Found near = m_filter.next(m_head / DistanceFilter::kBlock, pass.bar);
    while (near.block < m_filter.blockCount()) {
        walk(near, &pass);
        near = m_filter.next(near.block + 1, pass.bar);
    }
    Entity taken = m_entities[pass.candidate];
    remove(pass.candidate);
    return taken;
}

void RemainingList::walk(const DistanceFilter::Found& near, Pass* pass) {
    const std::size_t begin = near.block * DistanceFilter::kBlock;
    const std::size_t end = std::min(begin + DistanceFilter::kBlock, m_entities.size());
    std::size_t row = begin;
    for (std::uint64_t rows = near.rows; rows != 0 && row < end; rows >>= 1U, ++row) {
        if ((rows & 1U) != 0 && m_removed[row] == 0) {
            offer(row, pass);
        }
    }
}

void RemainingList::offer(std::size_t row, Pass* pass) {
    switch (m_entities[row].type) {
        case kxLineType:
            offerLine(row, pass);
            break;
        case kxCircleType:
        case kxCircleArcType:
        case kxPointType: {
            const double reach = distance(pass->from, m_entities[row].firstPoint);
            if (pass->bar > reach) {
                pass->bar = reach;
                pass->candidate = row;
            }
            break;
        }
        default:
            break;
    }
}

void RemainingList::offerLine(std::size_t row, Pass* pass) {
    Entity& line = m_entities[row];
    const double toFirst = distance(pass->from, line.firstPoint);
    const double toSecond = distance(pass->from, line.secondPoint);
    const bool flip = !(toSecond > toFirst);
    const double shorter = flip ? toSecond : toFirst;
    if (!(pass->bar >= shorter)) {
        return;
    }
    pass->bar = shorter;
    pass->candidate = row;
    if (flip) {
        // A line that loses later in the pass stays swapped.
        std::swap(line.firstPoint, line.secondPoint);
    }
}

void RemainingList::remove(std::size_t row) {
    m_removed[row] = 1;
    m_filter.remove(row);
    --m_live;
    while (m_head < m_entities.size() && m_removed[m_head] != 0) {
        ++m_head;
    }
    // A pass costs what it walks over, gaps included; closing them costs a pass as well.
    if ((m_entities.size() - m_live) * 8 > m_entities.size()) {
        closeGaps();
    }
}

void RemainingList::closeGaps() {
    std::size_t kept = 0;
    for (std::size_t row = m_head; row < m_entities.size(); ++row) {
        if (m_removed[row] == 0) {
            m_entities[kept++] = m_entities[row];
        }
    }
    m_entities.resize(kept);
    load();
}

}  // namespace

double distance(const Point& a, const Point& b) {
    const double dx = b.m_x - a.m_x;
    const double dy = b.m_y - a.m_y;
    const double dz = b.m_z - a.m_z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

std::vector<Entity> sortEntities(std::vector<Entity> selection, const Point& start) {
    std::vector<Entity> path;
    path.reserve(selection.size());
    RemainingList remaining(std::move(selection));
    Point from = start;
    while (!remaining.empty()) {
        path.push_back(remaining.takeNearest(from));
        const Entity& taken = path.back();
        from = taken.type == kxLineType ? taken.secondPoint : taken.firstPoint;
    }
    return path;
}

}  // namespace GCode
