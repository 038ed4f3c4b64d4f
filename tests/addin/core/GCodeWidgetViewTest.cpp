// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The category "View Window": its controls, and what they do to the view when they are used.
#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QFile>
#include <QFrame>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QWindow>

#include "DialogDriver.h"
#include "core/PanelResources.h"
#include "core/PanelTest.h"
#include "openglplotter/OGLWindowState.h"
#include "openglplotter/PreviewPath.h"
#include "openglplotter/ViewNavigation.h"

using testing::ElementsAre;

namespace {

constexpr int kViewId = 6;
constexpr std::size_t kFirstSteps = 51;
const QPoint kMiddle(135, 135);
const char* const kSquare = "G1 X10 Y0\nG1 X10 Y10\nG1 X0 Y10\nG1 X0 Y0\n";

struct ViewButton {
    const char* name;
    const char* toolTip;
    const char* icon;
    bool isCheckable;
};

constexpr ViewButton kButtons[] = {
    {"simulatePushButton", "Play", ":/gcodeaddin/Resource/Play_32x-32.svg", false},
    {"PauseSimulationButton", "Pause", ":/gcodeaddin/Resource/Pause_32x-32.svg", false},
    {"StopSimulationButton", "Stop", ":/gcodeaddin/Resource/Stop_32x-32.svg", false},
    {"panButton", "Pan", ":/gcodeaddin/Resource/Pan_32x-32.svg", true},
    {"zoomButton", "Dynamic zoom", ":/gcodeaddin/Resource/ZoomDynamic_32x-32.svg", true},
    {"zoomToFitButton", "Reset", ":/gcodeaddin/Resource/ZoomFit_32x-32.svg", false}};

bool samePoint(const Point3d& a, const Point3d& b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

/// The panel scrolled down to the view. Buttons and drags go to the window as the window system
/// sends them, so that they reach a control only where it is shown.
class PanelView : public PanelTest {
protected:
    PanelView() {
        usePlainSettings();
        scrollToView();
    }

    void scrollToView() {
        QApplication::processEvents();
        QScrollBar* bar = tree()->verticalScrollBar();
        bar->setValue(bar->maximum());
        QApplication::processEvents();
    }
    QTreeWidget* tree() { return child<QTreeWidget>("GCodeTreeWidget"); }
    QAbstractButton* header(int id) { return child<QButtonGroup>("categoryButton")->button(id); }
    QSlider* slider() { return child<QSlider>("horizontalSlider"); }

    void press(QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(window(), button, {}, widget.mapTo(&parent(), at));
    }
    void dragOn(QWidget& widget, const QPoint& from, const QPoint& to,
                Qt::MouseButton button = Qt::LeftButton) {
        press(widget, from, button);
        QTest::mouseMove(window(), widget.mapTo(&parent(), to));
        QTest::mouseRelease(window(), button, {}, widget.mapTo(&parent(), to));
    }
    void clickIn(const char* name) {
        auto* clicked = child<QWidget>(name);
        ASSERT_FALSE(clicked->visibleRegion().isEmpty()) << name << " is not to be seen";
        QTest::mouseClick(window(), Qt::LeftButton, {},
                          clicked->mapTo(&parent(), clicked->rect().center()));
    }
    /// One notch away from the user, over the view. Whether the view took it.
    bool turnWheel() {
        const QPointF at = kMiddle + QPoint(40, -30);
        QWheelEvent event(at, view.mapToGlobal(QPoint()) + at, QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        // As from the window system: only then it goes on to the parents of who leaves it.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&view, &event);
        return state.scale != 1;
    }
    /// Where the slider's handle stands.
    QPoint handle() {
        QStyleOptionSlider option;
        option.initFrom(slider());
        option.orientation = Qt::Horizontal;
        option.minimum = slider()->minimum();
        option.maximum = slider()->maximum();
        option.sliderPosition = slider()->value();
        option.sliderValue = slider()->value();
        return slider()
            ->style()
            ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider())
            .center();
    }
    /// Starts the playback and leaves its ticks to the test.
    void playWithoutTimer() {
        clickIn("simulatePushButton");
        state.timer->stop();
    }
    /// Whether the view holds exactly the path of this program.
    bool shows(const std::string& program) const {
        const PreviewPath path = interpretProgram(program);
        return state.pathSize() == path.vertices.size() &&
               std::equal(path.vertices.begin(), path.vertices.end(), state.vertices.begin(),
                          samePoint);
    }

private:
    QWindow* window() { return parent().windowHandle(); }

protected:
    OGLWindow& view = *child<OGLWindow>("w");
    OGLWindowState state{view};
};

class PanelViewFiles : public PanelView {
protected:
    QString stored(const char* name, const char* content) const {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    DialogDriver dialogs;
    const QTemporaryDir m_folder;
};

int brightPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) != qRgb(0, 0, 0) ? 1 : 0;
        }
    }
    return count;
}

}  // namespace

