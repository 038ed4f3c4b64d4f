// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "Summary.h"

#include <gtest/gtest.h>

#include <kx/host/kxGeometryFactory.h>

namespace {

TEST(Summary, IsEmptyWhenAllObjectsGiveAToolPath) {
    const std::vector<kxObject_ptr> objects{kxCreateLine("0", {}, {}), kxCreatePoint("0", {}),
                                            kxCreateCircle("0", {}, 1), kxCreateCircleArc("0", {})};
    EXPECT_EQ(noToolPathLine(objects), "");
}

TEST(Summary, CountsTheOthersByType) {
    const std::vector<kxObject_ptr> objects{kxCreateLine("0", {}, {}), kxCreateSimpleNote("0", {}),
                                            kxCreateEllipseArc("0", {}),
                                            kxCreateSimpleNote("0", {})};
    EXPECT_EQ(noToolPathLine(objects),
              "3 of 4 selected objects give no tool path: 1 ellipse, 2 notes");
}

}  // namespace
