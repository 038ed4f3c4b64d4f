// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Checks that take their time, and what a user does meanwhile.
#include <cmath>

#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>

#include "ProgramCheckWindow.h"
#include "window/Drawings.h"

namespace {

constexpr double kTurn = 6.283185307179586;
constexpr int kChords = 20000;
constexpr char kPolyline[] =
    "  0\nLWPOLYLINE\n100\nAcDbPolyline\n  8\nCUT\n 90\n3\n 70\n0\n"
    " 10\n120\n 20\n0\n 10\n160\n 20\n0\n 10\n160\n 20\n40\n";

/// Circles that lie upon each other as closely as the tolerance is, and a program that goes round
/// them in short lines: each circle is held against all of the lines.
class ProgramCheckRunTest : public ProgramCheckWindow {
protected:
    /// Longer than any of these tests looks.
    static constexpr int kEndless = 3000;

    void openCircles(int count, std::string entities = "") {
        for (int i = 0; i < count; ++i) {
            entities += "  0\nCIRCLE\n  8\nCUT\n 10\n0\n 20\n0\n 40\n" +
                        std::to_string(50 + 1e-6 * i) + "\n";
        }
        open(write("circles.dxf", entities));
    }
    QString rounds(const QString& name = "rounds.nc") const {
        std::string text = std::string(kHead) + "G0 X50 Y0\nG1 Z-1 F100\nF300\n";
        for (int i = 1; i <= kChords; ++i) {
            const double angle = kTurn * i / 5000;
            text += "X" + std::to_string(50 * std::cos(angle)) + " Y" +
                    std::to_string(50 * std::sin(angle)) + "\n";
        }
        return program(text + "G0 Z5\n" + kEnd, name);
    }
    QString quick(const std::string& text = "") const {
        return program(std::string(kHead) + kFirstLine + text + kEnd, "quick.nc");
    }

