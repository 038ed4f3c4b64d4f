// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PathOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

#include "core/DistanceFilter.h"
#include "core/SwapHistory.h"

namespace GCode {

namespace {

/// The entities still to be visited, in list order.
class RemainingList {
public:
    explicit RemainingList(std::vector<Entity> selection);

    bool empty() const { return m_live == 0; }
    bool isTame() const { return m_filter.isTame(); }
    /// The first entity's row in the list as it was given.
    std::size_t head() const { return m_rows[m_head]; }

    struct Taken {
        Entity entity;
        /// In the list as it was given.
        std::size_t row = 0;
    };
    /// One pass over the list: the entity nearest to `from`, removed. Lines that were nearer than
    /// all before them are turned.
    Taken takeNearest(const Point& from);
    /// The same entity, found faster because no line is turned.
    Taken takeNearestAsItIs(const Point& from);

private:
    struct Pass {
        Point from;
        double bar;
        std::size_t candidate;
        bool turnsLines;
    };

    void load();
    double barNearby(const Point& from) const;
    double reach(const Point& from, std::size_t row) const;
    Taken walkAndTake(Pass pass);
    void walk(const DistanceFilter::Found& near, Pass* pass);
    void offer(std::size_t row, Pass* pass);
    void offerLine(std::size_t row, Pass* pass);
    void remove(std::size_t row);
    void closeGaps();

    std::vector<Entity> m_entities;
    std::vector<std::size_t> m_rows;
    std::vector<char> m_removed;
    DistanceFilter m_filter;
    std::size_t m_head = 0;
    std::size_t m_live = 0;
    /// Where the last entity was taken.
    std::size_t m_last = 0;
};

RemainingList::RemainingList(std::vector<Entity> selection)
    : m_entities(std::move(selection)), m_rows(m_entities.size()) {
    std::iota(m_rows.begin(), m_rows.end(), std::size_t{0});
    load();
}

void RemainingList::load() {
    m_live = m_entities.size();
    m_head = 0;
    m_removed.assign(m_live, 0);
    m_filter.load(m_entities);
}

RemainingList::Taken RemainingList::takeNearest(const Point& from) {
    // Only the first point of the head sets the bar, in the first pass too: the head is the first
    // to be offered, and a line brings the bar down to its nearer end by itself.
    return walkAndTake({from, distance(from, m_entities[m_head].firstPoint), m_head, true});
}

RemainingList::Taken RemainingList::takeNearestAsItIs(const Point& from) {
    const double bar = distance(from, m_entities[m_head].firstPoint);
    const double nearby = barNearby(from);
    // Just above what is known to be there, so that the walk comes upon it and ties stay ties.
    const double lowered = std::nextafter(nearby, std::numeric_limits<double>::infinity());
    return walkAndTake({from, lowered < bar ? lowered : bar, m_head, false});
}

double RemainingList::barNearby(const Point& from) const {
    // In a drawing the next entity mostly stands beside the last one.
    constexpr std::size_t kLook = 6;
    double bar = std::numeric_limits<double>::infinity();
    const std::size_t begin = m_last < kLook ? 0 : m_last - kLook;
    const std::size_t end = std::min(m_last + kLook, m_entities.size());
    for (std::size_t row = begin; row < end; ++row) {
        if (m_removed[row] == 0) {
            bar = std::min(bar, reach(from, row));
        }
    }
    return bar;
}

double RemainingList::reach(const Point& from, std::size_t row) const {
    const Entity& entity = m_entities[row];
    switch (entity.type) {
        case kxLineType:
            return std::min(distance(from, entity.firstPoint), distance(from, entity.secondPoint));
        case kxCircleType:
        case kxCircleArcType:
        case kxPointType:
            return distance(from, entity.firstPoint);
        default:
            return std::numeric_limits<double>::infinity();
    }
}

RemainingList::Taken RemainingList::walkAndTake(Pass pass) {
    // What lies beyond the bar can't become the candidate, and is left alone by the walk.
    m_filter.measureFrom(pass.from);
    DistanceFilter::Found near = m_filter.next(m_head / DistanceFilter::kBlock, pass.bar);
    while (near.block < m_filter.blockCount()) {
        walk(near, &pass);
        near = m_filter.next(near.block + 1, pass.bar);
    }
    const Taken taken{m_entities[pass.candidate], m_rows[pass.candidate]};
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
    if (flip && pass->turnsLines) {
        // A line that loses later in the pass stays swapped.
        std::swap(line.firstPoint, line.secondPoint);
    }
}

void RemainingList::remove(std::size_t row) {
    m_removed[row] = 1;
    m_filter.remove(row);
    --m_live;
    m_last = row;
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
    std::size_t last = 0;
    for (std::size_t row = m_head; row < m_entities.size(); ++row) {
        if (row == m_last) {
            last = kept;
        }
        if (m_removed[row] == 0) {
            m_entities[kept] = m_entities[row];
            m_rows[kept++] = m_rows[row];
        }
    }
    m_last = last;
    m_entities.resize(kept);
    m_rows.resize(kept);
    load();
}

const Point& endOf(const Entity& entity) {
    return entity.type == kxLineType ? entity.secondPoint : entity.firstPoint;
}

std::vector<Entity> walkTurningLines(RemainingList remaining, Point from) {
    std::vector<Entity> path;
    while (!remaining.empty()) {
        path.push_back(remaining.takeNearest(from).entity);
        from = endOf(path.back());
    }
    return path;
}

/// Turns a line that was taken to its nearer end. False when it can't be told in time how a line
/// with equally near ends stands.
bool turn(Entity* line, const Point& from, std::size_t row, SwapHistory* history) {
    const double toFirst = distance(from, line->firstPoint);
    const double toSecond = distance(from, line->secondPoint);
    bool swaps = toSecond < toFirst;
    if (toSecond == toFirst &&
        std::memcmp(&line->firstPoint, &line->secondPoint, sizeof(Point)) != 0) {
        const std::optional<bool> wasSwapped = history->isSwapped(row);
        if (!wasSwapped) {
            return false;
        }
        // Equally near ends change places once more.
        swaps = !*wasSwapped;
    }
    if (swaps) {
        std::swap(line->firstPoint, line->secondPoint);
    }
    return true;
}

/// The same path without turning lines on the way; nothing when that takes too long.
std::optional<std::vector<Entity>> walkLookingBack(RemainingList remaining, Point from,
                                                   SwapHistory history) {
    std::vector<Entity> path;
    while (!remaining.empty()) {
        const std::size_t head = remaining.head();
        RemainingList::Taken taken = remaining.takeNearestAsItIs(from);
        history.add(from, head, taken.row);
        if (taken.entity.type == kxLineType && !turn(&taken.entity, from, taken.row, &history)) {
            return std::nullopt;
        }
        path.push_back(taken.entity);
        from = endOf(taken.entity);
    }
    return path;
}

}  // namespace

double distance(const Point& a, const Point& b) {
    const double dx = b.m_x - a.m_x;
    const double dy = b.m_y - a.m_y;
    const double dz = b.m_z - a.m_z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

std::vector<Entity> sortEntities(std::vector<Entity> selection, const Point& start) {
    RemainingList remaining(selection);
    if (remaining.isTame() && DistanceFilter::isTame(start)) {
        auto path = walkLookingBack(remaining, start, SwapHistory(selection));
        if (path) {
            return *std::move(path);
        }
    }
    return walkTurningLines(std::move(remaining), start);
}

}  // namespace GCode
