// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

constexpr char kDefaultPreamble[] =
    "M3     ; Start spindle clockwise (looking from above down)\nS6000  ; Spindle RPM\n"
    "G4 P60 ; wait for 60 seconds\nS12000 ;\nG4 P60 ;\nG21    ; Units in mm\n";
constexpr char kDefaultPostscript[] = "G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program\n";

const QByteArray kPoint = "0\nPOINT\n8\n0\n10\n10\n20\n20\n30\n0\n";
const QByteArray kSecondPoint = "0\nPOINT\n8\n0\n10\n30\n20\n5\n30\n0\n";
const QByteArray kNote = "0\nTEXT\n8\n0\n10\n0\n20\n0\n30\n0\n40\n2\n1\nhello\n";
const QByteArray kPolyline =
    "0\nLWPOLYLINE\n8\n0\n90\n3\n70\n0\n10\n0\n20\n0\n10\n5\n20\n0\n10\n5\n20\n5\n";

QStringList drillSettings() {
    return {"--mode",           "drill", "--drill-depth", "-2",
            "--retract-height", "1",     "--drill-feed",  "100"};
}

TEST(Program, IsPreambleMotionModeStartToolPathAndPostscript) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(lineEntity(1, 2, 10, 5)));
    const CommandRun run = runProgram(QStringList{drawing} + toolPathSettings());
    EXPECT_EQ(run.output, QByteArray(kDefaultPreamble) +
                              "G90\nG0 X0Y0\nG01 Z2 F100\nG0 Z10\nG0 X1 Y2\nG0 Z2\nG01 Z-1 F100\n"
                              "G01 X10 Y5 F300\n" +
                              kDefaultPostscript);
}

TEST(Program, DrillsTheSelectedPoints) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(kPoint + kSecondPoint));
    const CommandRun run = runProgram(QStringList{drawing} + drillSettings());
    EXPECT_EQ(run.output, QByteArray(kDefaultPreamble) +
                              "G90\nG0 X0Y0\nX10 Y20\nG81 Z-2R1F100\nX30 Y5\nG80\n" +
                              kDefaultPostscript);
}

TEST(Program, IsNotWrittenWhenADrillCycleMeetsALine) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(kPoint + lineEntity(0, 0, 1, 1)));
    const CommandRun run = runProgram(QStringList{drawing} + drillSettings());
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.output, "");
    EXPECT_NE(run.messages.indexOf("Only circles or points are valid for drill cycle "), -1);
    const CommandRun filtered =
        runProgram(QStringList{drawing, "--type", "point"} + drillSettings());
    EXPECT_EQ(filtered.code, 0) << filtered.messages.constData();
}

TEST(Program, TakesPreambleAndPostscriptFromFilesAndTheUnitRewritesThem) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(kPoint));
    const QString begin =
        work.write("begin.txt", "\xEF\xBB\xBFG21 ; Comment \xC3\xA4 in mm\r\nM3\r\n");
    const QString end = work.write("end.txt", "M30\n");
    const CommandRun run = runProgram(
        QStringList{drawing, "--preamble", begin, "--postscript", end, "--unit", "inch"} +
        drillSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(run.output,
              "G20 ; Coinchent \xC3\xA4 in inch\nM3\nG90\nG0 X0Y0\nX10 Y20\n"
              "G81 Z-2R1F100\nG80\nM30\n");
}

TEST(Program, NamesTheLineOfAPreambleThatIsNoText) {
    const WorkFolder work;
    const QString begin = work.write("begin.txt", "M3\nS\xFF\n");
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--preamble", begin} + toolPathSettings());
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.messages.indexOf("begin.txt:2: "), -1) << run.messages.constData();
}

TEST(Program, IsNotCutShortByAZeroByteInThePreamble) {
    const WorkFolder work;
    const QString begin = work.write("begin.txt", QByteArray("M3\nG2\0G21\n", 10));
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--preamble", begin} + toolPathSettings());
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.messages.indexOf("begin.txt:2: a zero byte"), -1) << run.messages.constData();
}

TEST(Program, TakesTheUnitOfTheDrawing) {
    const WorkFolder work;
    const QByteArray inches =
        "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n1\n0\nENDSEC\n" + drawingOf(kPoint);
    const CommandRun run = runProgram(QStringList{work.write("a.dxf", inches)} + drillSettings());
    EXPECT_NE(run.output.indexOf("G20    ; Units in inch\n"), -1) << run.messages.constData();
    const CommandRun forced =
        runProgram(QStringList{work.path("a.dxf"), "--unit", "mm"} + drillSettings());
    EXPECT_NE(forced.output.indexOf("G21    ; Units in mm\n"), -1);
}

TEST(Program, StartsWithTheCommentAndNumbersTheLines) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(kPoint));
    const CommandRun run = runProgram(
        QStringList{drawing, "--comment", "(part 7)", "--line-numbers"} + drillSettings());
    EXPECT_TRUE(run.output.startsWith("N5 (part 7)\nN10 M3 ")) << run.output.constData();
    EXPECT_NE(run.output.indexOf("\nN45 G0 X0Y0\nN50 X10 Y20\n"), -1) << run.output.constData();
}

