// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtTest>

#include "PrintQString.h"
#include "commandline/CommandLine.h"

/// A window with a field of its own and the command line at the bottom. Keys go to the window, as
/// the user's do, and from there to what has the focus.
class CommandLineTest : public testing::Test {
protected:
    CommandLineTest() {
        auto* column = new QVBoxLayout(window.get());
        column->addWidget(other, 1);
        column->addWidget(line);
        line->setCompletions(
            {"_GCODE", "CLEAR", "GRID", "OPEN", "SELECTALL", "SELECTLAYER", "SELECTTYPE"});
        QObject::connect(line, &CommandLine::entered,
                         [this](const QString& text) { entered.push_back(text); });
        QObject::connect(line, &CommandLine::cancelled, [this] { ++cancelled; });
        window->resize(640, 480);
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        activate();
        input->setFocus();
    }

    /// Not asked of the window system: windows of other tests on the screen take its focus.
    void activate() { QApplication::setActiveWindow(window.get()); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        activate();
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    void type(const char* text) {
        for (const char* character = text; *character != '\0'; ++character) {
            activate();
            QTest::keyClick(window->windowHandle(), *character);
        }
    }
    void enter(const char* text) {
        type(text);
        press(Qt::Key_Return);
    }
    QStringList offered() const {
        QStringList names;
        for (int row = 0; popup->isVisible() && row < popup->count(); ++row) {
            names.push_back(popup->item(row)->text());
        }
        return names;
    }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QLineEdit* other = new QLineEdit;
    CommandLine* line = new CommandLine;
    QLineEdit* input = line->findChild<QLineEdit*>("commandInput");
    QPlainTextEdit* log = line->findChild<QPlainTextEdit*>("commandLog");
    QLabel* prompt = line->findChild<QLabel*>("commandPrompt");
    QListWidget* popup = line->findChild<QListWidget*>("commandCompletions");
    QStringList entered;
    int cancelled = 0;
};