TEST_F(PanelView, IsTheSeventhCategory) {
    EXPECT_EQ(tree()->topLevelItemCount(), kViewId + 1);
    EXPECT_EQ(header(kViewId)->text(), QString("View Window"));
    QWidget* content = tree()->itemWidget(tree()->topLevelItem(kViewId)->child(0), 0);
    EXPECT_TRUE(content->isAncestorOf(&view));
    EXPECT_TRUE(content->isAncestorOf(slider()));
    for (const ViewButton& expected : kButtons) {
        EXPECT_TRUE(content->isAncestorOf(button(expected.name))) << expected.name;
    }
}

TEST_F(PanelView, HeaderCollapsesAndExpandsItsCategory) {
    const auto picture = [this] { return header(kViewId)->icon().pixmap(32, 32).toImage(); };
    const auto iconOf = [](const char* name) {
        return QIcon(iconPath(name)).pixmap(32, 32).toImage();
    };
    ASSERT_TRUE(tree()->topLevelItem(kViewId)->isExpanded());
    QTest::mouseClick(header(kViewId), Qt::LeftButton);
    EXPECT_FALSE(tree()->topLevelItem(kViewId)->isExpanded());
    EXPECT_FALSE(view.isVisible());
    EXPECT_EQ(picture(), iconOf("collapsed"));
    QTest::mouseClick(header(kViewId), Qt::LeftButton);
    EXPECT_TRUE(tree()->topLevelItem(kViewId)->isExpanded());
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(picture(), iconOf("expanded"));
}

TEST_F(PanelView, ViewIsFixedAnd270Wide) {
    EXPECT_EQ(view.objectName(), QString("w"));
    EXPECT_EQ(view.minimumSize(), view.maximumSize());
    EXPECT_EQ(view.width(), 270);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PanelView, ButtonsHaveTheirToolTipIconAndSize) {
    for (const ViewButton& expected : kButtons) {
        const QPushButton* found = button(expected.name);
        EXPECT_EQ(found->toolTip(), QString(expected.toolTip));
        EXPECT_EQ(found->text(), QString()) << expected.name;
        EXPECT_EQ(found->size(), QSize(32, 34)) << expected.name;
        EXPECT_EQ(found->minimumSize(), QSize(32, 34)) << expected.name;
        EXPECT_EQ(found->maximumSize(), QSize(32, 34)) << expected.name;
        EXPECT_EQ(found->isCheckable(), expected.isCheckable) << expected.name;
        EXPECT_FALSE(found->isChecked()) << expected.name;
        ASSERT_TRUE(QFile::exists(expected.icon)) << expected.icon;
        EXPECT_EQ(found->icon().pixmap(32, 32).toImage(),
                  QIcon(expected.icon).pixmap(32, 32).toImage())
            << expected.name;
    }
}

