// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "geometry/BoxTree.h"
#include "geometry/DirectedTree.h"
#include "geometry/Near.h"
#include "geometry/Reach.h"

namespace gcode_check {

// What of a curve lies within reach of none of very many others; gaps of 1e-7 come from rounding
// and are none. Where very many meet, those that run along are looked at first.
class Cover {
public:
    Cover(const Curve& curve, double reach);

    // `curveAt(index)` gives the curve whose box has this index in the tree, and which has it in
    // `directed`, too.
    template <typename Tree, typename CurveAt>
    std::vector<Interval> gaps(const Tree& tree, const DirectedTree& directed, CurveAt&& curveAt) {
        constexpr std::size_t kMany = 64;
        const bool isStraight = m_curve.kind == Curve::Kind::Segment;
        if (!look(tree, curveAt, isStraight ? kMany : tree.size())) {
            bool isCovered = false;
            directed.each(m_curve, [&](std::size_t index) {
                isCovered = add(curveAt(index)) || covers();
                return !isCovered;
            });
            if (!isCovered) {
                look(tree, curveAt, tree.size());
            }
        }
        return gapsOf(m_covered, m_least);
    }

    // Whether the parts leave no gap; unites them.
    static bool isWhole(const Curve& curve, std::vector<Interval>& parts);

private:
    // Less covers little.
    static constexpr AlongBounds kRoughly{1e-3, 0.5, 0};

    // Whether it covers all by itself.
    bool add(const Curve& other);

    // Adds what comes near until all is covered, first what runs along. False: there are more than
    // `many`.
    template <typename Tree, typename CurveAt>
    bool look(const Tree& tree, CurveAt& curveAt, std::size_t many) {
        std::size_t seen = 0;
        bool done = false;
        m_crossing.clear();
        m_judgedAt = m_covered.size() + 8;
        tree.each(Reach(m_curve, m_reach), [&](std::size_t index) {
            if (++seen > many) {
                return false;
            }
            const Curve& other = curveAt(index);
            if (mayRunAlong(m_curve, other, m_reach, kRoughly)) {
                done = addAndJudge(other);
            } else {
                m_crossing.push_back(index);
            }
            return !done;
        });
        if (done || seen > many) {
            return done;
        }
        done = !m_crossing.empty() && covers();
        for (std::size_t at = 0; at < m_crossing.size() && !done; ++at) {
            done = addAndJudge(curveAt(m_crossing[at]));
        }
        return true;
    }

    // Whether all is known to be covered.
    bool addAndJudge(const Curve& other);
    // Unites what is covered.
    bool covers();

    const Curve& m_curve;
    double m_reach;
    double m_least = 0;  // gap
    std::vector<Interval> m_covered;
    std::size_t m_judgedAt = 0;           // so many parts
    std::vector<std::size_t> m_crossing;  // what is looked at last
};

}  // namespace gcode_check
