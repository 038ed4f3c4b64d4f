// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What random programs, held against another controller, prove at large, each rule by itself.
#include <gtest/gtest.h>

#include "ReadingText.h"

namespace {

struct Row {
    const char* name;
    const char* program;
    const char* steps;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.program;
}

class Motions : public testing::TestWithParam<Row> {};
TEST_P(Motions, AreThese) {
    EXPECT_EQ(stepsOf(GetParam().program), GetParam().steps);
}

const auto nameOf = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Straight, Motions,
    testing::Values(
        Row{"codeStays", "G1 X1 F60\nY2\nG0 Z3", "feed 1 0 0 F60 | feed 1 2 0 F60 | rapid 1 2 3"},
        Row{"relative", "G91 G0 X1\nX1\nG90 X1", "rapid 1 0 0 | rapid 2 0 0 | rapid 1 0 0"},
        Row{"inches", "G20 G0 X1\nG21 X1", "rapid 25.4 0 0 | rapid 1 0 0"},
        Row{"feedIsOfTheUnitBefore", "G20 F1\nF1\nG1 X1", "feed 25.4 0 0 F25.4"},
        Row{"g94LosesTheFeed", "F5\nG94\nG1 X1", " ! 3:1 feed-missing"},
        Row{"feedOfZero", "F0\nG1 X1", " ! 2:1 feed-missing"},
        Row{"inverseTimeOnEachLine", "G93 G1 X1 F2\nX2", "feed 1 0 0 F2 ! 2:1 feed-missing"},
        Row{"perRevolutionTakesASpeed", "G95 F1 G1 X1", " ! 1:8 spindle-missing"},
        Row{"machineCoordinates", "G92 X5\nG53 G0 X1\nG0 X5", "rapid 1 0 0 | rapid 0 0 0"},
        Row{"machineCoordinatesAreAbsolute", "G91 G53 G0 X1", " ! 1:5 mode-forbids"},
        Row{"home", "G0 X3 Y3\nG28 X5", "rapid 3 3 0 | rapid 5 3 0 | rapid 0 3 0"},
        Row{"homeAllAxes", "G0 X3\nG28.1\nX5 Y5\nG28",
            "rapid 3 0 0 | rapid 5 5 0 | rapid 5 5 0 | rapid 3 0 0"},
        Row{"coordinatesWithoutCode", "X1", " ! 1:1 axes-without-use"},
        Row{"coordinatesAfterG80", "G0 X1\nG80\nX1", "rapid 1 0 0 ! 3:1 axes-without-use"},
        Row{"polar", "G0 @2 ^90\nG91 ^90\n@1", "rapid 0 2 0 | rapid -2 0 0 | rapid -3 0 0"},
        Row{"polarAtTheOrigin", "G0 @2", " ! 1:4 mode-forbids"},
        Row{"polarInAnotherPlane", "G0 X1\nG18 @2\n@3",
            "rapid 1 0 0 | rapid 2 0 0 ! 3:1 mode-forbids"},
        Row{"polarBesideTheWordForItsPlane", "G0 X1 G18\nG17 @3", "rapid 1 0 0 ! 2:5 mode-forbids"},
        Row{"shiftIsSwitchedBehindItsSetting", "G92 X5 G92.2\nG0 X1\nG92.3 X0",
            "rapid 1 0 0 | rapid -5 0 0"},
        Row{"inverseTimeIsNeverSlowerThanATenthOfAUnit", "G93 G1 X1 F.05\nG20 X0 F.05",
            "feed 1 0 0 F0.1 | feed 0 0 0 F2.54"},
        Row{"inverseTimeOfACircle", "G93 G3 I1 F0\nI1 F.02",
            "arc 0 0 0 round 1 0 0 turns 1 F0.1 | arc 0 0 0 round 1 0 0 turns 1 F0.02"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    RadiusCompensation, Motions,
    testing::Values(
        Row{"besideALine", "F9\nG41.1 D4\nG1 X10\nX20\nG40\nX30",
            "feed 10 2 0 F9 | feed 20 2 0 F9 | feed 30 0 0 F9"},
        Row{"insideACorner", "F9\nG41.1 D4\nG1 X10\nX20\nY10\nG40",
            "feed 10 2 0 F9 | feed 18 2 0 F9 | feed 18 10 0 F9"},
        Row{"roundACorner", "F9\nG41.1 D4\nG1 X10\nX20\nY-10\nG40",
            "feed 10 2 0 F9 | feed 20 2 0 F9 | arc 22 0 0 round 20 0 0 turns -1 F9 | feed 22 -10 0 "
            "F9"},
        Row{"rapidRoundACorner", "F9\nG41.1 D4\nG1 X10\nX20\nG0 Y-10\nG40",
            "feed 10 2 0 F9 | feed 20 2 0 F9 | rapid 22 0 0 | rapid 22 -10 0"},
        Row{"insideAnArc", "F9\nG41.1 D4\nG1 X10\nG3 X20 Y10 J10\nG40",
            "feed 10 2 0 F9 | arc 18 10 0 round 10 10 0 turns 1 F9"},
        Row{"firstMoveIsAnArc", "F9\nG41.1 D4\nG3 X10 Y10 J10\nG40",
            "arc 8 10 0 round -2.25 10 0 turns 1 F9"},
        Row{"depthBetweenTwoMoves", "F9\nG41.1 D4\nG1 X10\nX20\nZ-1\nG4 P1\nY10\nG40",
            "feed 10 2 0 F9 | feed 18 2 0 F9 | feed 18 2 -1 F9 | dwell 1 | feed 18 10 -1 F9"},
        Row{"lastMoveIsDroppedWhereTheProgramStops", "F9\nG41.1 D4\nG1 X10\nX20\nY10 H1",
            "feed 10 2 0 F9 ! 5:5 word-without-use"},
        Row{"lastMoveIsDroppedWithoutAnEnd", "F9\nG41.1 D4\nG1 X10\nX20", "feed 10 2 0 F9"},
        Row{"stopSettlesTheMoveBefore", "F9\nG41.1 D4\nG1 X10\nX20\nM0\nY10\nG40",
            "feed 10 2 0 F9 | feed 20 2 0 F9 | stop | feed 18 10 0 F9"},
        Row{"tipOfALatheTool", "F9\nG18 G41.1 D4 L3\nG1 Z10\nZ20\nX10\nG40",
            "feed 4 0 8 F9 | feed 4 0 16 F9 | feed 12 0 16 F9"},
        Row{"shapeInThePlaneOfAMill", "F9\nG41.1 D4 L3", " ! 2:10 word-without-use"},
        Row{"tipBeforeAnArc", "F9\nG18 G41.1 D4 L3\nG3 Z10 X10 I10", " ! 3:1 not-interpreted-code"},
        Row{"onTwice", "F9\nG41.1 D4\nG42", " ! 3:1 compensation-on"},
        Row{"plane", "F9\nG41.1 D4\nG40\nG19 G41.1 D4", " ! 4:5 compensation-plane"},
        Row{"planeChanges", "F9\nG41.1 D4\nG18", " ! 3:1 compensation-forbids"},
        Row{"unitChanges", "F9\nG41.1 D4\nG20", " ! 3:1 not-interpreted-code"},
        Row{"sameUnit", "F9\nG41.1 D4\nG21\nG1 X10\nG40", "feed 10 2 0 F9"},
        Row{"systemChanges", "F9\nG41.1 D4\nG55", " ! 3:1 compensation-forbids"},
        Row{"offBeforeTheSystem", "F9\nG41.1 D4\nG1 X10\nG40 G55", "feed 10 2 0 F9"},
        Row{"onBeforeTheSystem", "F9\nG41.1 D4\nG40\nG41.1 D4 G55", " ! 4:10 compensation-forbids"},
        Row{"toolChanges", "F9\nG41.1 D4\nM6", " ! 3:1 compensation-forbids"},
        Row{"toolNumberChanges", "F9\nG41.1 D4\nM61 Q1", " ! 3:1 not-interpreted-code"},
        Row{"cycle", "F9\nG41.1 D4\nG81 X1 Z-1 R1", " ! 3:1 compensation-forbids"},
        Row{"cycleThatIsInForce", "F9\nG81 Z0 R0\nG41.1 D4\nX1",
            "rapid 0 0 0 | feed 0 0 0 F9 | rapid 0 0 0 ! 4:1 compensation-forbids"},
        Row{"radiusWithoutUseBesideADiameter", "F9\nG41.1 D4 R1\nG1 X10\nG40", "feed 10 2 0 F9"},
        Row{"machineCoordinates", "F9\nG41.1 D4\nG53 G0 X1", " ! 3:1 compensation-forbids"},
        Row{"entryTooShort", "F9\nG41.1 D4\nG1 X2", " ! 3:1 compensation-entry-short"},
        Row{"entryTooShortArc", "F9\nG41.1 D4\nG3 X1.4 Y1.4 R50",
            " ! 3:1 compensation-entry-short"},
        Row{"entryDown", "F9\nG41.1 D4\nG1 Z-5", " ! 3:1 compensation-entry-short"},
        Row{"arcTooSmall", "F9\nG41.1 D4\nG1 X10\nG3 X10 Y3.9 R1.96",
            " ! 4:1 compensation-arc-too-small"},
        Row{"noRoom", "F9\nG41.1 D4\nG1 X10\nG3 X10 Y4.1 R2.05\nG1 Y0",
            "feed 10 2 0 F9 ! 5:1 compensation-no-room"},
        Row{"gouge", "F9\nG41.1 D4\nG1 X10\nX20\nY1\nX30",
            "feed 10 2 0 F9 | feed 18 2 0 F9 ! 6:1 compensation-gouge"},
        Row{"arcBehindG40", "F9\nG41.1 D4\nG1 X10\nG40\nG2 X20 I5",
            "feed 10 2 0 F9 ! 5:1 compensation-exit-arc"},
        Row{"radiusMissing", "F9\nG41.1 D4\nG40\nG41.1", " ! 4:1 word-missing"},
        Row{"radiusWithoutUse", "F9\nG41.1 D4\nG1 X3 D1", " ! 3:7 word-without-use"},
        Row{"toolNotListed", "F9\nG41.1 D4\nG40\nG41 D1", " ! 4:1 not-interpreted-code"},
        Row{"restoredModes", "F9\nG41.1 D4\nM70\nM72", " ! 4:1 not-interpreted-code"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    SavedModes, Motions,
    testing::Values(
        Row{"comeBack", "F9\nM70\nG91 F5\nM72\nG1 X1\nX2", "feed 1 0 0 F9 | feed 2 0 0 F9"},
        Row{"moreThanOnce", "F9\nM70\nF5\nM72\nF6\nM72\nG1 X1", "feed 1 0 0 F9"},
        Row{"theMotionCodeStays", "F9 G1 X1\nM70\nG0 X2\nM72\nX3",
            "feed 1 0 0 F9 | rapid 2 0 0 | rapid 3 0 0"},
        Row{"unitAndItsFeed", "F9\nM70\nG20\nF1\nM72\nG1 X1", "feed 1 0 0 F9"},
        Row{"feedHasOneDecimal", "F9.26\nM70\nF1\nM72\nG1 X1", "feed 1 0 0 F9.3"},
        Row{"noFeedOutOfInverseTime", "F9\nM70\nG93\nM72\nG1 X1", " ! 5:1 feed-missing"},
        Row{"spindle", "M3 S9\nM70\nM5 S5\nM72",
            "spindle 0 9 | spindle 1 9 | spindle 1 5 | spindle 0 5 | spindle 0 9 | spindle 1 9"},
        Row{"coolantThatWasOnIsOn", "M8\nM70\nM9\nM7\nM72",
            "coolant 2 | coolant 0 | coolant 1 | coolant 3"},
        Row{"plane", "F9\nM70\nG18\nM72\nG2 X2 I1", "arc 2 0 0 round 1 0 0 turns -1 F9"},
        Row{"systemButNotItsOrigin", "M70\nG55\nG10 L2 P1 X5\nM72\nG0 X1", "rapid 6 0 0"},
        Row{"shiftIsOffOrOnAgain", "M70\nG92 X5\nM72\nG0 X1\nG92.3\nM70\nG92.2\nM72\nG0 X1",
            "rapid 1 0 0 | rapid -4 0 0"},
        Row{"valuesOfTheirLine", "F9 M70\nF5\nM72\nG1 X1", "feed 1 0 0 F9"},
        Row{"notSaved", "M72", " ! 1:1 modes-not-saved"},
        Row{"forgotten", "M70\nM71\nM72", " ! 3:1 modes-not-saved"},
        Row{"savedForACallersUse", "F9\nM73\nF5\nM72\nG1 X1", "feed 1 0 0 F9"},
        Row{"besideTheSpindle", "M3 M70", " ! 1:4 same-modal-group"},
        Row{"restoreHasALineOfItsOwn", "M70\nM72 G0 X1", " ! 2:1 not-interpreted-code"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Arcs, Motions,
    testing::Values(
        Row{"centre", "F9\nG2 X10 I5", "arc 10 0 0 round 5 0 0 turns -1 F9"},
        Row{"counterClockwise", "F9\nG3 X10 I5", "arc 10 0 0 round 5 0 0 turns 1 F9"},
        Row{"absoluteCentre", "F9\nG0 X1\nG90.1 G2 X3 I2 J0",
            "rapid 1 0 0 | arc 3 0 0 round 2 0 0 turns -1 F9"},
        Row{"absoluteCentreHasBothWords", "F9\nG90.1 G2 X3 I2", " ! 2:7 word-missing"},
        Row{"fullCircle", "F9\nG3 I5", "arc 0 0 0 round 5 0 0 turns 1 F9"},
        Row{"turns", "F9\nG2 X10 I5 P3", "arc 10 0 0 round 5 0 0 turns -3 F9"},
        Row{"helix", "F9\nG2 I5 Z-2", "arc 0 0 -2 round 5 0 0 turns -1 F9"},
        Row{"planeZX", "F9\nG18 G2 Z10 K5", "arc 0 0 10 round 0 0 5 turns -1 F9"},
        Row{"planeYZ", "F9\nG19 G3 Y10 J5", "arc 0 10 0 round 0 5 0 turns 1 F9"},
        Row{"radiusTakesTheShorterWay", "F9\nG3 X8 R5", "arc 8 0 0 round 4 3 0 turns 1 F9"},
        Row{"negativeRadiusTheLonger", "F9\nG3 X8 R-5", "arc 8 0 0 round 4 -3 0 turns 1 F9"},
        Row{"halfTurnByRadius", "F9\nG2 X10 R4.9995", "arc 10 0 0 round 5 0 0 turns -1 F9"},
        Row{"radiusTooSmall", "F9\nG2 X10 R4.998", " ! 2:8 arc-radius-too-small"},
        Row{"besideADwell", "F9\nG4 P1 G2 X1 I.5", " ! 2:7 codes-clash"},
        Row{"behindADwell", "F9\nG2 X1 I.5\nG4 P1 X2 I.5",
            "arc 1 0 0 round 0.5 0 0 turns -1 F9 | dwell 1 | arc 2 0 0 round 1.5 0 0 turns -1 F9"},
        Row{"radiusOfZero", "F9\nG2 X.001 R0", " ! 2:10 arc-radius-too-small"},
        Row{"radiusOfAFullCircle", "F9\nG2 X0 R5", " ! 2:7 arc-radius-zero"},
        Row{"radiiWithinTheTolerance", "F9\nG2 X10.028 I5",
            "arc 10.028 0 0 round 5 0 0 turns -1 F9"},
        Row{"radiiDiffer", "F9\nG2 X10.029 I5", " ! 2:1 arc-radii-differ"},
        Row{"aThousandthOfLargeRadii", "F9\nG2 X2000.9 I1000",
            "arc 2000.9 0 0 round 1000 0 0 turns -1 F9"},
        Row{"noCentre", "F9\nG2 X10", " ! 2:1 arc-without-centre"},
        Row{"bothForms", "F9\nG2 X10 I5 R5", " ! 2:11 arc-forms-mixed"},
        Row{"offsetOfAnotherPlane", "F9\nG2 X10 I5 K1", " ! 2:11 word-without-use"},
        Row{"noTurns", "F9\nG2 I5 P0", " ! 2:7 number-out-of-range"},
        Row{"thousandMillionsOfTurns", "F9\nG2 I5 P2000000000",
            "arc 0 0 0 round 5 0 0 turns -2000000000 F9"},
        Row{"moreTurnsThanAreCounted", "F9\nG2 I5 P3000000000", " ! 2:7 number-out-of-range"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Cycles, Motions,
    testing::Values(
        Row{"g81", "G0 Z5 F9\nG81 X1 Z-2 R1\nX2\nG80",
            "rapid 0 0 5 | rapid 1 0 5 | rapid 1 0 1 | feed 1 0 -2 F9 | rapid 1 0 1 | "
            "rapid 2 0 1 | feed 2 0 -2 F9 | rapid 2 0 1"},
        Row{"g98GoesToTheLevelBefore", "G0 Z5 F9\nG98 G81 X1 Z-2 R1",
            "rapid 0 0 5 | rapid 1 0 5 | rapid 1 0 1 | feed 1 0 -2 F9 | rapid 1 0 5"},
        Row{"upToRFirst", "F9\nG81 X1 Z-2 R1",
            "rapid 0 0 1 | rapid 1 0 1 | feed 1 0 -2 F9 | rapid 1 0 1"},
        Row{"g82Waits", "F9\nG82 X1 Z-2 R0 P.5",
            "rapid 1 0 0 | feed 1 0 -2 F9 | dwell 0.5 | rapid 1 0 0"},
        Row{"g83", "F9\nG83 X1 Z-2 R0 Q1.5",
            "rapid 1 0 0 | feed 1 0 -1.5 F9 | rapid 1 0 0 | rapid 1 0 -1.246 | "
            "feed 1 0 -2 F9 | rapid 1 0 0"},
        Row{"g73", "F9\nG73 X1 Z-2 R0 Q1.5",
            "rapid 1 0 0 | feed 1 0 -1.5 F9 | rapid 1 0 -1.246 | feed 1 0 -2 F9 | rapid 1 0 0"},
        Row{"g85", "G0 Z1 F9\nG98 G85 X1 Z-2 R0",
            "rapid 0 0 1 | rapid 1 0 1 | rapid 1 0 0 | feed 1 0 -2 F9 | feed 1 0 0 F9 | "
            "rapid 1 0 1"},
        Row{"g86", "F9 S5 M3\nG86 X1 Z-2 R0 P1",
            "spindle 0 5 | spindle 1 5 | rapid 1 0 0 | feed 1 0 -2 F9 | dwell 1 | spindle 0 5 | "
            "rapid 1 0 0 | spindle 1 5"},
        Row{"g89", "G0 Z1 F9\nG98 G89 X1 Z-2 R0 P1",
            "rapid 0 0 1 | rapid 1 0 1 | rapid 1 0 0 | feed 1 0 -2 F9 | dwell 1 | feed 1 0 1 F9"},
        Row{"relativeRepeats", "G91 F9\nG81 X1 Z-2 R0 L2",
            "rapid 1 0 0 | feed 1 0 -2 F9 | rapid 1 0 0 | rapid 2 0 0 | feed 2 0 -2 F9 | "
            "rapid 2 0 0"},
        Row{"laterRAboveTheToolIsReachedOnTheWay", "G0 Z5 F9\nG81 X1 Z-2 R1\nX2 R4\nX3 R0",
            "rapid 0 0 5 | rapid 1 0 5 | rapid 1 0 1 | feed 1 0 -2 F9 | rapid 1 0 1 | "
            "rapid 2 0 4 | feed 2 0 -2 F9 | rapid 2 0 4 | "
            "rapid 3 0 4 | rapid 3 0 0 | feed 3 0 -2 F9 | rapid 3 0 0"},
        Row{"laterG98GoesToTheLevelBefore", "G0 Z5 F9\nG81 X1 Z-2 R1\nG98 X2",
            "rapid 0 0 5 | rapid 1 0 5 | rapid 1 0 1 | feed 1 0 -2 F9 | rapid 1 0 1 | "
            "rapid 2 0 5 | rapid 2 0 1 | feed 2 0 -2 F9 | rapid 2 0 5"},
        Row{"laterG98FromAboveRGoesAcrossAsItIs", "G0 Z5 F9\nG81 X1 Z-2 R3\nG98 X2 R1",
            "rapid 0 0 5 | rapid 1 0 5 | rapid 1 0 3 | feed 1 0 -2 F9 | rapid 1 0 3 | "
            "rapid 2 0 3 | rapid 2 0 1 | feed 2 0 -2 F9 | rapid 2 0 5"},
        Row{"planeZX", "G18 F9\nG81 X1 Z1 Y-2 R0", "rapid 1 0 1 | feed 1 -2 1 F9 | rapid 1 0 1"},
        Row{"firstLineHasAllWords", "F9\nG81 X1 Z-2", " ! 2:1 word-missing"},
        Row{"rBelowTheBottom", "F9\nG81 X1 Z2 R1", " ! 2:1 cycle-retract-below"},
        Row{"noRepeats", "F9\nG81 X1 Z-2 R1 L0", " ! 2:15 cycle-repeats"},
        Row{"noPeck", "F9\nG83 X1 Z-2 R1 Q0", " ! 2:15 peck-not-positive"},
        Row{"inverseTime", "G93 F9 G81 X1 Z-2 R1", " ! 1:1 cycle-inverse-time"},
        Row{"rotaryAxes", "F9\nG81 A1 Z-2 R1", " ! 2:5 cycle-clash"},
        Row{"spindleOff", "F9\nG86 X1 Z-2 R0 P1", " ! 2:1 spindle-missing"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Offsets, Motions,
    testing::Values(Row{"g10L2", "G10 L2 P2 X10\nG0 X1\nG55 X1", "rapid 1 0 0 | rapid 11 0 0"},
                    Row{"g10L2OfTheSystemInForce", "G10 L2 P0 Y3\nG0 X0 Y0", "rapid 0 3 0"},
                    Row{"g10L20", "G0 X5\nG10 L20 P1 X1\nX0", "rapid 5 0 0 | rapid 4 0 0"},
                    Row{"rotation", "G10 L2 P1 R90\nG0 X1", "rapid 0 1 0"},
                    Row{"rotationBesideG52", "G0 X10\nG52 X3 Y2\nG10 L2 P1 R90\nG0 X0",
                        "rapid 10 0 0 | rapid 5 3 0"},
                    Row{"g92", "G0 X5\nG92 X1\nX0\nG92.2\nX0\nG92.3\nX0\nG92.1\nG92.3\nX0",
                        "rapid 5 0 0 | rapid 4 0 0 | rapid 0 0 0 | rapid 4 0 0 | rapid 0 0 0"},
                    Row{"g52", "G52 X2\nG0 X1\nG52 X0\nX1", "rapid 3 0 0 | rapid 1 0 0"},
                    Row{"lengthBesidesTakesNoCoordinates", "G43.2 H1 X1 G0", " ! 1:1 codes-clash"},
                    Row{"lengthByNumberBesideG80", "G43.1 X1 G80", " ! 1:7 axes-without-use"},
                    Row{"lengthByNumber", "G43.1 Z7\nG0 Z1\nG49 Z1", "rapid 0 0 8 | rapid 0 0 1"},
                    Row{"allSystems", "G10 L2 P9 X9\nG59.3 G0 X0\nG59 X1",
                        "rapid 9 0 0 | rapid 1 0 0"},
                    Row{"offsetWithoutCoordinates", "G92", " ! 1:1 axes-missing"},
                    Row{"systemTen", "G10 L2 P10 X1", " ! 1:1 offset-out-of-range"},
                    Row{"toolTable", "G10 L1 P1 Z1", " ! 1:1 not-interpreted-code"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Rest, Motions,
    testing::Values(Row{"order", "M0 G1 X1 F5 G4 P2 M3 S9 M8",
                        "spindle 0 9 | spindle 1 9 | coolant 2 | dwell 2 | feed 1 0 0 F5 | stop"},
                    Row{"toolChangeStopsTheSpindle", "M3 S1\nT2 M6",
                        "spindle 0 1 | spindle 1 1 | spindle 0 1 | tool 2"},
                    Row{"end", "G0 X1\nM30\nG0 X2", "rapid 1 0 0 | end"},
                    Row{"group", "G0 X1 G90 G91", " ! 1:11 same-modal-group"},
                    Row{"fiveMCodes", "M3 M7 M48 M6 M0", " ! 1:1 words-too-many"},
                    Row{"bothTakeTheCoordinates", "G28 G0 X1", " ! 1:5 codes-clash"},
                    Row{"dwellWithoutSeconds", "G4", " ! 1:1 word-missing"},
                    Row{"dwellWithX", "G4 X1", " ! 1:4 axes-without-use"}),
    nameOf);

}  // namespace

TEST(Motions, ToolsOfTheTableAloneWhenAsked) {
    gcode_check::MachineOptions options;
    options.anyTool = false;
    options.tools.push_back({3, 3, {0, 0, 20}, 6});
    EXPECT_EQ(stepsOf("T3 M6 G43\nG0 Z1", options), "spindle 0 0 | tool 3 | rapid 0 0 21");
    EXPECT_EQ(stopOf("T4", options), "1:1 tool-unknown");
    EXPECT_EQ(stopOf("T4"), "");
}

TEST(Motions, RotaryAxesStandBesideTheSteps) {
    const auto reading = gcode_check::read("G0 X1\nA90 B5\nX2\nA0 B0");
    ASSERT_EQ(reading.motions.size(), 4U);
    EXPECT_EQ(reading.motions[0].rotary, -1);
    ASSERT_EQ(reading.motions[1].rotary, 0);
    EXPECT_EQ(reading.rotaryAxes.at(0).a, 90);
    EXPECT_EQ(reading.rotaryAxes.at(0).b, 5);
    EXPECT_EQ(reading.motions[2].rotary, 0);
    EXPECT_EQ(reading.motions[3].rotary, -1);
}

TEST(Motions, CyclesSayWhatTheirStrokesAreFor) {
    using gcode_check::Stroke;
    const auto reading = gcode_check::read("G0 Z5 F9\nG98 G83 X1 Z-2 R1 Q2");
    std::vector<Stroke> strokes;
    for (const auto& motion : reading.motions) {
        strokes.push_back(motion.stroke);
        EXPECT_EQ(motion.cycle, motion.line == 1 ? 0 : 83);
    }
    EXPECT_EQ(strokes,
              (std::vector<Stroke>{Stroke::None, Stroke::Approach, Stroke::Approach, Stroke::Drill,
                                   Stroke::Peck, Stroke::Peck, Stroke::Drill, Stroke::Retract}));
}
