// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// The window worked with the keyboard alone.
#include <QAbstractButton>
#include <QAction>
#include <QDockWidget>
#include <QMenuBar>
#include <QSet>
#include <QTest>
#include <QTreeWidget>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/AddinPanes.h"

namespace {

class PanelFocusTest : public HostWindowTest {
protected:
    QDockWidget* pane() const { return window->findChild<AddinPanes*>()->docks().at(0); }
    bool isInPane(const QWidget* widget) const {
        return widget != nullptr && pane()->isAncestorOf(widget);
    }
    /// By the mouse nothing is clicked: the focus comes by F6.
    void enterPane() const {
        for (int i = 0; i < 5 && !isInPane(window->focusWidget()); ++i) {
            press(Qt::Key_F6);
        }
        ASSERT_TRUE(isInPane(window->focusWidget()));
    }
    /// The controls that Tab comes to before it leaves the panel.
    QList<QWidget*> walk(Qt::Key key) const {
        QList<QWidget*> walked;
        for (int i = 0; i < 100 && isInPane(window->focusWidget()); ++i) {
            QWidget* const control = window->focusWidget();
            if (qobject_cast<QTreeWidget*>(control) == nullptr) {
                EXPECT_FALSE(control->visibleRegion().isEmpty())
                    << control->objectName().toStdString() << " is not to be seen";
                walked.append(control);
            }
            press(key);
        }
        EXPECT_FALSE(isInPane(window->focusWidget())) << "Tab never leaves the panel";
        return walked;
    }
    /// Where a control lies, however far the panel is scrolled.
    QRect placeOf(const QWidget& control) const {
        const QPoint origin = find<QWidget>("m_CommentTextEdit")->mapToGlobal({0, 0});
        return {control.mapToGlobal({0, 0}) - origin, control.size()};
    }
    static QSet<QString> namesOf(const QList<QWidget*>& controls) {
        QSet<QString> names;
        for (const QWidget* control : controls) {
            names.insert(control->objectName());
        }
        return names;
    }
};

TEST_F(PanelFocusTest, TabInThePanelFollowsTheEye) {
    open(example("flange.dxf"));
    enterPane();
    const QList<QWidget*> walked = walk(Qt::Key_Tab);
    for (int i = 1; i < walked.size(); ++i) {
        const QRect before = placeOf(*walked[i - 1]);
        const QRect now = placeOf(*walked[i]);
        const bool isBelow = now.top() > before.bottom();
        const bool isBeside = now.bottom() >= before.top() && now.left() > before.right();
        EXPECT_TRUE(isBelow || isBeside) << walked[i - 1]->objectName().toStdString() << " then "
                                         << walked[i]->objectName().toStdString();
    }
    for (const char* name : {"m_CommentTextEdit",
                             "comboBox",
                             "generateGCodeBtn",
                             "selectFileBtn",
                             "saveBtn",
                             "HelpPushButton",
                             "appendPushButton",
                             "textEdit",
                             "lineNumberCheckBox",
                             "postambleTextEdit",
                             "mmRadioButton",
                             "unitComboBox",
                             "zSafeHeightEdit",
                             "zRetractEdit",
                             "feedRateZ",
                             "feedRateXY",
                             "depthOfCut",
                             "simulatePushButton",
                             "PauseSimulationButton",
                             "StopSimulationButton",
                             "horizontalSlider",
                             "panButton",
                             "zoomButton",
                             "zoomToFitButton"}) {
        EXPECT_TRUE(namesOf(walked).contains(name)) << name;
    }
}

TEST_F(PanelFocusTest, TheFieldsOfDrillCyclesAreReachedByTabToo) {
    open(example("hole-plate.dxf"));
    enterPane();
    find<QWidget>("comboBox")->setFocus();
    QTest::keyClick(find<QWidget>("comboBox"), Qt::Key_Down);
    const QSet<QString> names = namesOf(walk(Qt::Key_Tab));
    for (const char* name : {"drillcomboBox", "drillFeedRate", "drillDepth", "retractHeight"}) {
        EXPECT_TRUE(names.contains(name)) << name;
    }
    EXPECT_FALSE(names.contains("zSafeHeightEdit"));
}

TEST_F(PanelFocusTest, AHeaderClosesItsCategoryByKey) {
    open(example("flange.dxf"));
    enterPane();
    for (QWidget* control : walk(Qt::Key_Tab)) {
        if (QByteArray(control->metaObject()->className()) == "QtCategoryButton") {
            control->setFocus();
            QTest::keyClick(control, Qt::Key_Space);
        }
    }
    EXPECT_FALSE(find<QWidget>("generateGCodeBtn")->isVisible());
}

TEST_F(PanelFocusTest, F6GoesRoundTheAreasOfTheWindow) {
    open(example("flange.dxf"));
    tab()->view()->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("commandInput"));
    press(Qt::Key_F6);
    EXPECT_TRUE(isInPane(window->focusWidget()));
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("layersTable"));
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), tab()->view());
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("layersTable"));
}

