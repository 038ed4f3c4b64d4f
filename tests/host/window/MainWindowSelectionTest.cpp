// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "commandline/SelectionPrompt.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"
#include "window/HostSession.h"

namespace {

class MainWindowSelectionTest : public HostWindowTest {
protected:
    void SetUp() override { open(writeMixed()); }

    std::size_t previousCount() const {
        return tab()->document()->GetSelection(kxSelectionSetType_Previous).size();
    }
    kxObject_ptr object(std::size_t index) const { return tab()->document()->GetObjects()[index]; }
    int countSaid(const QString& line) const { return said().count(line); }
};

TEST_F(MainWindowSelectionTest, ClicksSelectInTheirOrderAndShiftTakesOut) {
    clickAt(50, 50);
    clickAt(50, 0);
    ASSERT_EQ(selectedCount(), 2U);
    EXPECT_EQ(tab()->selection()[0], object(1));
    EXPECT_EQ(tab()->selection()[1], object(0));
    clickAt(50, 50, Qt::ShiftModifier);
    ASSERT_EQ(selectedCount(), 1U);
    EXPECT_EQ(tab()->selection()[0], object(0));
}

TEST_F(MainWindowSelectionTest, EscapeClearsAndThePreviousSetKeepsIt) {
    clickAt(50, 0);
    pressInView(Qt::Key_Escape);
    EXPECT_EQ(selectedCount(), 0U);
    EXPECT_EQ(previousCount(), 1U);
}

TEST_F(MainWindowSelectionTest, TheStatusBarCountsAndSaysWhatGivesNoPath) {
    EXPECT_EQ(find<QLabel>("statusSelection")->text(), "Nothing selected");
    type("SELECTALL");
    EXPECT_EQ(find<QLabel>("statusSelection")->text(), "4 selected, 1 gives no path");
}

TEST_F(MainWindowSelectionTest, LayersAndTypesAreSelectedByName) {
    type("SELECTLAYER drill");
    ASSERT_EQ(selectedCount(), 1U);
    EXPECT_EQ(tab()->selection()[0], object(2));
    type("SELECTTYPE line polyline");
    EXPECT_EQ(selectedCount(), 3U);
    type("SELECTLAYER nowhere");
    EXPECT_EQ(selectedCount(), 3U);
    EXPECT_TRUE(said().contains("No such layer: nowhere")) << said().toStdString();
}

TEST_F(MainWindowSelectionTest, EnterEndsThePromptOfGenerateWithWhatWasPointedAt) {
    generateAndThen([this] {
        EXPECT_EQ(find<QLabel>("commandPrompt")->text(),
                  "Select one or more entities (Enter ends, Esc cancels):");
        clickAt(50, 50);
        clickAt(50, 0);
        EXPECT_EQ(find<QLabel>("statusSelection")->text(), "2 selected");
        pressInView(Qt::Key_Return);
    });
    EXPECT_EQ(selectedCount(), 0U);
    ASSERT_EQ(previousCount(), 2U);
    EXPECT_EQ(tab()->document()->GetSelection(kxSelectionSetType_Previous)[0], object(1));
    EXPECT_EQ(countSaid("Selected objects: 0 "), 1);
    EXPECT_EQ(countSaid("Selected objects: 2 "), 1);
    EXPECT_EQ(find<QLabel>("commandPrompt")->text(), "Command:");
}

TEST_F(MainWindowSelectionTest, EscapeCancelsThePromptAndChangesNothing) {
    generateAndThen([this] {
        clickAt(50, 50);
        pressInView(Qt::Key_Escape);
    });
    EXPECT_EQ(selectedCount(), 0U);
    EXPECT_EQ(previousCount(), 0U);
    EXPECT_EQ(countSaid("Selected objects: 0 "), 2);
}

TEST_F(MainWindowSelectionTest, SelectCommandsServeThePromptAndAnEmptyLineEndsIt) {
    generateAndThen([this] {
        type("SELECTALL");
        type("CLOSE");
        type("");
    });
    EXPECT_EQ(previousCount(), 4U);
    EXPECT_EQ(selectedCount(), 0U);
    EXPECT_TRUE(said().contains("CLOSE cannot run now")) << said().toStdString();
}

TEST_F(MainWindowSelectionTest, ADrawingThatIsClosedInAPromptIsClosedAfterIt) {
    generateAndThen([this] { window->drawings()->close(tab()); });
    EXPECT_TRUE(waitUntil([this] { return tab() == nullptr; }));
    EXPECT_TRUE(window->session()->application()->GetDocuments().empty());
}

TEST_F(MainWindowSelectionTest, AnotherTabEndsThePromptAndBecomesActiveAfterIt) {
    DrawingTab* first = tab();
    DrawingTab* second = open(example("flange.dxf"));
    generateAndThen([this] { window->drawings()->walk(1); });
    kxHostApplication_c* application = window->session()->application();
    EXPECT_TRUE(
        waitUntil([&] { return application->GetActiveHostDocument() == first->document(); }));
    EXPECT_NE(second, first);
    EXPECT_FALSE(window->prompt()->isActive());
}

TEST_F(MainWindowSelectionTest, TheWindowCanBeClosedInAPrompt) {
    generateAndThen([this] { window->close(); });
    EXPECT_TRUE(waitUntil([this] { return !window->isVisible(); }));
    EXPECT_EQ(window->session()->addinCount(), 0U);
}

TEST_F(MainWindowSelectionTest, DrillingRefusesALineOnTheCommandLine) {
    find<QComboBox>("comboBox")->setCurrentIndex(1);
    clickAt(50, 0);
    click("generateGCodeBtn");
    EXPECT_EQ(countSaid("Only circles or points are valid for drill cycle"), 1);
}

TEST_F(MainWindowSelectionTest, ExplodeIsUndoneAndDoneAgain) {
    type("SELECTTYPE POLYLINE");
    const kxObject_ptr polyline = object(3);
    type("EXPLODE");
    EXPECT_TRUE(said().contains("Exploded 1 polyline into 3 lines and 1 arc"))
        << said().toStdString();
    EXPECT_EQ(tab()->document()->GetObjects().size(), 7U);
    EXPECT_EQ(selectedCount(), 4U);
    const std::vector<kxObject_ptr> pieces = tab()->document()->GetObjects();
    type("UNDO");
    ASSERT_EQ(tab()->document()->GetObjects().size(), 4U);
    EXPECT_EQ(object(3), polyline);
    ASSERT_EQ(selectedCount(), 1U);
    EXPECT_EQ(tab()->selection()[0], polyline);
    type("REDO");
    EXPECT_EQ(tab()->document()->GetObjects(), pieces);
    EXPECT_EQ(selectedCount(), 4U);
    EXPECT_EQ(tab()->view()->scene().objects().size(), 7U);
}

TEST_F(MainWindowSelectionTest, ExplodeOfNothingSaysSo) {
    type("EXPLODE");
    EXPECT_TRUE(said().contains("Nothing is selected.")) << said().toStdString();
    type("SELECTTYPE LINE");
    type("EXPLODE");
    EXPECT_TRUE(said().contains("Nothing to explode")) << said().toStdString();
    type("EXPLODE x");
    EXPECT_TRUE(said().contains("No tolerance: x")) << said().toStdString();
    EXPECT_EQ(tab()->document()->GetObjects().size(), 4U);
}

TEST_F(MainWindowSelectionTest, MeasuringTellsTheDistanceOfTwoClicks) {
    type("MEASURE");
    clickAt(0, 0);
    clickAt(100, 0);
    EXPECT_TRUE(said().contains("Distance ")) << said().toStdString();
    EXPECT_EQ(selectedCount(), 0U);
}

}  // namespace
