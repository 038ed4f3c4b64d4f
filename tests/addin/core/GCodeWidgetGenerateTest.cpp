// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// "Generate" with the 2-D tool path: whole programs, worked out by hand.
#include <QComboBox>
#include <QLineEdit>
#include <QTextEdit>

#include "core/PanelTest.h"

using testing::ElementsAre;

namespace {

constexpr double kHalfPi = 1.5707963267948966;

class GenerateToolPath : public PanelTest {
protected:
    GenerateToolPath() { usePlainSettings(); }
};

/// The five lines that bring the tool above a place and down, with the plunge feed due.
std::string approach(const std::string& travel) {
    return "G01 Z5 F100\nG0 Z10\nG0 " + travel + "\nG0 Z5\nG01 Z-1 F100\n";
}

std::string absolute(const std::string& body) {
    return "PRE\nG90\nG0 X0Y0\n" + body + "POST\n";
}

std::string relative(const std::string& body) {
    return "PRE\nG91\nG0 X0Y0\n" + body + "POST\n";
}

}  // namespace

TEST_F(PanelTest, FreshPanelWritesItsDefaultTextsInRelativeModeForAnEmptySelection) {
    EXPECT_EQ(generate(),
              "M3     ; Start spindle clockwise (looking from above down)\n"
              "S6000  ; Spindle RPM\n"
              "G4 P60 ; wait for 60 seconds\n"
              "S12000 ;\n"
              "G4 P60 ;\n"
              "G21    ; Units in mm\n"
              "G91\n"
              "G0 X0Y0\n"
              "G0 Z50;\n"
              "Safe height G0 X0 Y0;\n"
              "M30; Rewind program\n");
}

TEST_F(PanelTest, EmptyFieldsCountAsZeroAndGenerationGoesOn) {
    host.select({lineObject(at(1, 1), at(2, 2))});
    textBox("textEdit")->setPlainText("P");
    textBox("postambleTextEdit")->setPlainText("Q");
    combo("unitComboBox")->setCurrentIndex(1);
    // No feed differs from the tool state's 0, so no feed word is written.
    EXPECT_EQ(generate(),
              "P\nG90\nG0 X0Y0\n"
              "G01 Z0 \nG0 Z0\nG0 X1 Y1\nG0 Z0\nG01 Z0 \nG01 X2 Y2 \n"
              "Q\n");
}

TEST_F(GenerateToolPath, EmptySelectionGivesPreambleModeStartLineAndPostscript) {
    EXPECT_EQ(generate(), absolute(""));
    combo("unitComboBox")->setCurrentText("Relative");
    EXPECT_EQ(generate(), relative(""));
}

TEST_F(GenerateToolPath, LineFromTheOriginIsCutWithoutAnApproach) {
    host.select({lineObject(at(0, 0), at(10, 5))});
    EXPECT_EQ(generate(), absolute("G01 X10 Y5 F300\n"));
}

TEST_F(GenerateToolPath, JoinedLinesAreCutInOneGoAndAGapIsCrossedAbove) {
    host.select({lineObject(at(0, 0), at(10, 5)), lineObject(at(10, 5), at(12, 5)),
                 lineObject(at(20, 0), at(30, 0))});
    EXPECT_EQ(generate(), absolute("G01 X10 Y5 F300\n"
                                   "G01 X12 Y5 \n" +
                                   approach("X20 Y0") + "G01 X30 Y0 F300\n"));
}

TEST_F(GenerateToolPath, LineIsTurnedToBeginAtItsNearerEnd) {
    host.select({lineObject(at(10, 0), at(3, 0))});
    EXPECT_EQ(generate(), absolute(approach("X3 Y0") + "G01 X10 Y0 F300\n"));
}

TEST_F(GenerateToolPath, LineWithEquallyNearEndsIsTurned) {
    host.select({lineObject(at(3, 4), at(4, 3))});
    EXPECT_EQ(generate(), absolute(approach("X4 Y3") + "G01 X3 Y4 F300\n"));
}

TEST_F(GenerateToolPath, ArcIsWrittenCounterClockwiseWithCentreOffsets) {
    host.select({arcObject(at(10, 0), 5, 0, kHalfPi)});
    EXPECT_EQ(generate(), absolute(approach("X15 Y0") + "G03 X10 Y5 I-5 J0 F300\n"));
}

TEST_F(GenerateToolPath, CircleStartsAndEndsAtItsRightmostPoint) {
    host.select({circleObject(at(0, 20), 3)});
    EXPECT_EQ(generate(), absolute(approach("X3 Y20") + "G03 X3 Y20 I-3 J0 F300\n"));
}

