// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/UnitText.h"

#include <gtest/gtest.h>

using GCode::textInInches;
using GCode::textInMillimetres;

TEST(UnitText, InchesRewriteTheUnitLineAndMillimetresRestoreIt) {
    EXPECT_EQ(textInInches("G21    ; Units in mm"), "G20    ; Units in inch");
    EXPECT_EQ(textInMillimetres("G20    ; Units in inch"), "G21    ; Units in mm");
}

TEST(UnitText, TheDefaultPreambleChangesInItsLastLineOnly) {
    const std::string before =
        "M3     ; Start spindle clockwise (looking from above down)\nS6000  ; Spindle RPM\n"
        "G4 P60 ; wait for 60 seconds\nS12000 ;\nG4 P60 ;\n";
    EXPECT_EQ(textInInches(before + "G21    ; Units in mm"), before + "G20    ; Units in inch");
    EXPECT_EQ(textInMillimetres(textInInches(before + "G21    ; Units in mm")),
              before + "G21    ; Units in mm");
}

TEST(UnitText, ReplacesInsideWordsToo) {
    EXPECT_EQ(textInInches("; Comment"), "; Coinchent");
    EXPECT_EQ(textInMillimetres("; pinched G203"), "; pmmed G213");
}

TEST(UnitText, ReplacesEveryOccurrence) {
    EXPECT_EQ(textInInches("G21G21 mm mmmm mmm"), "G20G20 inch inchinch inchm");
    EXPECT_EQ(textInMillimetres("G20 inchinch G20"), "G21 mmmm G21");
}

TEST(UnitText, IsCaseSensitive) {
    EXPECT_EQ(textInInches("g21 MM Mm"), "g21 MM Mm");
    EXPECT_EQ(textInMillimetres("g20 Inch INCH"), "g20 Inch INCH");
}

TEST(UnitText, LeavesATextInTheUnitAlone) {
    EXPECT_EQ(textInInches("G20 inch"), "G20 inch");
    EXPECT_EQ(textInMillimetres("G21 mm"), "G21 mm");
    EXPECT_EQ(textInInches(""), "");
    EXPECT_EQ(textInMillimetres(""), "");
}

TEST(UnitText, KeepsOtherBytesAndLineEnds) {
    EXPECT_EQ(textInInches("\xC3\xA4 mm\n\n"), "\xC3\xA4 inch\n\n");
}
