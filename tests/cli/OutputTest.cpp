// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "CommandRun.h"

namespace {

TEST(Output, IsTheSameInAFileAndOnStandardOutput) {
    const WorkFolder work;
    const QStringList arguments = QStringList{example("flange.dxf")} + toolPathSettings();
    const CommandRun shown = runProgram(arguments);
    const CommandRun written = runProgram(arguments + QStringList{"-o", work.path("a.nc")});
    EXPECT_EQ(shown.code, 0);
    EXPECT_EQ(written.code, 0);
    EXPECT_TRUE(written.output.isEmpty());
    EXPECT_FALSE(shown.output.isEmpty());
    EXPECT_EQ(contentOf(work.path("a.nc")), shown.output);
    EXPECT_NE(written.messages.indexOf("Written: "), -1);
}

TEST(Output, ReplacesAnExistingFile) {
    const WorkFolder work;
    const QString file = work.write("a.nc", "old");
    EXPECT_EQ(runProgram(QStringList{example("flange.dxf"), "-o", file} + toolPathSettings()).code,
              0);
    EXPECT_TRUE(contentOf(file).startsWith("M3 "));
}

TEST(Output, KeepsAnExistingFileWhenThereIsNoNewOne) {
    const WorkFolder work;
    const QString file = work.write("a.nc", "old");
    const QString broken = work.write("broken.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8");
    const QString empty = work.write("empty.dxf", drawingOf({}));
    EXPECT_EQ(runProgram(QStringList{broken, "-o", file} + toolPathSettings()).code, 2);
    EXPECT_EQ(runProgram(QStringList{empty, "-o", file} + toolPathSettings()).code, 3);
    EXPECT_EQ(contentOf(file), "old");
}

TEST(Output, NamesAPlaceThatCantBeWritten) {
    const WorkFolder work;
    const QStringList places{work.path("missing/a.nc"), work.path(""), "/dev/full"};
    for (const QString& place : places) {
        const CommandRun run =
            runProgram(QStringList{example("flange.dxf"), "-o", place} + toolPathSettings());
        EXPECT_EQ(run.code, 4) << qPrintable(place) << run.messages.constData();
        EXPECT_NE(run.messages.indexOf(place.toUtf8()), -1) << run.messages.constData();
    }
}

TEST(Output, WritesToADeviceAndLeavesItADevice) {
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "-o", "/dev/null"} + toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    EXPECT_FALSE(QFileInfo("/dev/null").isFile());
}

TEST(Output, IsNeverAnInputOrTwoOutputsAtOnce) {
    const WorkFolder work;
    const QByteArray drawing = contentOf(example("flange.dxf"));
    const QString file = work.write("a.dxf", drawing);
    QFile::link(file, work.path("link.nc"));
    for (const QString& output : {file, work.path("link.nc"), work.path("./a.dxf")}) {
        const CommandRun run = runProgram(QStringList{file, "-o", output} + toolPathSettings());
        EXPECT_EQ(run.code, 1) << qPrintable(output);
        EXPECT_NE(run.messages.indexOf("is an input"), -1) << run.messages.constData();
    }
    EXPECT_EQ(contentOf(file), drawing);
}

TEST(Output, QuietPrintsNothingWhenAllIsWell) {
    const WorkFolder work;
    const CommandRun run =
        runProgram(QStringList{example("flange.dxf"), "--quiet", "-o", work.path("a.nc")} +
                   toolPathSettings());
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.messages, "");
}

}  // namespace
