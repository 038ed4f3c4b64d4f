// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "view/DrawingView.h"

#include <gmock/gmock.h>

#include <QApplication>

#include "ViewFixture.h"

namespace {

using Objects = std::vector<kxObject_ptr>;
using testing::ElementsAre;
using testing::IsEmpty;

class DrawingViewTest : public ViewFixture {};

TEST_F(DrawingViewTest, firstShowFitsTheDrawing) {
    EXPECT_DOUBLE_EQ(view->transform().scale(), 1);
    EXPECT_EQ(at(0, 0), QPoint(24, 376));
    EXPECT_EQ(at(552, 352), QPoint(576, 24));
}

TEST_F(DrawingViewTest, clickPicksWithinFivePixels) {
    const auto object = line(100, 200, 300, 200);
    add({object});
    click(at(200, 205));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
    EXPECT_EQ(edits[0].edit, SelectionEdit::Add);
}

TEST_F(DrawingViewTest, clickBeyondFivePixelsPicksNothing) {
    add({line(100, 200, 300, 200)});
    click(at(200, 206));
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, fivePixelsAreFivePixelsAtAnyZoom) {
    const auto object = line(100, 200, 300, 200);
    add({object});
    for (const int angle : {1200, -1800}) {
        wheel(at(200, 200), angle);
        click(at(200, 200) + QPoint(0, 5));
        click(at(200, 200) + QPoint(0, 6));
        key(Qt::Key_Escape);
    }
    EXPECT_EQ(edits.size(), 2U);
}

TEST_F(DrawingViewTest, picksAreReportedInTheOrderOfTheClicks) {
    const Objects lines{line(100, 100, 300, 100), line(100, 200, 300, 200),
                        line(100, 300, 300, 300)};
    add(lines);
    click(at(200, 300));
    click(at(200, 100));
    click(at(200, 200));
    ASSERT_EQ(edits.size(), 3U);
    EXPECT_EQ(edits[0].objects, Objects{lines[2]});
    EXPECT_EQ(edits[1].objects, Objects{lines[0]});
    EXPECT_EQ(edits[2].objects, Objects{lines[1]});
}

TEST_F(DrawingViewTest, shiftClickRemoves) {
    const auto object = line(100, 200, 300, 200);
    add({object});
    click(at(200, 200), Qt::ShiftModifier);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
    EXPECT_EQ(edits[0].edit, SelectionEdit::Remove);
}

TEST_F(DrawingViewTest, secondOfTwoFastClicksIsAClick) {
    const Objects lines{line(100, 100, 300, 100), line(120, 120, 180, 180)};
    add(lines);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at(200, 100));
    EXPECT_EQ(edits.size(), 2U);
    // On empty ground the first opens a box of nothing and the second ends it.
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at(110, 110));
    click(at(200, 200));
    EXPECT_EQ(edits.size(), 2U);
    click(at(110, 110));
    EXPECT_EQ(edits.size(), 3U);
}

TEST_F(DrawingViewTest, objectsOfHiddenLayersAreNotPicked) {
    const auto shown = line(100, 200, 300, 200, "shown");
    add({shown, line(100, 201, 300, 201, "hidden")});
    document->SetLayers({{"shown", true}, {"hidden", false}});
    view->reload();
    click(at(200, 203));
    drag(at(90, 220), at(310, 180));
    ASSERT_EQ(edits.size(), 2U);
    EXPECT_EQ(edits[0].objects, Objects{shown});
    EXPECT_EQ(edits[1].objects, Objects{shown});
}

TEST_F(DrawingViewTest, boxToTheRightTakesWhatItContains) {
    const auto inside = line(120, 120, 180, 180);
    add({line(50, 150, 250, 150), inside});
    drag(at(100, 100), at(200, 200));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{inside});
    EXPECT_EQ(edits[0].edit, SelectionEdit::Add);
}

TEST_F(DrawingViewTest, sameBoxToTheLeftTakesWhatItTouches) {
    const auto inside = line(120, 120, 180, 180);
    const auto through = line(50, 150, 250, 150);
    add({through, inside});
    drag(at(200, 200), at(100, 100));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, (Objects{through, inside}));
}

