// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "geometry/BoxTree.h"
#include "geometry/DirectedTree.h"
#include "geometry/Near.h"

namespace gcode_check {

// What of a curve lies within reach of none of very many others; gaps of 1e-7 come from rounding
// and are none. Where very many meet, those that run along are looked at first.
class Cover {
public:
    Cover(const Curve& curve, double reach);

    // `curveAt(index)` gives the curve whose box has this index in the tree, and which has it in
    // `directed`, too.
    template <typename CurveAt>
    std::vector<Interval> gaps(const BoxTree& tree, const DirectedTree& directed,
                               CurveAt&& curveAt) {
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
    // Whether it covers all by itself.
    bool add(const Curve& other) {
        appendNear(m_curve, other, m_reach, Ends::Round, m_covered);
        return !m_covered.empty() && m_covered.back().from == 0 && m_covered.back().to == 1;
    }

    // Adds what comes near until all is covered. False: there are more than `many`.
    template <typename CurveAt>
    bool look(const BoxTree& tree, CurveAt& curveAt, std::size_t many) {
        std::size_t seen = 0;
        std::size_t judgedAt = m_covered.size() + 8;
        bool done = false;
        tree.each([&](const PlaneBox& box) { return mayReach(m_curve, box, m_reach); },
                  [&](std::size_t index) {
                      if (++seen > many) {
                          return false;
                      }
                      done = add(curveAt(index));
                      if (!done && m_covered.size() > judgedAt) {
                          done = covers();
                          judgedAt = m_covered.size() * 2 + 8;
                      }
                      return !done;
                  });
        return done || seen <= many;
    }

    // Unites what is covered.
    bool covers();

    const Curve& m_curve;
    double m_reach;
    double m_least = 0;  // gap
    std::vector<Interval> m_covered;
};

}  // namespace gcode_check
