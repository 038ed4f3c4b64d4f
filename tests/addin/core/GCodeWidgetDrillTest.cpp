// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// "Generate" with the drill cycles: whole programs, worked out by hand.
#include <QComboBox>
#include <QLineEdit>
#include <QTextEdit>

#include "core/PanelTest.h"

using testing::ElementsAre;

namespace {

class GenerateDrillCycle : public PanelTest {
protected:
    GenerateDrillCycle() { useDrillSettings(0); }
};

std::string absolute(const std::string& body) {
    return "PRE\nG90\nG0 X0Y0\n" + body + "POST\n";
}

const char* const kRefusal = "Only circles or points are valid for drill cycle ";

}  // namespace

TEST_F(GenerateDrillCycle, G81HoldsDepthRetractAndFeed) {
    host.select({pointObject(at(10, 20)), pointObject(at(30, 5))});
    EXPECT_EQ(generate(), absolute("X10 Y20\nG81 Z-2R1F100\nX30 Y5\nG80\n"));
}

TEST_F(GenerateDrillCycle, G82AddsTheDwell) {
    useDrillSettings(1);
    host.select({pointObject(at(10, 20)), pointObject(at(30, 5))});
    EXPECT_EQ(generate(), absolute("X10 Y20\nG82 Z-2R1P0.5F100\nX30 Y5\nG80\n"));
}

TEST_F(GenerateDrillCycle, G83AddsDwellAndPeckThoughTheDwellFieldIsHidden) {
    useDrillSettings(2);
    host.select({pointObject(at(10, 20)), pointObject(at(30, 5))});
    EXPECT_TRUE(edit("dwellTimeEdit")->isHidden());
    EXPECT_EQ(generate(), absolute("X10 Y20\nG83 Z-2R1P0.5Q0.25F100\nX30 Y5\nG80\n"));
}

TEST_F(GenerateDrillCycle, OnePointGivesItsLineTheCycleAndTheEnd) {
    host.select({pointObject(at(7, 8))});
    EXPECT_EQ(generate(), absolute("X7 Y8\nG81 Z-2R1F100\nG80\n"));
}

TEST_F(GenerateDrillCycle, CirclesAreDrilledAtTheirCentres) {
    host.select({circleObject(at(10, 20), 4), circleObject(at(30, 5), 2)});
    EXPECT_EQ(generate(), absolute("X10 Y20\nG81 Z-2R1F100\nX30 Y5\nG80\n"));
}

TEST_F(GenerateDrillCycle, RelativeModeWritesTheFirstPlaceAbsoluteAndThenPlainDifferences) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({pointObject(at(10, 20)), pointObject(at(30, 5)), circleObject(at(30.005, 5), 1)});
    // The last move of 0.005 is written: these differences have no dead band.
    const std::string program = generate();
    EXPECT_EQ(program,
              "PRE\nG91\nG0 X0Y0\nX10 Y20\nG81 Z-2R1F100\nX20 Y-15\nX0.005 Y0\nG80\nPOST\n");
}

TEST_F(GenerateDrillCycle, PlacesAreVisitedNearestFirst) {
    host.select({pointObject(at(9, 0)), pointObject(at(1, 0)), pointObject(at(4, 0))});
    EXPECT_EQ(generate(), absolute("X1 Y0\nG81 Z-2R1F100\nX4 Y0\nX9 Y0\nG80\n"));
}

TEST_F(GenerateDrillCycle, EmptySelectionWritesNoCycleAndNoEndOfIt) {
    EXPECT_EQ(generate(), absolute(""));
}

TEST_F(GenerateDrillCycle, UnreadableFieldsCountAsZero) {
    useDrillSettings(2);
    for (const char* field :
         {"drillDepth", "retractHeight", "drillFeedRate", "dwellTimeEdit", "peckDepthEdit"}) {
        put(field, "x");
    }
    host.select({pointObject(at(7, 8))});
    EXPECT_EQ(generate(), absolute("X7 Y8\nG83 Z0R0P0Q0F0\nG80\n"));
}

TEST_F(GenerateDrillCycle, UnknownCycleWritesPreambleAndPostscriptOnly) {
    host.select({pointObject(at(7, 8))});
    panel().DrillCycleComboIndexChanged(3);
    EXPECT_EQ(generate(), absolute(""));
}

TEST_F(GenerateDrillCycle, UnknownMainModeWritesAnEmptyProgram) {
    host.select({pointObject(at(7, 8))});
    panel().MainComboIndexChanged(2);
    EXPECT_EQ(generate(), "");
}

TEST_F(GenerateDrillCycle, LineArcOrAnyOtherKindIsRefusedAndNothingIsSent) {
    const std::vector<kxObject_ptr> refused = {lineObject(at(0, 0), at(1, 1)),
                                               arcObject(at(0, 0), 1, 0, 1), noteObject(),
                                               polyLineObject(), ellipseArcObject()};
    for (const kxObject_ptr& object : refused) {
        host.lines.clear();
        host.select({pointObject(at(7, 8)), object});
        EXPECT_EQ(generate(), "(none)");
        EXPECT_THAT(host.lines, ElementsAre("Selected objects: 2 ", kRefusal));
    }
}

TEST_F(GenerateDrillCycle, PreviousSetIsCheckedTooAfterThePrompt) {
    host.setPrevious({lineObject(at(0, 0), at(1, 1))});
    EXPECT_EQ(generate(), "(none)");
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 1 ", kRefusal));
}

TEST_F(GenerateDrillCycle, FurtherObjectsThatAreNotOfTheirKindsClassAreSkipped) {
    host.select({pointObject(at(0, 0)), impostor(kxPointType), impostor(kxCircleType),
                 pointObject(at(5, 0))});
    EXPECT_EQ(generate(), absolute("X0 Y0\nG81 Z-2R1F100\nX5 Y0\nG80\n"));
}