TEST_F(GenerateToolPath, PointIsApproachedWithABlankAfterTheTravelAndPlunged) {
    host.select({pointObject(at(3, 4))});
    EXPECT_EQ(generate(), absolute("G01 Z5 F100\nG0 Z10\nG0 X3 Y4 \nG0 Z5\nG01 Z-1 F100\n"));
}

TEST_F(GenerateToolPath, WalkGoesOnFromACirclesCentre) {
    // The rim's start (21,0) is nearer to (20,0), the centre (1,0) to (0,5).
    host.select({circleObject(at(1, 0), 20), pointObject(at(20, 0)), pointObject(at(0, 5))});
    EXPECT_EQ(generate(), absolute(approach("X21 Y0") + "G03 X21 Y0 I-20 J0 F300\n" +
                                   "G01 Z5 F100\nG0 Z10\nG0 X0 Y5 \nG0 Z5\nG01 Z-1 F100\n" +
                                   "G01 Z5 \nG0 Z10\nG0 X20 Y0 \nG0 Z5\nG01 Z-1 \n"));
}

TEST_F(GenerateToolPath, ToolStateKeepsThePositionFromBeforeAnArc) {
    // The line begins where the arc ends, and is approached all the same.
    host.select({arcObject(at(10, 0), 5, 0, kHalfPi), lineObject(at(10, 5), at(10, 30))});
    EXPECT_EQ(generate(), absolute(approach("X15 Y0") + "G03 X10 Y5 I-5 J0 F300\n" +
                                   approach("X10 Y5") + "G01 X10 Y30 F300\n"));
}

TEST_F(GenerateToolPath, RelativeLineIsADifferenceToTheLastPointAndToItsOwnStart) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({lineObject(at(1, 2), at(4, 6)), lineObject(at(4, 6), at(5, 6))});
    EXPECT_EQ(generate(), relative(approach("X1 Y2") + "G01 X3 Y4 F300\n" + approach("X0 Y0") +
                                   "G01 X1 Y0 F300\n"));
}

TEST_F(GenerateToolPath, RelativeMoveOfAHundredthOrLessBecomesZero) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({lineObject(at(0, 0), at(0.005, 10))});
    EXPECT_EQ(generate(), relative("G01 X0 Y10 F300\n"));
}

TEST_F(GenerateToolPath, AbsoluteCoordinatesAreNotRounded) {
    host.select({lineObject(at(0, 0), at(0.005, 10.00004))});
    EXPECT_EQ(generate(), absolute("G01 X0.005 Y10 F300\n"));
    host.select({lineObject(at(0, 0), at(0.00501, 9.99994))});
    EXPECT_EQ(generate(), absolute("G01 X0.00501 Y9.99994 F300\n"));
}

TEST_F(GenerateToolPath, RelativePointIsADifferenceToTheLastPoint) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({pointObject(at(3, 4)), pointObject(at(5, 9))});
    EXPECT_EQ(generate(), relative("G01 Z5 F100\nG0 Z10\nG0 X3 Y4 \nG0 Z5\nG01 Z-1 F100\n"
                                   "G01 Z5 \nG0 Z10\nG0 X2 Y5 \nG0 Z5\nG01 Z-1 \n"));
}

TEST_F(GenerateToolPath, RelativeArcTurnsItsEndsButCountsOffsetsFromTheAbsoluteStart) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({lineObject(at(1, 2), at(4, 6)), arcObject(at(10, 0), 5, 0, kHalfPi)});
    EXPECT_EQ(generate(), relative(approach("X1 Y2") + "G01 X3 Y4 F300\n" + approach("X11 Y-6") +
                                   "G03 X-5 Y5 I-5 J0 F300\n"));
}

TEST_F(GenerateToolPath, RelativeLineJoinedToAnArcFromTheOriginStartsAtTheUnchangedToolState) {
    combo("unitComboBox")->setCurrentText("Relative");
    host.select({arcObject(at(10, 0), 5, 0, kHalfPi), lineObject(at(10, 5), at(10, 30))});
    // The state still holds (0,0), and the line's difference to the arc's end is (0,0) as well.
    EXPECT_EQ(generate(), relative(approach("X15 Y0") + "G03 X-5 Y5 I-5 J0 F300\nG01 X0 Y25 \n"));
}

TEST_F(GenerateToolPath, StartCoordinateNearZeroCountsAsZeroForTheCentreOffset) {
    // The circle starts at x = 0.005: the offset is counted from 0, though X is written as it is.
    host.select({circleObject(at(-4.995, 3), 5)});
    EXPECT_EQ(generate(), absolute(approach("X0.005 Y3") + "G03 X0.005 Y3 I-4.995 J0 F300\n"));
}

TEST_F(GenerateToolPath, ObjectsWithoutAToolPathWriteNothing) {
    host.select({polyLineObject(), noteObject(), ellipseArcObject()});
    EXPECT_EQ(generate(), absolute(""));
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 3 "));
}

