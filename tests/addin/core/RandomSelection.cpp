// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "RandomSelection.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace {

// Objects are told apart by their addresses only; nothing is ever read from them.
std::array<char, 4096> objects;

}  // namespace

RandomSelection::RandomSelection(std::uint64_t seed)
    : m_random(seed),
      m_coordinates(static_cast<Coordinates>(below(static_cast<int>(Coordinates::count)))),
      m_gridSize(1 + below(6)),
      m_flat(!oneIn(4)) {}

kxObject* RandomSelection::objectAt(std::size_t index) {
    return reinterpret_cast<kxObject*>(&objects.at(index));
}

std::size_t RandomSelection::indexOf(const kxObject* object) {
    return static_cast<std::size_t>(reinterpret_cast<const char*>(object) - objects.data());
}

GCode::Point RandomSelection::start() {
    return oneIn(4) ? point() : GCode::Point();
}

std::vector<GCode::Entity> RandomSelection::entities(int count) {
    std::vector<GCode::Entity> result;
    for (int i = 0; i < count; ++i) {
        GCode::Entity entity;
        entity.type = type();
        entity.object = objectAt(static_cast<std::size_t>(i));
        if (entity.type == kxLineType) {
            placeLine(result, &entity);
        } else if (entity.type == kxCircleType || entity.type == kxCircleArcType ||
                   entity.type == kxPointType || oneIn(8)) {
            entity.firstPoint = point();
            if (oneIn(8)) {
                entity.secondPoint = point();
            }
        }
        result.push_back(entity);
    }
    return result;
}

int RandomSelection::below(int limit) {
    return static_cast<int>(m_random() % static_cast<std::uint64_t>(limit));
}

double RandomSelection::gridValue() {
    const double value = below(2 * m_gridSize + 1) - m_gridSize;
    return value == 0.0 && oneIn(2) ? -0.0 : value;
}

double RandomSelection::coordinate() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double value = gridValue();
    switch (m_coordinates) {
        case Coordinates::offGrid:
            return std::uniform_real_distribution<>(-100.0, 100.0)(m_random);
        case Coordinates::lastPlace:
            return oneIn(2) ? std::nextafter(value, oneIn(2) ? -kInfinity : kInfinity) : value;
        case Coordinates::tiny:
            return value * 1e-155;
        case Coordinates::vanishing:
            return value * 3e-162;
        case Coordinates::huge:
            return value * 1e154;
        case Coordinates::special:
            if (oneIn(12)) {
                const std::array<double, 4> specials{kInfinity, -kInfinity,
                                                     std::numeric_limits<double>::quiet_NaN(),
                                                     -std::numeric_limits<double>::quiet_NaN()};
                return specials.at(static_cast<std::size_t>(below(4)));
            }
            return value;
        case Coordinates::grid:
        case Coordinates::count:
            break;
    }
    return value;
}

GCode::Point RandomSelection::point() {
    const double x = coordinate();
    const double y = coordinate();
    return {x, y, m_flat ? 0.0 : coordinate()};
}

kxObjectType_e RandomSelection::type() {
    constexpr std::array<kxObjectType_e, 12> kTypes{
        kxLineType,       kxLineType,       kxLineType,     kxLineType,
        kxLineType,       kxCircleType,     kxPointType,    kxPointType,
        kxSimpleNoteType, kxEllipseArcType, kxPolyLineType, kxCircleArcType};
    return kTypes.at(static_cast<std::size_t>(below(static_cast<int>(kTypes.size()))));
}

void RandomSelection::placeLine(const std::vector<GCode::Entity>& before, GCode::Entity* line) {
    line->firstPoint = point();
    line->secondPoint = point();
    const int shape = below(6);
    if (shape == 0) {
        line->secondPoint = line->firstPoint;
    } else if (shape == 1) {
        // Both ends are equally far from the origin.
        const GCode::Point& first = line->firstPoint;
        line->secondPoint = GCode::Point(-first.m_x, -first.m_y, -first.m_z);
    } else if (shape <= 3 && !before.empty()) {
        const auto other = static_cast<std::size_t>(below(static_cast<int>(before.size())));
        (oneIn(2) ? line->firstPoint : line->secondPoint) =
            oneIn(2) ? before[other].firstPoint : before[other].secondPoint;
    }
}
