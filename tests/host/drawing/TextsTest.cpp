// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "drawing/DxfDiagnostic.h"
#include "drawing/DxfText.h"
#include "drawing/ImportReport.h"
#include "drawing/Numbers.h"
#include "drawing/Units.h"

namespace kxdrawing {
namespace {

TEST(Numbers, Reals_are_whole_texts) {
    EXPECT_EQ(parseReal(" -1.5e3 "), -1500);
    EXPECT_EQ(parseReal("+2"), 2);
    EXPECT_EQ(parseReal("1e-400"), 0);
    EXPECT_TRUE(std::isinf(*parseReal("1e400")));
    EXPECT_TRUE(std::isnan(*parseReal("nan")));
    for (const char* const bad : {"", " ", "1,5", "1.5x", "+", "-", "+-2", "e5"}) {
        EXPECT_FALSE(parseReal(bad)) << bad;
    }
}

TEST(Numbers, Integers_may_have_an_empty_fraction) {
    EXPECT_EQ(parseInt("  -7"), -7);
    EXPECT_EQ(parseInt("3.0"), 3);
    for (const char* const bad : {"", "3.5", "2147483648", "1e20", "nan", "x", "++3"}) {
        EXPECT_FALSE(parseInt(bad)) << bad;
    }
}

TEST(DxfDiagnostic, What_is_not_known_is_not_shown) {
    EXPECT_EQ((DxfDiagnostic{"a.dxf", 12, "\"x\"", "a number"}).toText(),
              "a.dxf:12: \"x\"; expected a number");
    EXPECT_EQ((DxfDiagnostic{"a.dxf", 0, "a directory", ""}).toText(), "a.dxf: a directory");
}

TEST(DxfText, Escapes_and_signs_become_characters) {
    EXPECT_EQ(decodeText("\\U+00B0\\U+20AC"), "\u00B0\u20AC");
    EXPECT_EQ(decodeText("\\U+D800 \\U+12"), "\\U+D800 \\U+12");
    EXPECT_EQ(plainText("%%C5 %%p1 45%%d %%uline%%U 100%%"), "\u00D85 \u00B11 45\u00B0 line 100%%");
}

TEST(DxfText, Formats_of_multi_line_texts_vanish) {
    EXPECT_EQ(plainMultiLineText("{\\H2.5;big} \\Lunder\\l\\Pnext \\S1/2; \\\\ \\{x\\}"),
              "big under next 1/2 \\ {x}");
    EXPECT_EQ(plainMultiLineText("open \\Funfinished"), "open ");
    EXPECT_EQ(plainMultiLineText("end\\"), "end\\");
}

TEST(Units, Length_units_lead_to_inches_or_millimetres) {
    struct Row {
        int code;
        short unit;
        double scale;
    };
    for (const Row& row :
         {Row{1, 0, 1}, Row{2, 0, 12}, Row{4, 1, 1}, Row{5, 1, 10}, Row{6, 1, 1000},
          Row{8, 0, 1e-6}, Row{9, 0, 1e-3}, Row{10, 0, 36}, Row{13, 1, 1e-3}, Row{14, 1, 100}}) {
        const UnitDecision decision = decideUnit(row.code, 0);
        EXPECT_EQ(decision.unit, row.unit) << row.code;
        EXPECT_EQ(decision.scale, row.scale) << row.code;
    }
}

TEST(Units, Without_a_length_unit_the_measurement_decides) {
    EXPECT_EQ(decideUnit(0, 0).unit, kUnitInches);
    EXPECT_EQ(decideUnit(0, 1).unit, kUnitMillimetres);
    EXPECT_EQ(decideUnit(std::nullopt, 0).unit, kUnitInches);
    EXPECT_EQ(decideUnit(std::nullopt, std::nullopt).note,
              "no unit in the file, millimetres assumed");
    EXPECT_FALSE(decideUnit(std::nullopt, std::nullopt).isKnown);
    EXPECT_TRUE(decideUnit(std::nullopt, 1).isKnown);
    EXPECT_TRUE(decideUnit(4, std::nullopt).isKnown);
    EXPECT_EQ(decideUnit(77, 0).note, "$INSUNITS 77 is unknown; unit: inches (from $MEASUREMENT)");
}

TEST(ImportReport, Rows_are_added_up_and_the_table_is_aligned) {
    ImportReport report;
    report.add({"LINE", "Fr\u00E4s", ImportOutcome::Read, "", 1, 1});
    report.add({"LINE", "Fr\u00E4s", ImportOutcome::Read, "", 1, 1});
    report.add({"HATCH", "0", ImportOutcome::LeftOut, "filled area", 1, 0});
    report.add({"INSERT", "0", ImportOutcome::Converted, "objects of the block", 1, 12});
    report.addInBlock({"CIRCLE", "0", ImportOutcome::LeftOut, "radius", 3, 0});
    report.addNote("unit: inches");
    EXPECT_EQ(report.toText(),
              "Type    Layer  Outcome    Count  Objects  Detail\n"
              "HATCH   0      left out       1        0  filled area\n"
              "INSERT  0      converted      1       12  objects of the block\n"
              "LINE    Fr\u00E4s   read           2        2\n"
              "Total: 4 entities: 2 read, 1 converted, 1 left out; 14 objects\n"
              "Inside of block inserts:\n"
              "Type    Layer  Outcome   Count  Objects  Detail\n"
              "CIRCLE  0      left out      3        0  radius\n"
              "Note: unit: inches\n");
    EXPECT_EQ(report.totals().entities(), 4);
}

}  // namespace
}  // namespace kxdrawing
