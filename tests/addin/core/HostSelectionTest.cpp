// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/HostSelection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestHost.h"

using GCode::ArcGeometry;
using GCode::Entity;
using GCode::Point;

namespace {

Entity entityOfObject(const kxObject_ptr& object) {
    return entityOf(object->GetType(), object.get());
}

void expectPoint(const Point& point, double x, double y, double z) {
    EXPECT_DOUBLE_EQ(point.m_x, x);
    EXPECT_DOUBLE_EQ(point.m_y, y);
    EXPECT_DOUBLE_EQ(point.m_z, z);
}

}  // namespace

TEST(ActiveSelectionManager, IsNullWithoutAnApplication) {
    EXPECT_FALSE(activeSelectionManager(nullptr));
    EXPECT_EQ(selectedObjectCount(nullptr, kxSelectionSetType_Current), 0);
}

TEST(ActiveSelectionManager, IsNullWithoutADrawing) {
    const TestHost host;
    EXPECT_FALSE(activeSelectionManager(host.application()));
}

TEST(ActiveSelectionManager, IsTheActiveDrawings) {
    TestHost host;
    const auto drawing = host.open();
    EXPECT_EQ(activeSelectionManager(host.application()), drawing->GetSelectionManager());
}

TEST(SelectedObjectCount, CountsEachSetByItself) {
    TestHost host;
    host.open();
    host.setPrevious({pointObject(at(1, 1))});
    host.select({pointObject(at(2, 2)), pointObject(at(3, 3))});
    const auto manager = activeSelectionManager(host.application());
    EXPECT_EQ(selectedObjectCount(manager, kxSelectionSetType_Current), 2);
    EXPECT_EQ(selectedObjectCount(manager, kxSelectionSetType_Previous), 1);
}

TEST(EntityOf, LineHasItsTwoEnds) {
    const kxObject_ptr object = lineObject(at(1, 2, 3), at(4, 5, 6));
    const Entity entity = entityOfObject(object);
    EXPECT_EQ(entity.type, kxLineType);
    EXPECT_EQ(entity.object, object.get());
    expectPoint(entity.firstPoint, 1, 2, 3);
    expectPoint(entity.secondPoint, 4, 5, 6);
}

TEST(EntityOf, CircleAndArcHaveTheirCentreAndTheOrigin) {
    for (const kxObject_ptr& object :
         {circleObject(at(1, 2, 3), 4), arcObject(at(1, 2, 3), 4, 0, 1)}) {
        const Entity entity = entityOfObject(object);
        expectPoint(entity.firstPoint, 1, 2, 3);
        expectPoint(entity.secondPoint, 0, 0, 0);
    }
}

TEST(EntityOf, PointHasItsPositionAndTheOrigin) {
    const kxObject_ptr object = pointObject(at(1, 2, 3));
    const Entity entity = entityOfObject(object);
    expectPoint(entity.firstPoint, 1, 2, 3);
    expectPoint(entity.secondPoint, 0, 0, 0);
}

TEST(EntityOf, PolylineNoteAndEllipseArcStayAtTheOrigin) {
    for (const kxObject_ptr& object : {polyLineObject(), noteObject(), ellipseArcObject()}) {
        const Entity entity = entityOfObject(object);
        EXPECT_EQ(entity.type, object->GetType());
        EXPECT_EQ(entity.object, object.get());
        expectPoint(entity.firstPoint, 0, 0, 0);
        expectPoint(entity.secondPoint, 0, 0, 0);
    }
}

TEST(EntityOf, ObjectThatIsNotOfItsKindsClassStaysAtTheOrigin) {
    for (const kxObjectType_e type :
         {kxLineType, kxCircleType, kxCircleArcType, kxPointType, kxPolyLineType}) {
        const kxObject_ptr object = impostor(type);
        const Entity entity = entityOfObject(object);
        EXPECT_EQ(entity.type, type);
        expectPoint(entity.firstPoint, 0, 0, 0);
        expectPoint(entity.secondPoint, 0, 0, 0);
    }
    EXPECT_EQ(entityOf(kxLineType, nullptr).object, nullptr);
}

TEST(ReadArc, TakesEndsCentreAndRadiusFromTheHost) {
    const kxObject_ptr object = arcObject(at(10, 0, 7), 5, 0, 1.5707963267948966);
    ArcGeometry geometry;
    ASSERT_TRUE(readArc(object.get(), &geometry));
    expectPoint(geometry.start, 15, 0, 7);
    expectPoint(geometry.end, 10, 5, 7);
    expectPoint(geometry.centre, 10, 0, 7);
    EXPECT_EQ(geometry.radius, 5);
}

TEST(ReadCircle, StartsAndEndsAtTheSamePoint) {
    const kxObject_ptr object = circleObject(at(1.1, 2.2), 3.3);
    ArcGeometry geometry;
    ASSERT_TRUE(readCircle(object.get(), &geometry));
    EXPECT_TRUE(geometry.start == geometry.end);
    expectPoint(geometry.start, 1.1 + 3.3, 2.2, 0);
}

TEST(ReadObject, WritesNothingForAnotherClass) {
    ArcGeometry geometry;
    geometry.radius = 9;
    Point point(1, 2, 3);
    EXPECT_FALSE(readArc(circleObject(at(0, 0), 1).get(), &geometry));
    EXPECT_FALSE(readCircle(arcObject(at(0, 0), 1, 0, 1).get(), &geometry));
    EXPECT_FALSE(readPoint(impostor(kxPointType).get(), &point));
    EXPECT_FALSE(isLine(impostor(kxLineType).get()));
    EXPECT_EQ(geometry.radius, 9);
    expectPoint(point, 1, 2, 3);
}

TEST(DrillPositions, TakeTheFirstRecordsPointAndSkipWhatTheHostDoesNotGive) {
    Entity first;
    first.type = kxLineType;
    first.firstPoint.SetPoint(7, 8, 9);
    const kxObject_ptr note = noteObject();
    const kxObject_ptr fake = impostor(kxPointType);
    const kxObject_ptr circle = circleObject(at(5, 6), 1);
    const auto positions =
        drillPositions({first, entityOfObject(note), entityOfObject(fake), entityOfObject(circle)});
    ASSERT_EQ(positions.size(), 2U);
    expectPoint(positions[0], 7, 8, 9);
    expectPoint(positions[1], 5, 6, 0);
    EXPECT_TRUE(drillPositions({}).empty());
}
