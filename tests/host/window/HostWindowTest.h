// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include <QPoint>
#include <QString>
#include <QTemporaryDir>

#include "DialogDriver.h"
#include "window/DrawingTab.h"
#include "window/MainWindow.h"

/// The whole window with the real add-in, worked as a user works it.
class HostWindowTest : public testing::Test {
protected:
    HostWindowTest();
    ~HostWindowTest() override;

    /// Shows the window anew, with the settings that were kept.
    void start();
    void stop();

    static QString example(const char* name);
    /// Writes a drawing of entities into the test's folder.
    QString write(const QString& name, const std::string& entities) const;
    /// Two lines, a circle, a closed polyline of three lines and an arc; layers CUT and DRILL.
    QString writeMixed(const QString& name = "mixed.dxf") const;

    DrawingTab* open(const QString& path);
    DrawingTab* tab() const;
    void type(const QString& line);
    QString said() const;

    /// A control of the window or of the add-in's panel.
    template <class T>
    T* find(const char* name) const {
        T* found = window->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void click(const char* name) const;
    /// Where a place of the drawing lies in the view.
    QPoint at(double x, double y) const;
    void clickAt(double x, double y, Qt::KeyboardModifiers held = Qt::NoModifier) const;
    /// Where the keyboard's focus is.
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) const;
    void pressInView(Qt::Key key) const;
    std::size_t selectedCount() const;
    /// Clicks "Generate" with a step that happens while the prompt waits.
    void generateAndThen(std::function<void()> step);

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
};
