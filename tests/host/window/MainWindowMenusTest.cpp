// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <QAction>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

#include "HostWindowTest.h"
#include "window/AddinPanes.h"
#include "window/HostActions.h"

namespace {

using MainWindowMenusTest = HostWindowTest;

QStringList labels(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        texts.append(action->isSeparator() ? QString("-") : action->text().remove('&'));
    }
    return texts;
}

QStringList mnemonics(const QList<QAction*>& actions) {
    QStringList letters;
    for (const QAction* action : actions) {
        const int index = action->text().indexOf('&');
        if (!action->isSeparator()) {
            letters.append(index < 0 ? QString() : action->text().mid(index + 1, 1).toUpper());
        }
    }
    return letters;
}

QAction* itemOf(const QMenu& menu, const QString& label) {
    for (QAction* action : menu.actions()) {
        if (action->text().remove('&') == label) {
            return action;
        }
    }
    return nullptr;
}

TEST_F(MainWindowMenusTest, ToolsHoldsSixOwnItemsThenTheOneOfTheAddin) {
    open(example("flange.dxf"));
    const QStringList wanted{"Object Information",
                             "Measure Distance",
                             "Import Report",
                             "Tool Path Check",
                             "Save Picture...",
                             "Load Add-in...",
                             "-",
                             "2D G-code Generator...",
                             "Check Program...",
                             "-",
                             "Settings..."};
    EXPECT_EQ(labels(*find<QMenu>("menuTools")), wanted)
        << labels(*find<QMenu>("menuTools")).join('|').toStdString();
}

TEST_F(MainWindowMenusTest, TheItemOfTheAddinHasItsIconAndDescription) {
    open(example("flange.dxf"));
    const QAction* item = itemOf(*find<QMenu>("menuTools"), "2D G-code Generator...");
    ASSERT_NE(item, nullptr);
    EXPECT_FALSE(item->icon().isNull());
    EXPECT_EQ(item->statusTip(), "Generate 2D G-code: _GCODE");
}

TEST_F(MainWindowMenusTest, ToolsIsShortWithoutADrawing) {
    EXPECT_EQ(labels(*find<QMenu>("menuTools")),
              (QStringList{"Load Add-in...", "Check Program...", "-", "Settings..."}));
}

TEST_F(MainWindowMenusTest, MnemonicsOfAMenuAreDifferent) {
    open(example("flange.dxf"));
    QList<QList<QAction*>> menus{window->menuBar()->actions()};
    for (const char* name : {"menuFile", "menuEdit", "menuView", "menuTools", "menuHelp"}) {
        menus.append(find<QMenu>(name)->actions());
    }
    for (const QList<QAction*>& actions : menus) {
        const QStringList letters = mnemonics(actions);
        EXPECT_FALSE(letters.contains(QString())) << actions.first()->text().toStdString();
        EXPECT_EQ(QSet<QString>(letters.begin(), letters.end()).size(), letters.size())
            << letters.join(' ').toStdString();
    }
}

TEST_F(MainWindowMenusTest, NoShortcutIsGivenTwice) {
    QSet<QString> seen;
    for (const QAction* action : window->findChild<HostActions*>()->all()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            EXPECT_FALSE(keys.isEmpty());
            EXPECT_FALSE(seen.contains(keys.toString())) << keys.toString().toStdString();
            seen.insert(keys.toString());
        }
    }
}

TEST_F(MainWindowMenusTest, EveryActionIsInAMenu) {
    open(example("flange.dxf"));
    for (const QAction* action : window->findChild<HostActions*>()->all()) {
        bool isInMenu = false;
        for (const QWidget* widget : action->associatedWidgets()) {
            isInMenu = isInMenu || qobject_cast<const QMenu*>(widget) != nullptr;
        }
        EXPECT_TRUE(isInMenu) << action->objectName().toStdString();
    }
}

TEST_F(MainWindowMenusTest, ActionsThatNeedADrawingWaitForOne) {
    EXPECT_FALSE(find<QAction>("actionSELECTALL")->isEnabled());
    EXPECT_TRUE(find<QAction>("actionOPEN")->isEnabled());
    open(example("flange.dxf"));
    EXPECT_TRUE(find<QAction>("actionSELECTALL")->isEnabled());
    EXPECT_FALSE(find<QAction>("actionUNDO")->isEnabled());
}

TEST_F(MainWindowMenusTest, AShortcutReachesItsCommandFromTheView) {
    open(example("flange.dxf"));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedCount(), 18U);
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(MainWindowMenusTest, TheCommandOfTheAddinHidesItsPaneAndShowsItAgain) {
    open(example("flange.dxf"));
    const QDockWidget* pane = window->findChild<AddinPanes*>()->docks().at(0);
    EXPECT_TRUE(pane->isVisible());
    type("_GCODE");
    EXPECT_FALSE(pane->isVisible());
    itemOf(*find<QMenu>("menuTools"), "2D G-code Generator...")->trigger();
    EXPECT_TRUE(pane->isVisible());
}

TEST_F(MainWindowMenusTest, APaneIsInTheViewMenu) {
    QAction* item = itemOf(*find<QMenu>("menuView"), "G-code Generator");
    ASSERT_NE(item, nullptr);
    item->trigger();
    EXPECT_FALSE(window->findChild<AddinPanes*>()->docks().at(0)->isVisible());
}

TEST_F(MainWindowMenusTest, AnEmptyEnterRepeatsTheLastCommand) {
    open(writeMixed());
    type("INVERT");
    EXPECT_EQ(selectedCount(), 4U);
    type("");
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(MainWindowMenusTest, TypingInTheViewGoesToTheCommandLine) {
    open(writeMixed());
    press(Qt::Key_Z);
    EXPECT_EQ(find<QLineEdit>("commandInput")->text(), "z");
    EXPECT_EQ(window->focusWidget(), find<QLineEdit>("commandInput"));
}

TEST_F(MainWindowMenusTest, AnUnknownCommandIsSaid) {
    type("NOSUCH");
    EXPECT_TRUE(said().contains("Unknown command: NOSUCH")) << said().toStdString();
}

TEST_F(MainWindowMenusTest, WhatNeedsADrawingSaysThatThereIsNone) {
    type("SELECTALL");
    EXPECT_TRUE(said().contains("No drawing is open.")) << said().toStdString();
}

}  // namespace
