// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Names that come from elsewhere, of files and in drawings, are shown as they are and do nothing.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QTabWidget>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>
#include <QTreeWidget>
#include <QUrl>

#include "FileOpens.h"
#include "HostWindowTest.h"
#include "Waiting.h"

namespace {

class HostileNamesTest : public HostWindowTest {
protected:
    HostileNamesTest() {
        QDir().mkpath(planted());
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(planted() + "/image.png"));
    }

    QString planted() const { return folder.filePath("planted"); }
    /// What a text with markup would load.
    QString markup() const { return "<img src=\"" + planted() + "/image.png\">&amp;%1%2 <b>x</b>"; }
    static std::string lineOn(const QString& layer) {
        return "  0\nLINE\n  8\n" + layer.toStdString() + "\n 10\n0\n 20\n0\n 11\n10\n 21\n0\n";
    }
    /// The tip that comes up over a place of a widget, as it is read.
    static QString tipOver(QWidget* widget, const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, widget->mapToGlobal(place));
        QCoreApplication::sendEvent(widget, &help);
        QCoreApplication::processEvents();
        const QString text = QToolTip::text();
        for (QWidget* top : QApplication::topLevelWidgets()) {
            if (top->inherits("QTipLabel")) {
                top->grab();
            }
        }
        QToolTip::hideText();
        return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText()
                                         : text;
    }
};

TEST_F(HostileNamesTest, ALayersNameIsNoMarkup) {
    const FileOpens opens(planted());
    open(write("markup.dxf", lineOn(markup())));
    auto* table = find<QTreeWidget>("layersTable");
    ASSERT_EQ(table->topLevelItemCount(), 1);
    EXPECT_EQ(table->topLevelItem(0)->text(0), markup());
    const QPoint place = table->visualItemRect(table->topLevelItem(0)).center();
    EXPECT_EQ(tipOver(table->viewport(), place), markup());
    EXPECT_EQ(opens.take(), QStringList());
}

TEST_F(HostileNamesTest, ALayersNameIsNoPlaceForItsCount) {
    open(write("percent.dxf", lineOn("%2") + lineOn("%1")));
    QStringList shown;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        const auto* list =
            dialog == nullptr ? nullptr : dialog->findChild<QListWidget*>("choiceList");
        if (list == nullptr) {
            return;
        }
        for (int row = 0; row < list->count(); ++row) {
            shown << list->item(row)->text();
        }
        dialog->reject();
    });
    timer.start(10);
    type("SELECTLAYER");
    timer.stop();
    shown.sort();
    EXPECT_EQ(shown, (QStringList{"%1 (1)", "%2 (1)"}));
}

TEST_F(HostileNamesTest, AFilesNameIsNoMarkup) {
    const FileOpens opens(planted());
    const QString inner = folder.filePath("<img src=\"" + planted() + "/image.png\">");
    ASSERT_TRUE(QDir().mkpath(inner));
    const QString path = inner + "/<b>a&amp;b%1.dxf";
    ASSERT_TRUE(QFile::copy(writeMixed(), path));
    open(path);
    auto* tabs = find<QTabWidget>("drawingTabs");
    QTabBar* bar = tabs->tabBar();
    EXPECT_EQ(tipOver(bar, bar->tabRect(0).center()), QDir::cleanPath(path));
    type("CLOSE");
    auto* recent = find<QListWidget>("welcomeRecent");
    ASSERT_TRUE(waitUntil([&] { return recent->isVisible() && recent->count() != 0; }));
    EXPECT_EQ(recent->item(0)->text(), "<b>a&amp;b%1.dxf");
    const QPoint place = recent->visualItemRect(recent->item(0)).center();
    EXPECT_EQ(tipOver(recent->viewport(), place), QDir::cleanPath(path));
    EXPECT_EQ(opens.take(), QStringList());
}

TEST_F(HostileNamesTest, AFilesNameIsTheWindowsTitle) {
    open(writeMixed("a[*].dxf"));
    EXPECT_EQ(window->windowTitle(), "a[*][*].dxf - kxhost") << "the toolkit shows it as a[*].dxf";
}

TEST_F(HostileNamesTest, HintsAndSelectionsAreNoMarkup) {
    for (const char* name : {"statusHint", "statusSelection"}) {
        EXPECT_EQ(find<QLabel>(name)->textFormat(), Qt::PlainText) << name;
    }
}

TEST_F(HostileNamesTest, OnlyFilesOfThisMachineAreTakenFromADrag) {
    const QString drawing = writeMixed();
    QMimeData web;
    web.setUrls({QUrl("http://127.0.0.1:9/a.dxf"), QUrl("https://127.0.0.1:9/a.dxf"),
                 QUrl("smb://127.0.0.1/share/a.dxf"), QUrl("ftp://127.0.0.1/a.dxf"),
                 QUrl("file://server/share/a.dxf"), QUrl("data:text/plain,a.dxf"),
                 QUrl("javascript:a.dxf"), QUrl("a.dxf")});
    const auto isTaken = [&](const QMimeData& data) {
        QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(window.get(), &enter);
        return enter.isAccepted();
    };
    EXPECT_FALSE(isTaken(web));
    QMimeData both;
    both.setUrls(web.urls() << QUrl::fromLocalFile(drawing));
    EXPECT_TRUE(isTaken(both));
    QDropEvent drop(QPoint(300, 300), Qt::CopyAction, &both, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window.get(), &drop);
    EXPECT_TRUE(waitUntil([this] { return tab() != nullptr; }));
    EXPECT_EQ(find<QTabWidget>("drawingTabs")->count(), 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "no failure is shown";
}

}  // namespace