TEST_F(PanelView, IconsAreDrawnForTheScreensOwnResolution) {
    // What lets a button ask its icon for more pixels than its size on a finer screen.
    EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps));
}

TEST_F(PanelView, SliderGoesFromOneToTenAndTracks) {
    EXPECT_EQ(slider()->orientation(), Qt::Horizontal);
    EXPECT_EQ(slider()->minimum(), 1);
    EXPECT_EQ(slider()->maximum(), 10);
    EXPECT_EQ(slider()->value(), 1);
    EXPECT_TRUE(slider()->hasTracking());
    EXPECT_EQ(slider()->toolTip(), QString("Speed"));
    EXPECT_EQ(slider()->maximumWidth(), 129);
    EXPECT_EQ(slider()->height(), 34);
}

TEST_F(PanelView, ControlsStandInOneRowBelowTheViewInTheirOrder) {
    int last = -1;
    for (const char* name : {"simulatePushButton", "PauseSimulationButton", "StopSimulationButton",
                             "horizontalSlider", "panButton", "zoomButton", "zoomToFitButton"}) {
        const QRect place = child<QWidget>(name)->geometry();
        EXPECT_GT(place.left(), last) << name << " overlaps its neighbour";
        EXPECT_GT(place.top(), view.geometry().bottom()) << name;
        EXPECT_EQ(place.top(), slider()->geometry().top()) << name;
        last = place.right();
    }
}

TEST_F(PanelView, GenerateShowsTheProgramInTheView) {
    ASSERT_EQ(state.pathSize(), 0);
    host.select({lineObject(at(1, 1), at(20, 2))});
    const std::string program = generate();
    EXPECT_TRUE(shows(program)) << program;
    EXPECT_TRUE(std::any_of(state.vertices.begin(), state.vertices.end(), [](const Point3d& point) {
        return samePoint(point, Point3d(20, 2, -1));
    })) << "the line's end at the depth of cut";
    EXPECT_EQ(state.maxX, 20);
}

TEST_F(PanelView, ProgramIsDrawnAndClearedInThePixelsOfTheView) {
    if (QGuiApplication::platformName() == "offscreen" && !qEnvironmentVariableIsSet("DISPLAY")) {
        GTEST_SKIP() << "needs pixels: the platform \"offscreen\" without a display has no OpenGL";
    }
    ASSERT_TRUE(view.isValid());
    const int before = brightPixels(view.grabFrameBuffer());
    host.select({circleObject(at(0, 0), 20)});
    generate();
    const int drawn = brightPixels(view.grabFrameBuffer());
    EXPECT_GT(drawn, before + 100);
    panel().ClearPreviousPreview();
    EXPECT_LT(brightPixels(view.grabFrameBuffer()), drawn - 100);
}

TEST_F(PanelView, ClearingThePreviewLeavesNoPath) {
    host.select({lineObject(at(1, 1), at(20, 2))});
    generate();
    ASSERT_GT(state.pathSize(), 0);
    panel().ClearPreviousPreview();
    EXPECT_EQ(state.pathSize(), 0);
    EXPECT_EQ(lastProgram(), "");
}

TEST_F(PanelViewFiles, SelectedFileIsShownAndACancelledDialogClearsTheView) {
    dialogs.chooseFile(stored("square.nc", kSquare));
    click("selectFileBtn");
    EXPECT_TRUE(shows(kSquare));
    EXPECT_EQ(state.pathSize(), 4);
    dialogs.cancelFile();
    click("selectFileBtn");
    EXPECT_EQ(state.pathSize(), 0);
}

TEST_F(PanelViewFiles, AppendShowsTheWholeFile) {
    host.select({lineObject(at(30, 30), at(31, 31))});
    const std::string program = generate();
    dialogs.press(QMessageBox::No);
    dialogs.chooseFile(stored("square.nc", kSquare));
    click("appendPushButton");
    EXPECT_TRUE(shows(std::string(kSquare) + "\n" + program));
    EXPECT_GT(state.pathSize(), 4);
}

