// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "CommandRun.h"

namespace {

TEST(Options, NamesEveryHeightAndFeedThatAToolPathNeeds) {
    const CommandRun run = runProgram({example("flange.dxf"), "--feed-z", "100"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.messages,
              "kxgcode: needed for this mode and not given: --safe-height --retraction --depth "
              "--feed-xy\n");
}

TEST(Options, NamesWhatEachDrillCycleNeeds) {
    const QStringList drill{example("hole-plate.dxf"), "--mode", "drill", "--cycle"};
    EXPECT_EQ(runProgram(drill + QStringList{"g81"}).messages,
              "kxgcode: needed for this mode and not given: --drill-feed --drill-depth "
              "--retract-height\n");
    EXPECT_EQ(runProgram(drill + QStringList{"g82"}).messages,
              "kxgcode: needed for this mode and not given: --drill-feed --drill-depth "
              "--retract-height --dwell\n");
    EXPECT_EQ(runProgram(drill + QStringList{"g83"}).messages,
              "kxgcode: needed for this mode and not given: --drill-feed --drill-depth "
              "--retract-height --peck\n");
}

TEST(Options, RefusesWhatIsNoNumber) {
    for (const char* text : {"nan", "inf", "1,5", "0x10", "1e400", "ten", "", "2 "}) {
        const CommandRun run = runProgram(QStringList{example("flange.dxf")} + toolPathSettings() +
                                          QStringList{"--depth", text});
        EXPECT_EQ(run.code, 1) << text;
        EXPECT_NE(run.messages.indexOf("--depth"), -1) << text << run.messages.constData();
    }
}

TEST(Options, RefusesAFeedOfZero) {
    for (const char* option : {"--feed-z", "--feed-xy", "--drill-feed", "--peck", "--tolerance"}) {
        const CommandRun run = runProgram({example("flange.dxf"), option, "0"});
        EXPECT_EQ(run.code, 1) << option;
        EXPECT_NE(run.messages.indexOf("not a number above 0"), -1) << run.messages.constData();
    }
}

TEST(Options, RefusesUnknownOptionsAndChoices) {
    EXPECT_EQ(runProgram({example("flange.dxf"), "--speed", "3"}).code, 1);
    EXPECT_EQ(runProgram({example("flange.dxf"), "--mode", "lathe"}).code, 1);
    EXPECT_EQ(runProgram({example("flange.dxf"), "--cycle", "g84"}).code, 1);
    EXPECT_EQ(runProgram({example("flange.dxf"), "--unit", "foot"}).code, 1);
    EXPECT_EQ(runProgram({example("flange.dxf"), "--type", "spline"}).code, 1);
    EXPECT_EQ(runProgram({}).code, 1);
}

TEST(Options, PrintsVersionAndHelpOnStandardOutput) {
    const CommandRun version = runProgram({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(version.output.startsWith("kxgcode 0."));
    const CommandRun help = runProgram({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.output.indexOf("--safe-height"), -1);
}

TEST(Options, TakesEachSettingFromAFileAndLetsTheCommandLineWin) {
    const WorkFolder work;
    const QString drawing = work.write("a.dxf", drawingOf(lineEntity(0, 0, 10, 5)));
    const QString config = work.write("a.toml",
                                      "safe-height = 5\nretraction = 10\ndepth = -1\nfeed-z = "
                                      "100\nfeed-xy = 300\ncomment = \"from the file\"\n");
    const CommandRun fromFile = runProgram({drawing, "--config", config});
    EXPECT_EQ(fromFile.code, 0) << fromFile.messages.constData();
    EXPECT_TRUE(fromFile.output.startsWith("from the file\nM3 "));
    EXPECT_NE(fromFile.output.indexOf("G01 X10 Y5 F300\n"), -1);
    const CommandRun overridden =
        runProgram({drawing, "--config", config, "--feed-xy", "450", "--comment", "typed"});
    EXPECT_TRUE(overridden.output.startsWith("typed\nM3 "));
    EXPECT_NE(overridden.output.indexOf("G01 X10 Y5 F450\n"), -1);
}

TEST(Options, TakesASettingsFileWithAByteOrderMarkAndLists) {
    const WorkFolder work;
    const QString config =
        work.write("a.toml", "\xEF\xBB\xBFlayer = [\"PLATE\", \"BORE\"]\ntype = \"circle\"\n");
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--config", config} + toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(run.output.count("G03 "), 2);
}

TEST(Options, TakesOneNameForEachLayerAndType) {
    const CommandRun run =
        runProgram(QStringList{"--layer", "plate", "--type", "LINE", example("flange.dxf")} +
                   toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_EQ(run.output.count("G01 X"), 4);
}

TEST(Options, NamesWhatIsWrongInASettingsFile) {
    const WorkFolder work;
    const QString config = work.write("a.toml", "depth = -1\n\n  sped = 5\n");
    const CommandRun unknown = runProgram({example("flange.dxf"), "--config", config});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_EQ(unknown.messages, "kxgcode: " + config.toUtf8() + ":3: 'sped' is no setting\n");
    const CommandRun missing =
        runProgram({example("flange.dxf"), "--config", work.path("none.toml")});
    EXPECT_EQ(missing.code, 2);
    EXPECT_NE(missing.messages.indexOf("none.toml"), -1) << missing.messages.constData();
}

}  // namespace
