// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/Arc.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

using GCode::Arc;
using GCode::Point;

namespace {

class WatchedArc : public Arc {
public:
    explicit WatchedArc(bool* destroyed) : Arc({}, {}, {}, 1.0), m_destroyed(destroyed) {}
    ~WatchedArc() override { *m_destroyed = true; }

private:
    bool* m_destroyed;
};

}  // namespace

TEST(Arc, ConstructionCopiesAllFourValues) {
    const Arc arc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), 2.5);
    EXPECT_EQ(arc.GetStartPoint(), Point(1, 2, 3));
    EXPECT_EQ(arc.GetEndPoint(), Point(4, 5, 6));
    EXPECT_EQ(arc.GetCenterPoint(), Point(7, 8, 9));
    EXPECT_EQ(arc.GetRadius(), 2.5);
}

TEST(Arc, PointsAreReferencesToTheStoredOnes) {
    const Arc arc(Point(1, 2, 3), Point(4, 5, 6), Point(7, 8, 9), 2.5);
    EXPECT_EQ(&arc.GetStartPoint(), &arc.GetStartPoint());
    static_assert(std::is_reference_v<decltype(arc.GetStartPoint())>);
    static_assert(std::is_reference_v<decltype(arc.GetEndPoint())>);
    static_assert(std::is_reference_v<decltype(arc.GetCenterPoint())>);
}

TEST(Arc, DestroyedThroughAnEntityPointerRunsItsDestructor) {
    static_assert(std::has_virtual_destructor_v<::Entity>);
    static_assert(std::is_base_of_v<::Entity, Arc>);
    bool destroyed = false;
    std::unique_ptr<::Entity> entity = std::make_unique<WatchedArc>(&destroyed);
    entity.reset();
    EXPECT_TRUE(destroyed);
}

TEST(Arc, EnumeratorsHaveTheirFixedValues) {
    EXPECT_EQ(static_cast<int>(GCode::CW), 1);
    EXPECT_EQ(static_cast<int>(GCode::CCW), 2);
    EXPECT_EQ(static_cast<int>(GCode::ijkForm), 1);
    EXPECT_EQ(static_cast<int>(GCode::radiusForm), 2);
    EXPECT_EQ(sizeof(GCode::Direction), 4U);
    EXPECT_EQ(sizeof(GCode::Arcform), 4U);
}
