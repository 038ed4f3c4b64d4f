// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>

#include <limits>

#include "Numbers.h"

namespace {

TEST(kxLine, givesItsEndsUnchanged) {
    const kxLine_ptr line = kxCreateLine("cut", {1.5, -2, 3}, {-0.0, 1e308, 5e-324});
    double x = 0;
    double y = 0;
    double z = 0;
    line->GetFirstPoint(&x, &y, &z);
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, -2);
    EXPECT_EQ(z, 3);
    line->GetSecondPoint(&x, &y, &z);
    EXPECT_EQ(bitsOf(x), bitsOf(-0.0));
    EXPECT_EQ(y, 1e308);
    EXPECT_EQ(z, 5e-324);
    EXPECT_EQ(line->GetLayer(), kxString("cut"));
}

TEST(kxPoint, givesItsPosition) {
    const kxPoint_ptr point = kxCreatePoint("holes", {1, 2, 3});
    double x = 0;
    double y = 0;
    double z = 0;
    point->GetPosition(&x, &y, &z);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    EXPECT_EQ(point->GetLayer(), kxString("holes"));
}

TEST(kxSimpleNote, givesTextPlaceHeightAndRotation) {
    const kxSimpleNote_ptr note =
        kxCreateSimpleNote("text", {{1, 2, 3}, "\xC3\x98 5 mm", 2.5, 0.75});
    double x = 0;
    double y = 0;
    double z = 0;
    note->GetPosition(&x, &y, &z);
    EXPECT_EQ(x, 1);
    EXPECT_EQ(y, 2);
    EXPECT_EQ(z, 3);
    EXPECT_EQ(note->GetText().toUtf8(), "\xC3\x98 5 mm");
    EXPECT_EQ(note->GetHeight(), 2.5);
    EXPECT_EQ(note->GetRotation(), 0.75);
}

class kxPolyLineTest : public testing::Test {
protected:
    kxPolyLine_ptr m_line =
        kxCreatePolyLine("outline", {{{{1, 2, 3}, 0}, {{4, 5, 6}, -0.5}, {{7, 8, 9}, -0.0}}, true});
};

TEST_F(kxPolyLineTest, givesItsVerticesAndBulges) {
    long count = 0;
    m_line->GetVerticesCount(&count);
    ASSERT_EQ(count, 3);
    EXPECT_TRUE(m_line->IsClosed());
    double x = 0;
    double y = 0;
    double z = 0;
    double bulge = 0;
    ASSERT_TRUE(m_line->GetVertex(1, &x, &y, &z));
    EXPECT_EQ(x, 4);
    EXPECT_EQ(y, 5);
    EXPECT_EQ(z, 6);
    ASSERT_TRUE(m_line->GetBulge(1, &bulge));
    EXPECT_EQ(bulge, -0.5);
}

TEST_F(kxPolyLineTest, aSegmentIsAnArcWhereItsBulgeIsNotZero) {
    const kxPolyLineSegmentType_e expected[] = {kxPolyLineSegment_Line, kxPolyLineSegment_Arc,
                                                kxPolyLineSegment_Line};
    for (long i = 0; i < 3; ++i) {
        kxPolyLineSegmentType_e type = kxPolyLineSegmentType_e(0);
        ASSERT_TRUE(m_line->GetSegmentType(i, &type));
        EXPECT_EQ(type, expected[i]) << i;
    }
}

TEST_F(kxPolyLineTest, writesNothingOutOfRange) {
    for (const long index :
         {-1L, 3L, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        double x = -7;
        double y = -7;
        double z = -7;
        double bulge = -7;
        kxPolyLineSegmentType_e type = kxPolyLineSegment_Arc;
        EXPECT_FALSE(m_line->GetVertex(index, &x, &y, &z));
        EXPECT_FALSE(m_line->GetBulge(index, &bulge));
        EXPECT_FALSE(m_line->GetSegmentType(index, &type));
        EXPECT_EQ(x, -7);
        EXPECT_EQ(y, -7);
        EXPECT_EQ(z, -7);
        EXPECT_EQ(bulge, -7);
        EXPECT_EQ(type, kxPolyLineSegment_Arc);
    }
}

TEST_F(kxPolyLineTest, mayBeOpen) {
    EXPECT_FALSE(kxCreatePolyLine("0", {{{{}, 0}}, false})->IsClosed());
}

}  // namespace
