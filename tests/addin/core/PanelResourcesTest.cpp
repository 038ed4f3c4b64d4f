// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PanelResources.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QSvgRenderer>

namespace {

const char* const kIcons[] = {
    "Generate",     "Open",         "Save",         "help",       "expanded",    "collapsed",
    "CheckBox_Mac", "Z_SafeHeight", "Z_Retraction", "Z_FeedRate", "XY_FeedRate", "DepthOfCut",
    "Play",         "Pause",        "Stop",         "Pan",        "ZoomDynamic", "ZoomFit"};

// Four blanks indent most lines, tabs the others: every byte is as it must be.
const char* const kStyleSheet =
    "QTreeView {\n    background-color: rgb(240,240,240);\n}\n\n"
    "QTreeView::item {\n\tmargin-left:10px;\n\tmargin-right:10px;\n"
    "    background-color: rgb(240,240,240);\n    border: 1px solid rgb(220,220,220);\n"
    "    border-top: none;\n}\n\n"
    "QTreeView::item:has-children {\n    border: none;\n}\n\n"
    "QFrame {\n    background: rgb(240,240,240);\n}\n\n"
    "QtCategoryButton {\n    text-align: left;\n    margin-top: 6px;\n"
    "    background-color: rgb(223,229,255);\n    border: 1px solid rgb(130,135,144);\n"
    "    qproperty-icon-size: 18px 18px;\n}\n\n"
    "QTabBar::tab::selected {\n\tbackground-color: rgb(64, 255, 255);\n}\n";

}  // namespace

TEST(PanelResources, StyleSheetHasExactlyTheRequiredBytes) {
    QFile file(":/gcodeaddin/GCodeAddin.qss");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), kStyleSheet);
    EXPECT_EQ(panelStyleSheet().toStdString(), kStyleSheet);
}

TEST(PanelResources, IconPathIsBuiltFromTheName) {
    EXPECT_EQ(iconPath("Save").toStdString(), ":/gcodeaddin/Resource/Save_32x-32.svg");
}

TEST(PanelResources, EveryIconIsAValidSvgThatShowsSomething) {
    for (const char* name : kIcons) {
        QSvgRenderer renderer(iconPath(name));
        EXPECT_TRUE(renderer.isValid()) << name;
        const QImage picture = QIcon(iconPath(name)).pixmap(32, 32).toImage();
        ASSERT_EQ(picture.size(), QSize(32, 32)) << name;
        QImage blank(picture.size(), picture.format());
        blank.fill(Qt::transparent);
        EXPECT_NE(picture, blank) << name;
    }
}

TEST(PanelResources, EveryFileOfTheFolderIsAnIconOfThisList) {
    QStringList expected;
    for (const char* name : kIcons) {
        expected.append(QString("%1_32x-32.svg").arg(name));
    }
    for (const QString& file : QDir(":/gcodeaddin/Resource").entryList(QDir::Files)) {
        EXPECT_TRUE(expected.contains(file)) << file.toStdString();
    }
}
