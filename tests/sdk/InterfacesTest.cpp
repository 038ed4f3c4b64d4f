// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxGeometryFactory.h>

#include <string>
#include <vector>

namespace {

/// One object of each kind, in the order of the type codes.
std::vector<kxObject_ptr> oneOfEach() {
    kxSplineData spline;
    spline.degree = 1;
    spline.knots = {0, 0, 1, 1};
    spline.controlPoints = {{0, 0, 0}, {1, 0, 0}};
    return {kxCreateLine("0", {}, {1, 0, 0}),
            kxCreateCircle("0", {}, 1),
            kxCreateCircleArc("0", {{}, 1, 0, 1}),
            kxCreateSimpleNote("0", {{}, "text", 1, 0}),
            kxCreatePoint("0", {}),
            kxCreateEllipseArc("0", {{}, {2, 0, 0}, {0, 1, 0}, 0, 1}),
            kxCreatePolyLine("0", {{{{}, 0}}, false}),
            kxCreateSpline("0", spline)};
}

/// For each class a '1' where the object can be narrowed to it.
std::string narrowings(kxObject* object) {
    std::string found;
    const auto note = [&](bool narrowed) { found += narrowed ? '1' : '0'; };
    note(static_cast<bool>(kxCast<kxLine_c>(object)));
    note(static_cast<bool>(kxCast<kxCircle_c>(object)));
    note(static_cast<bool>(kxCast<kxCircleArc_c>(object)));
    note(static_cast<bool>(kxCast<kxSimpleNote_c>(object)));
    note(static_cast<bool>(kxCast<kxPoint_c>(object)));
    note(static_cast<bool>(kxCast<kxEllipseArc_c>(object)));
    note(static_cast<bool>(kxCast<kxPolyLine_c>(object)));
    note(static_cast<bool>(kxCast<kxSpline_c>(object)));
    return found;
}

TEST(kxCast, narrowsToTheOwnClassAndGivesNullForAllOthers) {
    const std::vector<kxObject_ptr> objects = oneOfEach();
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::string expected(objects.size(), '0');
        expected[i] = '1';
        EXPECT_EQ(narrowings(objects[i].get()), expected) << "object " << i;
    }
}

TEST(kxCast, theTypeNamesTheClass) {
    const std::vector<kxObject_ptr> objects = oneOfEach();
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(objects[i]->GetType(), kxLineType + static_cast<int>(i));
    }
}

TEST(kxCast, typeCodesAreFixed) {
    EXPECT_EQ(kxUnknownType, 0);
    EXPECT_EQ(kxLineType, 21);
    EXPECT_EQ(kxCircleType, 22);
    EXPECT_EQ(kxCircleArcType, 23);
    EXPECT_EQ(kxSimpleNoteType, 24);
    EXPECT_EQ(kxPointType, 25);
    EXPECT_EQ(kxEllipseArcType, 26);
    EXPECT_EQ(kxPolyLineType, 27);
    EXPECT_EQ(kxSplineType, 28);
}

TEST(kxCast, nullGivesNull) {
    EXPECT_FALSE(kxCast<kxLine_c>(nullptr));
}

TEST(kxCast, theResultKeepsTheObjectAlive) {
    kxObject_ptr object = kxCreateLine("outline", {1, 2, 3}, {});
    const kxLine_ptr line = kxCast<kxLine_c>(object.get());
    EXPECT_EQ(line->GetRefCount(), 2);
    object = nullptr;
    EXPECT_EQ(line->GetRefCount(), 1);
    EXPECT_EQ(line->GetLayer(), kxString("outline"));
}

TEST(kxCast, aFailedNarrowingLeavesTheCount) {
    const kxObject_ptr object = kxCreateLine("0", {}, {});
    EXPECT_FALSE(kxCast<kxCircle_c>(object.get()));
    EXPECT_EQ(object->GetRefCount(), 1);
}

}  // namespace
