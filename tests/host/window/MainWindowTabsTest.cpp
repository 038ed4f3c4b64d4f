// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include <QAction>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QUrl>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/Drawings.h"
#include "window/HostSession.h"

namespace {

class MainWindowTabsTest : public HostWindowTest {
protected:
    const kxHostDocument_c* active() const {
        return window->session()->application()->GetActiveHostDocument().get();
    }
    QString preamble() const { return find<QTextEdit>("textEdit")->toPlainText(); }
};

TEST_F(MainWindowTabsTest, TheTabInFrontIsTheActiveDrawing) {
    DrawingTab* first = open(example("flange.dxf"));
    DrawingTab* second = open(writeMixed());
    EXPECT_EQ(active(), second->document().get());
    const QTabBar* bar = find<QTabWidget>("drawingTabs")->tabBar();
    QTest::mouseClick(const_cast<QTabBar*>(bar), Qt::LeftButton, Qt::NoModifier,
                      bar->tabRect(0).center());
    EXPECT_EQ(active(), first->document().get());
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(active(), second->document().get());
}

TEST_F(MainWindowTabsTest, AnInchDrawingMakesThePanelInchAndBackAgain) {
    open(example("flange.dxf"));
    EXPECT_TRUE(preamble().contains("G21")) << preamble().toStdString();
    open(example("hole-plate.dxf"));
    EXPECT_TRUE(find<QRadioButton>("inchRadioButton")->isChecked());
    EXPECT_TRUE(preamble().contains("G20")) << preamble().toStdString();
    window->drawings()->walk(1);
    EXPECT_TRUE(find<QRadioButton>("mmRadioButton")->isChecked());
    EXPECT_TRUE(preamble().contains("G21")) << preamble().toStdString();
}

TEST_F(MainWindowTabsTest, SwitchingTheUnitReachesThePanelAndScalesNothing) {
    open(example("flange.dxf"));
    type("UNITS INCH");
    EXPECT_TRUE(find<QRadioButton>("inchRadioButton")->isChecked());
    EXPECT_TRUE(preamble().contains("G20")) << preamble().toStdString();
    EXPECT_EQ(tab()->unit(), 0);
    EXPECT_TRUE(said().contains("coordinates are not scaled")) << said().toStdString();
    EXPECT_EQ(tab()->view()->scene().extents().width(), 120);
}

TEST_F(MainWindowTabsTest, ClosingADrawingBringsItsNeighbourToTheFront) {
    DrawingTab* first = open(example("flange.dxf"));
    open(writeMixed());
    type("CLOSE");
    EXPECT_EQ(tab(), first);
    EXPECT_EQ(active(), first->document().get());
    EXPECT_EQ(window->session()->application()->GetDocuments().size(), 1U);
    type("CLOSE");
    EXPECT_EQ(tab(), nullptr);
    EXPECT_EQ(active(), nullptr);
    EXPECT_TRUE(find<QPushButton>("welcomeOpen")->isVisible());
}

TEST_F(MainWindowTabsTest, WhatIsOpenAlreadyComesToTheFront) {
    DrawingTab* first = open(example("flange.dxf"));
    open(writeMixed());
    window->drawings()->open({example("flange.dxf")});
    EXPECT_EQ(tab(), first);
    EXPECT_EQ(window->drawings()->all().size(), 2);
}

TEST_F(MainWindowTabsTest, ADrawingThatFailsIsSaidWithItsLineAndLeavesTheOthers) {
    DrawingTab* first = open(example("flange.dxf"));
    const QString broken = write("broken.dxf", "  0\nLINE\n 10\nnumber\n");
    {
        DialogDriver driver;
        driver.press(QMessageBox::Ok);
        window->drawings()->open({broken});
        const std::string text = driver.seen(0).text;
        EXPECT_NE(text.find("broken.dxf:"), std::string::npos) << text;
        EXPECT_TRUE(said().contains(QString::fromStdString(text))) << said().toStdString();
    }
    EXPECT_EQ(tab(), first);
    EXPECT_EQ(window->drawings()->all().size(), 1);
}

TEST_F(MainWindowTabsTest, SeveralDrawingsAreOpenedThroughTheDialog) {
    DialogDriver driver;
    driver.chooseFile(writeMixed());
    window->findChild<QAction*>("actionOPEN")->trigger();
    ASSERT_NE(tab(), nullptr);
    EXPECT_EQ(tab()->name(), "mixed.dxf");
    EXPECT_TRUE(said().contains("mixed.dxf: 4 objects on 2 layers, mm")) << said().toStdString();
}

TEST_F(MainWindowTabsTest, AChangedFileOffersToReloadAndTheViewStays) {
    const QString path = writeMixed();
    open(path);
    tab()->view()->zoomIn();
    const double scale = tab()->view()->transform().scale();
    write("mixed.dxf", "  0\nCIRCLE\n  8\nDRILL\n 10\n50\n 20\n25\n 40\n5\n");
    auto* reload = find<QPushButton>("messageAccept");
    ASSERT_TRUE(waitUntil([&] { return reload->isVisible(); }));
    EXPECT_EQ(tab()->findChild<QLabel*>("messageText")->text(), "mixed.dxf has changed on disk.");
    QTest::mouseClick(reload, Qt::LeftButton);
    EXPECT_EQ(tab()->document()->GetObjects().size(), 1U);
    EXPECT_EQ(tab()->view()->transform().scale(), scale);
    EXPECT_FALSE(reload->isVisible());
}

TEST_F(MainWindowTabsTest, AReloadThatFailsKeepsWhatIsOpen) {
    const QString path = writeMixed();
    open(path);
    write("mixed.dxf", "  0\nLINE\n 10\nnumber\n");
    DialogDriver driver;
    driver.press(QMessageBox::Ok);
    type("RELOAD");
    EXPECT_EQ(tab()->document()->GetObjects().size(), 4U);
}

TEST_F(MainWindowTabsTest, ADroppedDrawingIsOpened) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(writeMixed())});
    // As the window system sends them while the mouse is dragged.
    QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &drop);
    ASSERT_TRUE(waitUntil([this] { return tab() != nullptr; }));
    EXPECT_EQ(tab()->name(), "mixed.dxf");
}

}  // namespace