TEST_F(DrawingViewTest, upOrDownMakesNoDifferenceToABox) {
    const auto inside = line(120, 120, 180, 180);
    const auto through = line(50, 150, 250, 150);
    add({through, inside});
    drag(at(100, 200), at(200, 100));
    drag(at(200, 100), at(100, 200));
    ASSERT_EQ(edits.size(), 2U);
    EXPECT_EQ(edits[0].objects, Objects{inside});
    EXPECT_EQ(edits[1].objects, (Objects{through, inside}));
}

TEST_F(DrawingViewTest, boxWithoutWidthIsAWindow) {
    add({line(50, 150, 250, 150)});
    drag(at(100, 100), at(100, 200));
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, shiftAtTheEndOfABoxRemoves) {
    const auto object = line(120, 120, 180, 180);
    add({object});
    move(at(100, 100));
    press(Qt::LeftButton, at(100, 100));
    move(at(200, 200));
    release(Qt::LeftButton, at(200, 200), Qt::ShiftModifier);
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].edit, SelectionEdit::Remove);
}

TEST_F(DrawingViewTest, emptyBoxReportsNothing) {
    drag(at(100, 100), at(200, 200));
    drag(at(200, 200), at(100, 100));
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, twoClicksOnEmptyGroundMakeABox) {
    const auto object = line(120, 120, 180, 180);
    add({object});
    click(at(100, 100));
    move(at(150, 190));
    EXPECT_THAT(edits, IsEmpty());
    click(at(200, 200));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
    // The box is over: a click picks again.
    click(at(150, 150));
    EXPECT_EQ(edits.size(), 2U);
}

TEST_F(DrawingViewTest, secondClickOnAnObjectEndsTheBox) {
    const auto through = line(50, 150, 250, 150);
    add({through});
    click(at(200, 200));
    click(at(100, 150));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{through});
    click(at(100, 150));
    EXPECT_EQ(edits.size(), 2U);
}

TEST_F(DrawingViewTest, dragThatStartsOnAnObjectDrawsABox) {
    const auto first = line(100, 200, 300, 200);
    const auto second = line(100, 150, 300, 150);
    add({first, second});
    drag(at(200, 200), at(150, 140));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, (Objects{first, second}));
}

TEST_F(DrawingViewTest, handThatShakesStillPicks) {
    const auto object = line(100, 200, 300, 200);
    add({object});
    const QPoint from = at(200, 200);
    press(Qt::LeftButton, from);
    move(from + QPoint(QApplication::startDragDistance() - 1, 0));
    release(Qt::LeftButton, from + QPoint(QApplication::startDragDistance() - 1, 0));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
}