TEST(Program, IsTheSameWhetherThePanelGivesItOutOrSavesIt) {
    const WorkFolder work;
    const QStringList arguments =
        QStringList{example("flange.dxf"), "--preamble",
                    work.write("begin.txt", "; \xC3\xA4\tb  \n\n\xF0\x9F\x94\xA9\xC2\xA0G21"),
                    "--postscript", work.write("end.txt", "")} +
        toolPathSettings();
    const CommandRun givenOut = runProgram(arguments);
    const CommandRun saved = runProgram(arguments + QStringList{"--comment", "first"});
    EXPECT_EQ(givenOut.code, 0) << givenOut.messages.constData();
    EXPECT_EQ("first\n" + givenOut.output, saved.output);
}

TEST(Program, KeepsAMarkAtTheBeginningOfThePreambleAsThePanelDoes) {
    const WorkFolder work;
    const QByteArray mark = "\xEF\xBB\xBF";
    // Reading the file drops one, the unit's click another.
    const QString preamble = work.write("begin.txt", mark + mark + mark + "M3");
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--preamble", preamble} + toolPathSettings());
    EXPECT_TRUE(run.output.startsWith(mark + "M3\n")) << run.output.left(20).toHex().constData();
}

TEST(Program, WritesDifferencesInRelativeMotion) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(kPoint + kSecondPoint));
    const CommandRun run =
        runProgram(QStringList{drawing, "--motion", "relative"} + drillSettings());
    EXPECT_NE(run.output.indexOf("G91\nG0 X0Y0\nX10 Y20\nG81 Z-2R1F100\nX20 Y-15\nG80\n"), -1)
        << run.output.constData();
}

TEST(Program, SaysWhichSelectedObjectsGiveNoToolPath) {
    const WorkFolder work;
    const QString drawing =
        work.write("a.dxf", drawingOf(kNote + kPolyline + lineEntity(0, 0, 1, 1)));
    const CommandRun kept =
        runProgram(QStringList{drawing, "--no-explode", "--quiet"} + toolPathSettings());
    EXPECT_EQ(kept.code, 0);
    EXPECT_EQ(kept.messages, "2 of 3 selected objects give no tool path: 1 note, 1 polyline\n");
    const CommandRun exploded = runProgram(QStringList{drawing, "--quiet"} + toolPathSettings());
    EXPECT_EQ(exploded.messages, "1 of 4 selected objects give no tool path: 1 note\n");
    EXPECT_NE(exploded.output.indexOf("G01 X5 Y5 "), -1);
}

TEST(Program, IsNotWrittenWithoutAnythingToCut) {
    const WorkFolder work;
    const QString empty = work.write("empty.dxf", drawingOf({}));
    const QString notes = work.write("notes.dxf", drawingOf(kNote));
    for (const QString& drawing : {empty, notes}) {
        const CommandRun run = runProgram(QStringList{drawing} + toolPathSettings());
        EXPECT_EQ(run.code, 3);
        EXPECT_EQ(run.output, "");
        EXPECT_NE(run.messages.indexOf("nothing to write"), -1) << run.messages.constData();
    }
    const CommandRun layer =
        runProgram(QStringList{example("flange.dxf"), "--layer", "NONE"} + toolPathSettings());
    EXPECT_EQ(layer.code, 3);
    EXPECT_NE(layer.messages.indexOf("there is no layer NONE; there are: PLATE BORE HOLES"), -1)
        << layer.messages.constData();
}

TEST(Program, NamesFileLineAndCauseOfABrokenDrawing) {
    const WorkFolder work;
    const QString broken = work.write("broken.dxf", "0\nSECTION\n2\nENTITIES\n0\nEOF\n");
    const CommandRun run = runProgram(QStringList{broken} + toolPathSettings());
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.messages.indexOf("broken.dxf:"), -1) << run.messages.constData();
    EXPECT_NE(run.messages.indexOf("ENDSEC"), -1) << run.messages.constData();
    EXPECT_EQ(runProgram(QStringList{work.path("none.dxf")} + toolPathSettings()).code, 2);
    EXPECT_EQ(runProgram(QStringList{work.path("")} + toolPathSettings()).code, 2);
}

TEST(Program, ReportsWhatWasReadFromTheDrawing) {
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--report"} + toolPathSettings());
    EXPECT_EQ(run.code, 0);
    for (const char* word : {"LINE", "ARC", "CIRCLE", "POINT", "PLATE", "HOLES"}) {
        EXPECT_NE(run.messages.indexOf(word), -1) << word << run.messages.constData();
    }
}

TEST(Program, SaysWhenTheAddinIsMissing) {
    const CommandRun run = runProgram(
        QStringList{example("flange.dxf"), "--addin", "/nowhere/addin.so"} + toolPathSettings());
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.messages.indexOf("/nowhere/addin.so"), -1) << run.messages.constData();
}

}  // namespace
