// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PathEntity.h"

#include <gtest/gtest.h>

#include <type_traits>

TEST(PathEntity, StartsAtTheOriginUnflippedAndWithoutObject) {
    const GCode::Entity entity;
    EXPECT_EQ(entity.object, nullptr);
    EXPECT_EQ(entity.firstPoint, GCode::Point(0, 0, 0));
    EXPECT_EQ(entity.secondPoint, GCode::Point(0, 0, 0));
    EXPECT_FALSE(entity.flipPoints);
}

TEST(PathEntity, IsAPlainRecordCopiedMemberWise) {
    static_assert(!std::is_polymorphic_v<GCode::Entity>);
    static_assert(std::is_trivially_copyable_v<GCode::Entity>);
    static_assert(std::is_same_v<decltype(GCode::Entity::type), kxObjectType_e>);
    const GCode::Entity line{kxLineType, nullptr, {1, 2, 3}, {4, 5, 6}, true};
    const GCode::Entity copy = line;
    EXPECT_EQ(copy.type, kxLineType);
    EXPECT_EQ(copy.firstPoint, GCode::Point(1, 2, 3));
    EXPECT_EQ(copy.secondPoint, GCode::Point(4, 5, 6));
    EXPECT_TRUE(copy.flipPoints);
}
