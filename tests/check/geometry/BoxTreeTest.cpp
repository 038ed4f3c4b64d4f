// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "geometry/BoxTree.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

std::vector<PlaneBox> randomBoxes(unsigned seed, std::size_t count) {
    std::mt19937 engine(seed);
    std::uniform_real_distribution<double> place(0, 100);
    std::exponential_distribution<double> size(1);
    std::vector<PlaneBox> boxes;
    for (std::size_t at = 0; at < count; ++at) {
        const double x = place(engine);
        const double y = place(engine);
        boxes.push_back({x, y, x + size(engine), y + size(engine)});
    }
    return boxes;
}

bool meet(const PlaneBox& a, const PlaneBox& b) {
    return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

TEST(BoxTree, FindsTheBoxesThatMeetAnotherEachOnce) {
    for (const std::size_t count : {0U, 1U, 7U, 8U, 9U, 64U, 65U, 1000U}) {
        const std::vector<PlaneBox> boxes = randomBoxes(static_cast<unsigned>(count), count);
        const BoxTree tree(boxes);
        for (const PlaneBox& wanted : randomBoxes(1, 50)) {
            std::vector<int> found(count, 0);
            tree.each([&wanted](const PlaneBox& box) { return meet(box, wanted); },
                      [&found](std::size_t index) {
                          ++found[index];
                          return true;
                      });
            for (std::size_t index = 0; index < count; ++index) {
                EXPECT_EQ(found[index], meet(boxes[index], wanted) ? 1 : 0);
            }
        }
    }
}

TEST(BoxTree, StopsWhenToldTo) {
    const BoxTree tree(randomBoxes(3, 100));
    int visits = 0;
    tree.each([](const PlaneBox&) { return true; },
              [&visits](std::size_t) { return ++visits < 5; });
    EXPECT_EQ(visits, 5);
}

TEST(BoxTree, FindsTheNearest) {
    const std::vector<PlaneBox> boxes = randomBoxes(5, 500);
    const BoxTree tree(boxes);
    for (const PlaneBox& from : randomBoxes(6, 200)) {
        const PlanePoint place{from.minX, from.minY};
        const auto off = [&boxes, &place](std::size_t index) {
            return distance(place, {boxes[index].minX, boxes[index].minY});
        };
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t index = 0; index < boxes.size(); ++index) {
            least = std::min(least, off(index));
        }
        EXPECT_EQ(tree.nearest(place, std::numeric_limits<double>::infinity(), off), least);
        EXPECT_EQ(tree.nearest(place, least / 2, off), least / 2);
    }
}

TEST(BoxTree, TakesBoxesThatAllLieOnOneSpot) {
    const BoxTree tree(std::vector<PlaneBox>(100, PlaneBox{1, 1, 1, 1}));
    int visits = 0;
    tree.each([](const PlaneBox&) { return true; },
              [&visits](std::size_t) { return ++visits > 0; });
    EXPECT_EQ(visits, 100);
}

}  // namespace
}  // namespace gcode_check