    bool saysThatItChecks() const { return find<QWidget>("checkBusy")->isVisible(); }
    int percent() const { return find<QProgressBar>("checkProgress")->value(); }
    /// Begins a check that does not end by itself, and waits until the dock says so.
    void beginEndless() {
        openCircles(kEndless);
        type("CHECKPROGRAM " + rounds());
        ASSERT_TRUE(waitUntil([this] { return saysThatItChecks(); }));
        ASSERT_TRUE(isRunning());
    }
};

TEST_F(ProgramCheckRunTest, TheDockSaysHowFarALongOneIsWhileTheWindowWorks) {
    beginEndless();
    EXPECT_EQ(head(), "rounds.nc, held against all 3000 objects of circles.dxf");
    EXPECT_EQ(summary(), "Checking...");
    EXPECT_EQ(findings(), QStringList());
    EXPECT_FALSE(find<QPushButton>("checkReport")->isEnabled());
    // The window goes on to work.
    type("SELECTALL");
    EXPECT_EQ(selectedCount(), std::size_t{kEndless});
    EXPECT_TRUE(waitUntil([this] { return percent() >= 20; }));
    EXPECT_LT(percent(), 100);
    EXPECT_TRUE(isRunning());
}

TEST_F(ProgramCheckRunTest, StopEndsItAndSaysSo) {
    beginEndless();
    click("checkStop");
    EXPECT_FALSE(isRunning());
    EXPECT_FALSE(saysThatItChecks());
    EXPECT_EQ(head(), "rounds.nc");
    EXPECT_EQ(summary(), "The check was stopped.");
    EXPECT_EQ(findings(), QStringList());
    // A later result of it would be shown now.
    checkFile(quick(kBeside));
    EXPECT_EQ(head(), "quick.nc, held against all 3000 objects of circles.dxf");
    EXPECT_FALSE(findings().isEmpty());
    EXPECT_FALSE(said().contains("rounds.nc: ")) << said().toStdString();
}

TEST_F(ProgramCheckRunTest, AfterAStopItCanBeginAgain) {
    beginEndless();
    find<QPushButton>("checkStop")->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(summary(), "The check was stopped.");
    click("checkAgain");
    EXPECT_TRUE(waitUntil([this] { return saysThatItChecks(); }));
    EXPECT_EQ(summary(), "Checking...");
}

TEST_F(ProgramCheckRunTest, ANewOneTakesItsPlace) {
    beginEndless();
    open(writeMixed());
    checkFile(quick());
    EXPECT_EQ(head(), "quick.nc, held against all 3 objects of mixed.dxf");
    EXPECT_TRUE(summary().contains("1 of 3 selected objects cut")) << summary().toStdString();
    letPass(100);
    EXPECT_EQ(head(), "quick.nc, held against all 3 objects of mixed.dxf");
}

TEST_F(ProgramCheckRunTest, AnotherValueBeginsItAnew) {
    openCircles(30);
    type("CHECKPROGRAM " + rounds());
    ASSERT_TRUE(isRunning());
    // All moves are above such a material.
    enter<QAbstractSpinBox>("checkSurface", "-20");
    waitForCheck();
    EXPECT_TRUE(summary().contains("\n0 of 30 selected objects")) << summary().toStdString();
    EXPECT_EQ(said().count("rounds.nc: "), 1) << said().toStdString();
}

TEST_F(ProgramCheckRunTest, AShortOneIsShownWithoutAWordOfChecking) {
    selectLines();
    checkFile(quick(kBeside));
    ASSERT_FALSE(findings().isEmpty());
    const QStringList before = findings();
    bool isSeen = false;
    bool isEmpty = false;
    click("checkAgain");
    EXPECT_EQ(findings(), before) << "what was found stays until there is something new";
    EXPECT_TRUE(waitUntil([&] {
        isSeen = isSeen || saysThatItChecks();
        isEmpty = isEmpty || findings().isEmpty();
        return !isRunning();
    }));
    EXPECT_FALSE(isSeen && isEmpty);
    EXPECT_EQ(findings(), before);
}

TEST_F(ProgramCheckRunTest, ClosingTheDockEndsIt) {
    beginEndless();
    dock()->close();
    EXPECT_TRUE(waitUntil([this] { return !isRunning(); }));
    dock()->show();
    EXPECT_EQ(summary(), "The check was stopped.");
}

TEST_F(ProgramCheckRunTest, BehindAnotherDockAndOutOfTheWindowItGoesOn) {
    beginEndless();
    find<QDockWidget>("layersDock")->raise();
    letPass(50);
    EXPECT_TRUE(isRunning());
    dock()->setFloating(true);
    letPass(50);
    EXPECT_TRUE(isRunning());
    dock()->setFloating(false);
    letPass(50);
    EXPECT_TRUE(isRunning());
}

TEST_F(ProgramCheckRunTest, ADrawingThatChangesMeanwhileIsSaidWithTheResult) {
    openCircles(30, kPolyline);
    type("CHECKPROGRAM " + rounds());
    type("SELECTTYPE POLYLINE");
    type("EXPLODE");
    ASSERT_TRUE(isRunning());
    waitForCheck();
    EXPECT_EQ(summary(), "The drawing changed: check again.");
    EXPECT_FALSE(findings().isEmpty());
}

TEST_F(ProgramCheckRunTest, ADrawingThatIsClosedMeanwhileIsSaidWithTheResult) {
    openCircles(30);
    type("CHECKPROGRAM " + rounds());
    ASSERT_TRUE(isRunning());
    window->drawings()->close(tab());
    EXPECT_TRUE(waitUntil([this] { return tab() == nullptr; }));
    ASSERT_TRUE(isRunning());
    waitForCheck();
    EXPECT_EQ(summary(), "The drawing was closed.");
    ASSERT_FALSE(findings().isEmpty());
    clickFinding(0);
    EXPECT_FALSE(markedLine().isEmpty());
}

TEST_F(ProgramCheckRunTest, TheWindowCanBeClosedMeanwhile) {
    beginEndless();
    stop();
    EXPECT_EQ(window, nullptr);
    start();
    EXPECT_FALSE(isRunning());
    // Also when the result is on its way already.
    open(writeMixed());
    type("CHECKPROGRAM " + quick());
    stop();
    start();
}

}  // namespace