TEST_F(GenerateToolPath, ObjectsThatAreNotOfTheirKindsClassWriteNothing) {
    host.select({impostor(kxLineType), impostor(kxCircleArcType), impostor(kxCircleType),
                 impostor(kxPointType), impostor(kxPolyLineType)});
    EXPECT_EQ(generate(), absolute(""));
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 5 "));
}

TEST_F(GenerateToolPath, AnUnsupportedTypeAtTheHeadSendsTheWalkBackToTheOrigin) {
    // After (1,0) nothing is nearer than the note at the origin; from there (-2.5,0) is nearer
    // than (3,0), which it is not from (1,0).
    host.select(
        {pointObject(at(1, 0)), noteObject(), pointObject(at(3, 0)), pointObject(at(-2.5, 0))});
    EXPECT_EQ(generate(), absolute("G01 Z5 F100\nG0 Z10\nG0 X1 Y0 \nG0 Z5\nG01 Z-1 F100\n"
                                   "G01 Z5 \nG0 Z10\nG0 X-2.5 Y0 \nG0 Z5\nG01 Z-1 \n"
                                   "G01 Z5 \nG0 Z10\nG0 X3 Y0 \nG0 Z5\nG01 Z-1 \n"));
}

TEST_F(GenerateToolPath, UnreadableNumbersCountAsZero) {
    put("zSafeHeightEdit", "abc");
    put("zRetractEdit", "1,5");
    put("depthOfCut", "");
    put("feedRateXY", "-");
    host.select({pointObject(at(3, 4))});
    EXPECT_EQ(generate(), absolute("G01 Z0 F100\nG0 Z0\nG0 X3 Y4 \nG0 Z0\nG01 Z0 F100\n"));
}

TEST_F(GenerateToolPath, ValuesBeyondTheValidatorsBoundsAreUsedAsTheyAre) {
    put("zSafeHeightEdit", "1234.5678");
    put("zRetractEdit", "-5000");
    put("depthOfCut", "2");
    put("feedRateZ", "0.5");
    host.select({pointObject(at(3, 4))});
    EXPECT_EQ(generate(),
              absolute("G01 Z1234.57 F0.5\nG0 Z-5000\nG0 X3 Y4 \nG0 Z1234.57\nG01 Z2 F0.5\n"));
}

TEST_F(GenerateToolPath, EachProgramStartsFromNothing) {
    host.select({lineObject(at(0, 0), at(10, 5))});
    const std::string first = generate();
    EXPECT_EQ(generate(), first);
}

TEST_F(GenerateToolPath, FieldsAreReadAnewEachTime) {
    host.select({lineObject(at(0, 0), at(10, 5))});
    generate();
    put("feedRateXY", "250");
    EXPECT_EQ(generate(), absolute("G01 X10 Y5 F250\n"));
}

TEST_F(GenerateToolPath, TypedTextsGoIntoTheProgramAsUtf8) {
    textBox("textEdit")->setPlainText(QString::fromUtf8("; Fräsen ✓"));
    EXPECT_EQ(generate(), "; Fräsen ✓\nG90\nG0 X0Y0\nPOST\n");
}

TEST_F(GenerateToolPath, ModeOfMotionComesFromTheCombosExactText) {
    combo("unitComboBox")->setItemText(0, "relative");
    combo("unitComboBox")->setCurrentIndex(0);
    EXPECT_EQ(generate(), absolute(""));
}

TEST_F(GenerateToolPath, InchesChangeThePreambleAndNoNumber) {
    textBox("textEdit")->setPlainText("G21");
    host.select({lineObject(at(0, 0), at(25.4, 0))});
    click("inchRadioButton");
    EXPECT_EQ(generate(), "G20\nG90\nG0 X0Y0\nG01 X25.4 Y0 F300\nPOST\n");
}

TEST(PanelWithoutApplication, WritesPreambleAndPostscriptAndPrintsNothing) {
    QWidget parent;
    GCodeWidget panel(nullptr, &parent);
    const QSignalSpy programs(&panel, &GCodeWidget::GCodeGenFinish);
    panel.findChild<QTextEdit*>("textEdit")->setPlainText("PRE");
    panel.findChild<QTextEdit*>("postambleTextEdit")->setPlainText("POST");
    panel.findChild<QComboBox*>("comboBox")->setCurrentIndex(1);
    panel.GenerateGCode();
    ASSERT_EQ(programs.count(), 1);
    EXPECT_EQ(programs.at(0).at(0).toString(), QString("PRE\nG91\nG0 X0Y0\nPOST\n"));
    EXPECT_FALSE(panel.GetKXSelectionManager());
    EXPECT_TRUE(panel.GetListOfEntities().empty());
}