TEST_F(DrawingViewTest, escapeEndsABoxAndIsReportedOnlyWithout) {
    add({line(120, 120, 180, 180)});
    click(at(100, 100));
    move(at(200, 200));
    key(Qt::Key_Escape);
    EXPECT_EQ(cancelled, 0);
    click(at(150, 150));
    ASSERT_EQ(edits.size(), 1U) << "a click picks again";
    key(Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(DrawingViewTest, escapeInTheMiddleOfADragTakesItBack) {
    add({line(120, 120, 180, 180)});
    press(Qt::LeftButton, at(100, 100));
    move(at(200, 200));
    key(Qt::Key_Escape);
    release(Qt::LeftButton, at(200, 200));
    EXPECT_THAT(edits, IsEmpty());
    EXPECT_EQ(cancelled, 0);
}

TEST_F(DrawingViewTest, rightClickTakesADragBack) {
    add({line(120, 120, 180, 180)});
    press(Qt::LeftButton, at(100, 100));
    move(at(200, 200));
    QTest::mousePress(view, Qt::RightButton, Qt::NoModifier, at(200, 200));
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, at(200, 200));
    EXPECT_THAT(edits, IsEmpty());
    EXPECT_EQ(confirmed, 0);
}

TEST_F(DrawingViewTest, enterReturnAndRightClickConfirm) {
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    EXPECT_EQ(confirmed, 2);
    press(Qt::RightButton, at(200, 200));
    release(Qt::RightButton, at(200, 200));
    EXPECT_EQ(confirmed, 3);
}

TEST_F(DrawingViewTest, enterDropsAnOpenBoxAndConfirms) {
    add({line(120, 120, 180, 180)});
    click(at(100, 100));
    move(at(200, 200));
    key(Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
    click(at(200, 200));
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, boxSurvivesAReloadAndTheEndOfItsDocument) {
    const auto object = line(120, 120, 180, 180);
    add({object});
    click(at(100, 100));
    move(at(150, 150));
    view->reload();
    application->CloseDocument(document.get());
    document = nullptr;
    move(at(200, 200));
    picture();
    click(at(200, 200));
    view->reload();
    // The view keeps what it shows, and so does the box.
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
    EXPECT_EQ(edits[0].edit, SelectionEdit::Add);
}

TEST_F(DrawingViewTest, boxStaysAtItsCornerWhileTheViewMoves) {
    const auto object = line(120, 120, 180, 180);
    add({object});
    click(at(100, 100));
    wheel(at(300, 150), 120);
    key(Qt::Key_Right);
    key(Qt::Key_Up);
    click(at(200, 200));
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects, Objects{object});
}

TEST_F(DrawingViewTest, whatIsReportedOutlivesTheView) {
    add({line(100, 200, 300, 200)});
    QObject::connect(view, &DrawingView::selectionEdited, view, &QObject::deleteLater);
    click(at(200, 200));
    ASSERT_TRUE(comes([this] { return window.findChild<DrawingView*>() == nullptr; }));
    document = nullptr;
    ASSERT_EQ(edits.size(), 1U);
    EXPECT_EQ(edits[0].objects[0]->GetType(), kxLineType);
}

TEST_F(DrawingViewTest, pointsModeReportsClicksAndPicksNothing) {
    add({line(100, 200, 300, 200)});
    view->startPoints(2);
    click(at(200, 200));
    EXPECT_EQ(points.size(), 1U);
    click(at(210, 250));
    EXPECT_THAT(points, ElementsAre(QPointF(200, 200), QPointF(210, 250)));
    EXPECT_EQ(hints, QStringList({"Point 1 of 2", "Point 2 of 2", ""}));
    EXPECT_THAT(edits, IsEmpty());
    click(at(200, 200));
    EXPECT_EQ(points.size(), 2U);
    EXPECT_EQ(edits.size(), 1U);
}

TEST_F(DrawingViewTest, escapeEndsThePointsMode) {
    view->startPoints(2);
    click(at(200, 200));
    key(Qt::Key_Escape);
    EXPECT_EQ(hints.last(), "");
    EXPECT_EQ(cancelled, 0);
    click(at(100, 100));
    EXPECT_EQ(points.size(), 1U);
}

TEST_F(DrawingViewTest, zoomWindowShowsTheBox) {
    view->startZoomWindow();
    EXPECT_EQ(hints, QStringList("Zoom window: first corner"));
    drag(at(100, 100), at(250, 200));
    EXPECT_DOUBLE_EQ(view->transform().scale(), 4);
    EXPECT_EQ(at(100, 200), QPoint(0, 0));
    EXPECT_EQ(at(250, 100), QPoint(600, 400));
    EXPECT_EQ(hints.last(), "");
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, zoomWindowByTwoClicksFromAnyCorner) {
    add({line(90, 210, 110, 190)});
    view->startZoomWindow();
    click(at(250, 100));
    EXPECT_EQ(hints.last(), "Zoom window: opposite corner");
    click(at(250, 100));
    EXPECT_EQ(hints.last(), "Zoom window: opposite corner") << "a box of nothing shows nothing";
    click(at(100, 200));
    EXPECT_DOUBLE_EQ(view->transform().scale(), 4);
    EXPECT_THAT(edits, IsEmpty());
}

TEST_F(DrawingViewTest, escapeEndsTheZoomWindow) {
    view->startZoomWindow();
    click(at(250, 100));
    key(Qt::Key_Escape);
    EXPECT_EQ(hints.last(), "");
    EXPECT_EQ(cancelled, 0);
    EXPECT_DOUBLE_EQ(view->transform().scale(), 1);
}

TEST_F(DrawingViewTest, otherKeysAreLeftToTheWindow) {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_Slash, Qt::Key_Delete}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(view, &event);
        EXPECT_FALSE(event.isAccepted());
    }
}

TEST_F(DrawingViewTest, viewTellsItsNameToAssistants) {
    EXPECT_EQ(view->objectName(), "drawingView");
    EXPECT_EQ(view->accessibleName(), "Drawing");
    EXPECT_EQ(view->focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
}

}  // namespace
