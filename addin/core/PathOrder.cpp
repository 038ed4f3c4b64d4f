// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PathOrder.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace GCode {

namespace {

constexpr std::size_t kBlock = 32;
constexpr std::size_t kRun = 4;
constexpr double kNowhere = std::numeric_limits<double>::quiet_NaN();

/// The entities still to be visited, in list order. Beside the records it keeps their coordinates
/// in flat arrays, the two ends of a line in either order. Whatever can't be chosen lies nowhere
/// there: its distance is no number, and so is below no bar.
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
    void place(std::size_t row);
    bool mayHoldNearer(std::size_t begin, const Pass& pass) const;
    void walkBlock(std::size_t begin, Pass* pass);
    void offer(std::size_t row, Pass* pass);
    void offerLine(std::size_t row, Pass* pass);
    void remove(std::size_t row);
    void closeGaps();

    std::vector<Entity> m_entities;
    std::vector<char> m_removed;
    std::vector<double> m_firstX;
    std::vector<double> m_firstY;
    std::vector<double> m_secondX;
    std::vector<double> m_secondY;
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
    const std::size_t padded = (m_live + kBlock - 1) / kBlock * kBlock;
    for (auto* axis : {&m_firstX, &m_firstY, &m_secondX, &m_secondY}) {
        axis->assign(padded, kNowhere);
    }
    for (std::size_t row = 0; row < m_live; ++row) {
        place(row);
    }
}

void RemainingList::place(std::size_t row) {
    const Entity& entity = m_entities[row];
    switch (entity.type) {
        case kxLineType:
            m_secondX[row] = entity.secondPoint.m_x;
            m_secondY[row] = entity.secondPoint.m_y;
            [[fallthrough]];
        case kxCircleType:
        case kxCircleArcType:
        case kxPointType:
            m_firstX[row] = entity.firstPoint.m_x;
            m_firstY[row] = entity.firstPoint.m_y;
            break;
        default:
            break;
    }
}

Entity RemainingList::takeNearest(const Point& from) {
    // Only the first point of the head sets the bar, in the first pass too: the head is the first
    // to be offered, and a line brings the bar down to its nearer end by itself.
    Pass pass{from, distance(from, m_entities[m_head].firstPoint), m_head};
    for (std::size_t begin = m_head / kBlock * kBlock; begin < m_entities.size(); begin += kBlock) {
        // A list drawn towards the tool gets nearer row by row; ruling out blocks is in vain there.
        const bool gettingNearer = pass.candidate + kRun >= begin;
        if (gettingNearer || mayHoldNearer(begin, pass)) {
            walkBlock(begin, &pass);
        }
    }
    Entity taken = m_entities[pass.candidate];
    remove(pass.candidate);
    return taken;
}

bool RemainingList::mayHoldNearer(std::size_t begin, const Pass& pass) const {
    // Squared distances in the plane, without the square root and the branches of the exact rule,
    // rule out nearly every block. The bar is widened by more than the rounding of the root and of
    // the squares can amount to, so that no tie is lost; what passes is decided by the exact rule.
    const double limit = pass.bar * pass.bar * (1.0 + 1e-12) + 1e-300;
    const double x = pass.from.m_x;
    const double y = pass.from.m_y;
    const double* firstX = m_firstX.data() + begin;
    const double* firstY = m_firstY.data() + begin;
    const double* secondX = m_secondX.data() + begin;
    const double* secondY = m_secondY.data() + begin;
    // Written as selections of as wide a type, because that is the form the compiler vectorises.
    std::uint64_t near = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
        const double dx1 = firstX[i] - x;
        const double dy1 = firstY[i] - y;
        const double dx2 = secondX[i] - x;
        const double dy2 = secondY[i] - y;
        near = dx1 * dx1 + dy1 * dy1 <= limit ? 1 : near;
        near = dx2 * dx2 + dy2 * dy2 <= limit ? 1 : near;
    }
    return near != 0;
}

void RemainingList::walkBlock(std::size_t begin, Pass* pass) {
    const std::size_t end = std::min(begin + kBlock, m_entities.size());
    for (std::size_t row = begin; row < end; ++row) {
        if (m_removed[row] == 0) {
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
    m_firstX[row] = kNowhere;
    m_secondX[row] = kNowhere;
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
