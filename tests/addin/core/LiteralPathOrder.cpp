// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "LiteralPathOrder.h"

#include <cmath>
#include <utility>

namespace {

double d(const GCode::Point& a, const GCode::Point& b) {
    return std::sqrt((b.m_x - a.m_x) * (b.m_x - a.m_x) + (b.m_y - a.m_y) * (b.m_y - a.m_y) +
                     (b.m_z - a.m_z) * (b.m_z - a.m_z));
}

double smaller(double a, double b) {
    return b < a ? b : a;
}

}  // namespace

// One function on purpose: it is held against the rule line by line.
// NOLINTNEXTLINE(readability-function-size)
std::list<GCode::Entity> literalPathOrder(std::list<GCode::Entity> entityList,
                                          const GCode::Point& start) {
    std::list<GCode::Entity> result;
    if (entityList.empty()) {
        return result;
    }
    GCode::Point ref = start;
    auto candidate = entityList.begin();
    double distance = d(ref, candidate->firstPoint);
    if (candidate->type == kxLineType) {
        distance = smaller(d(ref, candidate->firstPoint), d(ref, candidate->secondPoint));
    }
    while (true) {
        for (auto entity = entityList.begin(); entity != entityList.end(); ++entity) {
            if (entity->type == kxCircleType || entity->type == kxCircleArcType ||
                entity->type == kxPointType) {
                if (distance > d(ref, entity->firstPoint)) {
                    candidate = entity;
                    distance = d(ref, entity->firstPoint);
                }
            } else if (entity->type == kxLineType) {
                const double d1 = d(ref, entity->firstPoint);
                const double d2 = d(ref, entity->secondPoint);
                double shorter = d2;
                bool flip = true;
                if (d2 > d1) {
                    shorter = d1;
                    flip = false;
                }
                if (distance >= shorter) {
                    candidate = entity;
                    distance = shorter;
                    if (flip) {
                        std::swap(entity->firstPoint, entity->secondPoint);
                    }
                }
            }
        }
        result.push_back(*candidate);
        ref = candidate->type == kxLineType ? candidate->secondPoint : candidate->firstPoint;
        entityList.erase(candidate);
        if (entityList.empty()) {
            return result;
        }
        candidate = entityList.begin();
        distance = d(ref, candidate->firstPoint);
    }
}