TEST_F(PanelFocusTest, F6ReturnsToTheControlThatWasLeft) {
    open(example("flange.dxf"));
    find<QWidget>("feedRateXY")->setFocus();
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("commandInput"));
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("feedRateXY"));
}

TEST_F(PanelFocusTest, F6LeavesOutWhatIsHidden) {
    open(example("flange.dxf"));
    type("_GCODE");
    find<QDockWidget>("layersDock")->hide();
    tab()->view()->setFocus();
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("commandInput"));
    press(Qt::Key_F6);
    EXPECT_EQ(window->focusWidget(), tab()->view());
}

TEST_F(PanelFocusTest, F6WorksWithoutADrawingAndWhileAPromptWaits) {
    find<QWidget>("commandInput")->setFocus();
    press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(window->focusWidget(), find<QWidget>("welcomeOpen"));
    open(example("flange.dxf"));
    generateAndThen([this] {
        tab()->view()->setFocus();
        press(Qt::Key_F6);
        EXPECT_EQ(window->focusWidget(), find<QWidget>("commandInput"));
        press(Qt::Key_Return);
    });
    EXPECT_TRUE(said().contains("Selected objects: 0")) << said().toStdString();
}

TEST_F(PanelFocusTest, BoxesAreTypedAsTheyAreDrawn) {
    open(writeMixed());
    type("SELECTBOX -1,-1 101,30");
    EXPECT_EQ(selectedCount(), 2U) << "a line and the circle lie inside";
    type("SELECTBOX 90,60 80,40");
    EXPECT_EQ(selectedCount(), 3U) << "the other line is touched";
    type("SELECTBOX 80,40 90,60 REMOVE");
    EXPECT_EQ(selectedCount(), 3U) << "it does not lie inside";
    type("SELECTBOX 90,60 80,40 REMOVE");
    EXPECT_EQ(selectedCount(), 2U);
    type("SELECTBOX 90 80");
    EXPECT_TRUE(said().contains("SELECTBOX takes two corners")) << said().toStdString();
    EXPECT_EQ(selectedCount(), 2U);
}

TEST_F(PanelFocusTest, DistancesAndPartsAreTypedToo) {
    open(writeMixed());
    type("MEASURE 0,0 3,-4");
    EXPECT_TRUE(said().contains("Distance 5, dX 3, dY -4")) << said().toStdString();
    type("MEASURE 0,0 x,1");
    EXPECT_TRUE(said().contains("MEASURE takes two points")) << said().toStdString();
    type("ZOOMWINDOW 40,10 60,20");
    const QPointF middle = tab()->view()->transform().toWorld(tab()->view()->rect().center());
    EXPECT_NEAR(middle.x(), 50, 0.1);
    EXPECT_NEAR(middle.y(), 15, 0.1);
    type("ZOOMWINDOW 1,1 1,1");
    EXPECT_TRUE(said().contains("ZOOMWINDOW takes two corners")) << said().toStdString();
}

TEST_F(PanelFocusTest, NoButtonTakesTheLetterOfAMenu) {
    open(example("flange.dxf"));
    QSet<QString> taken;
    for (const QAction* action : window->menuBar()->actions()) {
        taken.insert(QKeySequence::mnemonic(action->text()).toString());
    }
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        const QString key = QKeySequence::mnemonic(button->text()).toString();
        EXPECT_TRUE(key.isEmpty() || !taken.contains(key)) << button->text().toStdString();
    }
}

}  // namespace
