// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>

#include "HostWindowTest.h"
#include "Waiting.h"
#include "view/DrawingView.h"
#include "window/ProgramCheck.h"

/// The window with the dock that checks programs.
class ProgramCheckWindow : public HostWindowTest {
protected:
    static constexpr char kHead[] = "G21 G90\nM3 S1000\nG0 Z5\n";
    /// Of the drawing that `writeMixed` writes.
    static constexpr char kFirstLine[] = "G0 X0 Y0\nG1 Z-1 F100\nG1 X100 Y0 F300\nG0 Z5\n";
    static constexpr char kSecondLine[] = "G0 X100 Y50\nG1 Z-1 F100\nG1 X0 Y50 F300\nG0 Z5\n";
    /// Ten units beside the second line.
    static constexpr char kBeside[] = "G0 X100 Y60\nG1 Z-1 F100\nX0 Y60 F300\nG0 Z5\n";
    static constexpr char kEnd[] = "M5\nM30\n";

    QString program(const std::string& text, const QString& name = "program.nc") const {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.data(), static_cast<qint64>(text.size()));
        return path;
    }
    void selectLines() {
        open(writeMixed());
        type("SELECTTYPE LINE");
        ASSERT_EQ(selectedCount(), 2U);
    }

    void check(const std::string& text) { checkFile(program(text)); }
    void checkFile(const QString& file) {
        type("CHECKPROGRAM " + file);
        waitForCheck();
    }
    void checkAgain() const {
        click("checkAgain");
        waitForCheck();
    }
    bool isRunning() const { return window->findChild<ProgramCheck*>()->isRunning(); }
    void waitForCheck() const {
        EXPECT_TRUE(waitUntil([this] { return !isRunning(); }));
    }
    /// Types into a field of the dock, as after a click into it, and leaves it with Enter.
    template <class Field>
    void enter(const char* name, const QString& text) const {
        auto* field = find<Field>(name);
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

    QDockWidget* dock() const { return find<QDockWidget>("checkDock"); }
    QTreeWidget* table() const { return find<QTreeWidget>("findingsTable"); }
    QString head() const { return find<QLabel>("checkHead")->text(); }
    QString summary() const {
        return find<QLabel>("checkSummary")->text().replace(QChar::Nbsp, ' ');
    }
    QStringList findings() const {
        QStringList lines;
        for (int i = 0; i < table()->topLevelItemCount(); ++i) {
            const QTreeWidgetItem* item = table()->topLevelItem(i);
            lines.append(item->text(0) + ": " + item->text(1));
        }
        return lines;
    }
    void clickFinding(int row) const {
        const QRect place = table()->visualItemRect(table()->topLevelItem(row));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }
    /// The program's line that stands out.
    QString markedLine() const {
        const auto marks = find<QPlainTextEdit>("programLines")->extraSelections();
        return marks.isEmpty() ? QString() : marks.first().cursor.block().text().trimmed();
    }
    const PathMark& shown() const { return tab()->view()->path(); }
};