TEST_F(PanelView, PlaySendsTheSlidersValueAndStartsTheTimer) {
    const QSignalSpy plays(&panel(), &GCodeWidget::Simulate);
    slider()->setValue(4);
    ASSERT_FALSE(state.isTicking());
    clickIn("simulatePushButton");
    ASSERT_EQ(plays.count(), 1);
    EXPECT_EQ(plays.at(0).at(0).toInt(), 4);
    EXPECT_EQ(state.sliderValue, 4);
    EXPECT_DOUBLE_EQ(state.stepLength, 0.02);
    EXPECT_EQ(state.steps.size(), kFirstSteps);
    EXPECT_TRUE(state.isTicking());
    EXPECT_EQ(state.timer->interval(), 10);
}

TEST_F(PanelView, TimerMovesTheMarkerAlongTheProgram) {
    view.ShowGCode(kSquare);
    slider()->setValue(10);
    clickIn("simulatePushButton");
    EXPECT_TRUE(QTest::qWaitFor([this] { return state.translatePoint.y > 1; }, 10000));
    EXPECT_NEAR(state.translatePoint.x, 10, 1e-4) << "on the segment after the first";
    EXPECT_EQ(state.verticesIndex, 1);
}

TEST_F(PanelView, PauseHoldsTheTicksAndPlayGoesOnFromThere) {
    view.ShowGCode(kSquare);
    playWithoutTimer();
    view.update();
    view.update();
    clickIn("PauseSimulationButton");
    EXPECT_TRUE(state.isPaused);
    view.update();
    EXPECT_EQ(state.translateAnimate, 2);
    clickIn("simulatePushButton");
    EXPECT_FALSE(state.isPaused);
    EXPECT_EQ(state.translateAnimate, 2) << "not from the start";
    view.update();
    EXPECT_EQ(state.translateAnimate, 3);
}

TEST_F(PanelView, StopHaltsTheTimerAndBringsTheMarkerBack) {
    clickIn("simulatePushButton");
    clickIn("PauseSimulationButton");
    state.translatePoint = Point3d(3, 4, 5);
    clickIn("StopSimulationButton");
    EXPECT_FALSE(state.isTicking());
    EXPECT_FALSE(state.isPaused);
    EXPECT_TRUE(samePoint(state.translatePoint, Point3d()));
}

TEST_F(PanelView, DraggingTheSliderChangesTheStepLengthAsItMoves) {
    press(*slider(), handle());
    QTest::mouseMove(parent().windowHandle(),
                     slider()->mapTo(&parent(), QPoint(slider()->width() - 1, handle().y())));
    EXPECT_EQ(slider()->value(), 10);
    EXPECT_EQ(state.sliderValue, 10) << "while the button is still held";
    EXPECT_NEAR(state.stepLength, 0.05, 1e-12);
    QTest::mouseRelease(parent().windowHandle(), Qt::LeftButton, {},
                        slider()->mapTo(&parent(), QPoint(slider()->width() - 1, 17)));
    dragOn(*slider(), handle(), QPoint(0, handle().y()));
    EXPECT_EQ(slider()->value(), 1);
    EXPECT_NEAR(state.stepLength, 0.005, 1e-12);
}

TEST_F(PanelView, KeysOnTheSliderChangeTheStepLength) {
    QTest::keyClick(slider(), Qt::Key_Right);
    QTest::keyClick(slider(), Qt::Key_Right);
    EXPECT_EQ(slider()->value(), 3);
    EXPECT_NEAR(state.stepLength, 0.015, 1e-12);
    QTest::keyClick(slider(), Qt::Key_End);
    EXPECT_NEAR(state.stepLength, 0.05, 1e-12);
    QTest::keyClick(slider(), Qt::Key_Home);
    EXPECT_NEAR(state.stepLength, 0.005, 1e-12);
}

