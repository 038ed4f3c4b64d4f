// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The machining order of any objects is that of the literal walk: the same objects, turned alike.
#include <array>
#include <cstdint>
#include <cstring>
#include <list>

#include "ByteReader.h"
#include "FuzzCheck.h"
#include "LiteralPathOrder.h"
#include "core/PathOrder.h"

using GCode::Entity;
using GCode::Point;

namespace {

/// On a small grid, where distances are often equal, or any bits.
double number(ByteReader* input) {
    const std::uint8_t kind = input->byte();
    return kind < 240 ? static_cast<double>(kind % 16) - 8 : input->value<double>();
}

Point point(ByteReader* input) {
    const double x = number(input);
    const double y = number(input);
    return {x, y, input->byte() < 240 ? 0.0 : number(input)};
}

Entity entity(ByteReader* input) {
    constexpr std::array<kxObjectType_e, 10> kTypes{
        kxLineType,      kxLineType,  kxLineType,       kxLineType,     kxCircleType,
        kxCircleArcType, kxPointType, kxSimpleNoteType, kxPolyLineType, kxUnknownType};
    Entity result;
    result.type = kTypes.at(input->below(kTypes.size()));
    result.firstPoint = point(input);
    if (result.type == kxLineType) {
        result.secondPoint = point(input);
    }
    return result;
}

bool same(const Entity& a, const Entity& b) {
    return a.type == b.type && a.object == b.object && a.flipPoints == b.flipPoints &&
           std::memcmp(&a.firstPoint, &b.firstPoint, sizeof(Point)) == 0 &&
           std::memcmp(&a.secondPoint, &b.secondPoint, sizeof(Point)) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Objects are told apart by their addresses only; nothing is ever read from them.
    static std::array<char, 4096> objects;
    ByteReader input(data, size);
    const Point start = input.flag() ? point(&input) : Point();
    std::vector<Entity> selection;
    while (!input.atEnd() && selection.size() < objects.size()) {
        selection.push_back(entity(&input));
        selection.back().object = reinterpret_cast<kxObject*>(&objects[selection.size() - 1]);
    }
    const std::vector<Entity> path = GCode::sortEntities(selection, start);
    const std::list<Entity> judge =
        literalPathOrder(std::list<Entity>(selection.begin(), selection.end()), start);
    FUZZ_CHECK(path.size() == judge.size());
    auto expected = judge.begin();
    for (const Entity& found : path) {
        FUZZ_CHECK(same(found, *expected++));
    }
    return 0;
}
