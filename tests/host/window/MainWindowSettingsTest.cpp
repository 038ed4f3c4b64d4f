// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <QAction>
#include <QDockWidget>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/AddinPanes.h"

namespace {

class MainWindowSettingsTest : public HostWindowTest {
protected:
    bool isVisible(const char* layer) const {
        return tab()->document()->IsLayerVisible(kxString(layer));
    }
    std::size_t shownCount() const { return tab()->view()->scene().objects().size(); }
};

TEST_F(MainWindowSettingsTest, TheLayersDockListsLayersWithTheirObjects) {
    open(writeMixed());
    const auto* table = find<QTreeWidget>("layersTable");
    ASSERT_EQ(table->topLevelItemCount(), 2);
    EXPECT_EQ(table->topLevelItem(0)->text(0), "CUT");
    EXPECT_EQ(table->topLevelItem(0)->text(1), "3");
    EXPECT_EQ(table->topLevelItem(1)->text(0), "DRILL");
    EXPECT_EQ(table->topLevelItem(1)->text(1), "1");
}

TEST_F(MainWindowSettingsTest, ALayerIsHiddenWithItsCheckBoxAndLeavesTheSelection) {
    open(writeMixed());
    type("SELECTALL");
    auto* table = find<QTreeWidget>("layersTable");
    table->setFocus();
    table->setCurrentItem(table->topLevelItem(0));
    QTest::keyClick(table, Qt::Key_Space);
    EXPECT_TRUE(waitUntil([this] { return !isVisible("CUT"); }));
    EXPECT_EQ(shownCount(), 1U);
    EXPECT_EQ(selectedCount(), 1U);
    EXPECT_EQ(table->topLevelItem(0)->checkState(0), Qt::Unchecked);
}

TEST_F(MainWindowSettingsTest, AllLayersAreSwitchedAtOnce) {
    open(writeMixed());
    click("layersAllOff");
    EXPECT_EQ(shownCount(), 0U);
    click("layersAllOn");
    EXPECT_EQ(shownCount(), 4U);
}

TEST_F(MainWindowSettingsTest, AReloadKeepsLayersHidden) {
    open(writeMixed());
    type("LAYER CUT OFF");
    EXPECT_EQ(shownCount(), 1U);
    type("RELOAD");
    EXPECT_FALSE(isVisible("CUT"));
    EXPECT_EQ(shownCount(), 1U);
}

TEST_F(MainWindowSettingsTest, GridAxesAndCanvasAreKept) {
    open(writeMixed());
    type("GRID");
    type("AXES OFF");
    type("CANVAS LIGHT");
    EXPECT_FALSE(tab()->view()->options().grid);
    stop();
    start();
    open(writeMixed());
    EXPECT_FALSE(tab()->view()->options().grid);
    EXPECT_FALSE(tab()->view()->options().axes);
    EXPECT_EQ(tab()->view()->options().canvas, Canvas::Light);
    EXPECT_FALSE(find<QAction>("actionGRID")->isChecked());
    EXPECT_TRUE(find<QAction>("actionCANVAS")->isChecked());
}

TEST_F(MainWindowSettingsTest, DocksComeBackAsTheyWereAndThePaneShown) {
    find<QDockWidget>("layersDock")->hide();
    type("_GCODE");
    EXPECT_FALSE(window->findChild<AddinPanes*>()->docks().at(0)->isVisible());
    stop();
    start();
    EXPECT_FALSE(find<QDockWidget>("layersDock")->isVisible());
    EXPECT_TRUE(find<QDockWidget>("commandLineDock")->isVisible());
    EXPECT_TRUE(window->findChild<AddinPanes*>()->docks().at(0)->isVisible());
}

TEST_F(MainWindowSettingsTest, APictureOfTheViewIsSaved) {
    open(writeMixed());
    const QString path = folder.filePath("view.png");
    type("PICTURE \"" + path + "\"");
    const QImage picture(path);
    EXPECT_EQ(picture.size(), tab()->view()->size() * tab()->view()->devicePixelRatioF());
}

}  // namespace