TEST_F(PanelView, LeftDragTurnsTheView) {
    view.ShowGCode(kSquare);
    dragOn(view, kMiddle, kMiddle + QPoint(-40, 10));
    EXPECT_EQ(state.alpha, 10);
    EXPECT_EQ(state.beta, 20);
}

TEST_F(PanelView, PanButtonSwitchesThePanModeAndTheCursor) {
    clickIn("panButton");
    EXPECT_TRUE(button("panButton")->isChecked());
    EXPECT_TRUE(state.isPan);
    EXPECT_EQ(view.cursor().shape(), Qt::SizeAllCursor);
    clickIn("panButton");
    EXPECT_FALSE(state.isPan);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PanelView, WithPanOnADragPansAndDoesNotTurn) {
    view.ShowGCode(kSquare);
    clickIn("panButton");
    const QMatrix4x4 model = state.mMatrix;
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const QMatrix4x4 before = state.mMatrix;
        dragOn(view, kMiddle, kMiddle + QPoint(27, 13), button);
        EXPECT_NE(state.mMatrix.column(3), before.column(3)) << button;
    }
    EXPECT_EQ(state.alpha, -30);
    EXPECT_EQ(state.beta, 30);
    EXPECT_NE(state.mMatrix, model);
}

TEST_F(PanelView, WheelZoomsOnlyWithDynamicZoomOn) {
    view.ShowGCode(kSquare);
    EXPECT_FALSE(turnWheel());
    scrollToView();
    clickIn("zoomButton");
    ASSERT_TRUE(state.wheelZoom);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(turnWheel());
    EXPECT_NEAR(state.scale, 1.3, 1e-6);
    clickIn("zoomButton");
    EXPECT_FALSE(state.wheelZoom);
    turnWheel();
    EXPECT_NEAR(state.scale, 1.3, 1e-6);
}

TEST_F(PanelView, WheelOverTheViewScrollsThePanelOnlyWithDynamicZoomOff) {
    parent().resize(400, 600);
    scrollToView();
    const QScrollBar* bar = tree()->verticalScrollBar();
    clickIn("zoomButton");
    const int bottom = bar->value();
    ASSERT_GT(bottom, 0);
    turnWheel();
    EXPECT_EQ(bar->value(), bottom);
    clickIn("zoomButton");
    turnWheel();
    EXPECT_LT(bar->value(), bottom);
}

TEST_F(PanelView, ResetRestoresTheFittedView) {
    view.ShowGCode(kSquare);
    dragOn(view, kMiddle, kMiddle + QPoint(50, 20));
    clickIn("zoomButton");
    turnWheel();
    ASSERT_NE(state.alpha, -30);
    ASSERT_NE(state.scale, 1);
    clickIn("zoomToFitButton");
    EXPECT_EQ(state.alpha, -30);
    EXPECT_EQ(state.beta, 30);
    EXPECT_EQ(state.scale, 1);
    EXPECT_EQ(state.pMatrix, fittedProjection(state.maxCubeSize, static_cast<double>(state.ratio)));
    EXPECT_TRUE(button("zoomButton")->isChecked()) << "the modes stay";
}

TEST_F(PanelView, ClickOnAnyHeaderGivesThePlaybackOneTick) {
    playWithoutTimer();
    for (int id = 0; id <= kViewId; ++id) {
        QTest::mouseClick(header(id), Qt::LeftButton);
        EXPECT_EQ(state.translateAnimate, id + 1);
    }
}

TEST_F(PanelView, ProgramCutShortIsToldOnTheHostsCommandLine) {
    emit view.PreviewStopped(50'000'000);
    EXPECT_THAT(host.lines, ElementsAre("Preview stopped at 50000000 points "));
}

TEST_F(PanelView, ShortProgramIsNotToldAnything) {
    view.ShowGCode(kSquare);
    EXPECT_TRUE(host.lines.empty());
}
