// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>

#include "CommandRun.h"

namespace {

bool hasDisplay() {
    return !qEnvironmentVariableIsEmpty("DISPLAY");
}

/// How many pixels of the picture are greener than anything else: the cut path.
int greenPixels(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            count += color.green() > 200 && color.red() < 100 && color.blue() < 100 ? 1 : 0;
        }
    }
    return count;
}

TEST(Preview, IsThePictureOfTheProgramThatWasWritten) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    const WorkFolder work;
    const CommandRun run = runProgram(QStringList{example("flange.dxf"), "-o", work.path("a.nc"),
                                                  "--preview", work.path("a.png")} +
                                      toolPathSettings());
    EXPECT_EQ(run.code, 0) << run.messages.constData();
    const QImage picture(work.path("a.png"));
    EXPECT_EQ(picture.width(), 270);
    EXPECT_GT(greenPixels(picture), 200);
    const CommandRun view =
        runProgram({"view", work.path("a.nc"), "--preview", work.path("b.png")});
    EXPECT_EQ(view.code, 0) << view.messages.constData();
    EXPECT_EQ(contentOf(work.path("b.png")), contentOf(work.path("a.png")));
}

TEST(Preview, DoesNotChangeTheProgram) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    const WorkFolder work;
    const QStringList arguments = QStringList{example("flange.dxf")} + toolPathSettings();
    const CommandRun plain = runProgram(arguments);
    const CommandRun pictured =
        runProgram(arguments + QStringList{"--preview", work.path("a.png")});
    EXPECT_EQ(pictured.output, plain.output);
}

TEST(Preview, NeedsADisplayAndNamesWhatGivesOne) {
    const WorkFolder work;
    const QStringList generate = QStringList{example("flange.dxf"), "-o", work.path("a.nc"),
                                             "--preview", work.path("a.png")} +
                                 toolPathSettings();
    const QStringList view{"view", example("flange.nc"), "--preview", work.path("a.png")};
    for (const QStringList& arguments : {generate, view}) {
        const CommandRun run = runWithoutDisplay(arguments);
        EXPECT_EQ(run.code, 4);
        EXPECT_NE(run.messages.indexOf("xvfb-run"), -1) << run.messages.constData();
    }
    EXPECT_TRUE(contentOf(work.path("a.nc")).isEmpty());
}

TEST(Preview, NamesADisplayThatIsNotThere) {
    const CommandRun run =
        runAtDisplay({"view", example("flange.nc"), "--preview", "a.png"}, ":987");
    EXPECT_EQ(run.code, 4);
    EXPECT_NE(run.messages.indexOf("none at :987"), -1) << run.messages.constData();
}

TEST(Preview, NamesAProgramThatCantBeRead) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    const WorkFolder work;
    for (const QString& program : {work.path("none.nc"), work.path("")}) {
        const CommandRun run = runProgram({"view", program, "--preview", work.path("a.png")});
        EXPECT_EQ(run.code, 2);
        EXPECT_NE(run.messages.indexOf(program.toUtf8()), -1) << run.messages.constData();
    }
}

TEST(Preview, NamesAPictureThatCantBeWritten) {
    if (!hasDisplay()) {
        GTEST_SKIP() << "there is no display";
    }
    const WorkFolder work;
    const CommandRun run =
        runProgram({"view", example("flange.nc"), "--preview", work.path("missing/a.png")});
    EXPECT_EQ(run.code, 4);
    EXPECT_NE(run.messages.indexOf("missing/a.png"), -1) << run.messages.constData();
}

TEST(Preview, ViewNeedsAPicturesName) {
    EXPECT_EQ(runProgram({"view", example("flange.nc")}).code, 1);
    EXPECT_EQ(runProgram({"view"}).code, 1);
}

}  // namespace
