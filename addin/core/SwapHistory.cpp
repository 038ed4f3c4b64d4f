// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/SwapHistory.h"

#include <algorithm>
#include <limits>

#include "core/PathOrder.h"

namespace GCode {

namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
/// How many steps back are made for each row of the list, all questions together.
constexpr std::size_t kStepsPerRow = 64;
constexpr std::size_t kStepsPerSearch = 32;

}  // namespace

SwapHistory::SwapHistory(const std::vector<Entity>& list)
    : m_list(list), m_takenIn(list.size(), kNever) {
    m_filter.load(m_list);
    m_passes.reserve(list.size());
}

void SwapHistory::add(const Point& from, std::size_t head, std::size_t taken) {
    m_takenIn[taken] = m_passes.size();
    m_passes.push_back({from, head, taken});
}

std::optional<bool> SwapHistory::isSwapped(std::size_t row) {
    m_blocker = row;
    bool isOdd = false;
    for (std::size_t pass = m_passes.size() - 1; pass-- > 0;) {
        if (++m_work > kStepsPerRow * m_list.size()) {
            return std::nullopt;
        }
        if (!turned(pass, row)) {
            continue;
        }
        const double toFirst = distance(m_passes[pass].from, m_list[row].firstPoint);
        const double toSecond = distance(m_passes[pass].from, m_list[row].secondPoint);
        if (toFirst != toSecond) {
            return (toSecond < toFirst) != isOdd;
        }
        isOdd = !isOdd;
    }
    return isOdd;
}

double SwapHistory::reach(const Pass& pass, std::size_t row) const {
    const Entity& entity = m_list[row];
    const double toFirst = distance(pass.from, entity.firstPoint);
    return entity.type == kxLineType ? std::min(toFirst, distance(pass.from, entity.secondPoint))
                                     : toFirst;
}

bool SwapHistory::turned(std::size_t pass, std::size_t row) {
    const Pass& then = m_passes[pass];
    if (then.head == row) {
        return true;
    }
    if (then.taken < row) {
        return false;  // It was nearer: of equally near lines the last one is taken.
    }
    const double bar = reach(then, row);
    return !(reach(then, then.head) < bar) && !blocks(m_blocker, pass, bar) &&
           !findBlocker(pass, row, bar);
}

bool SwapHistory::blocks(std::size_t blocker, std::size_t pass, double bar) const {
    return m_takenIn[blocker] >= pass && reach(m_passes[pass], blocker) < bar;
}

bool SwapHistory::findBlocker(std::size_t pass, std::size_t row, double bar) {
    m_work += kStepsPerSearch;
    m_filter.measureFrom(m_passes[pass].from);
    DistanceFilter::Found near = m_filter.next(0, bar);
    while (near.block * DistanceFilter::kBlock < row) {
        m_work += kStepsPerSearch;
        std::size_t candidate = near.block * DistanceFilter::kBlock;
        for (std::uint64_t rows = near.rows; rows != 0 && candidate < row;
             rows >>= 1U, ++candidate) {
            if ((rows & 1U) != 0 && blocks(candidate, pass, bar)) {
                m_blocker = candidate;
                return true;
            }
        }
        near = m_filter.next(near.block + 1, bar);
    }
    return false;
}

}  // namespace GCode
