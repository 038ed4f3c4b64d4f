// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include <QSignalSpy>
#include <QWidget>

#include "TestHost.h"
#include "core/GCodeWidget.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QTextEdit;

/// The panel in a shown window, on a host with one drawing. It is used through its controls, which
/// are found by their names.
class PanelTest : public testing::Test {
protected:
    PanelTest();
    ~PanelTest() override;

    /// Fails the test at once, by an exception, when there is no such control.
    template <class T>
    T* child(const char* name) {
        T* found = m_panel->findChild<T*>(QLatin1String(name));
        return found != nullptr ? found : throw std::runtime_error(name);
    }
    QLineEdit* edit(const char* name);
    QComboBox* combo(const char* name);
    QPushButton* button(const char* name);
    QTextEdit* textBox(const char* name);

    /// Clicks a button or radio button with the mouse.
    void click(const char* name);
    /// Types into an emptied field, key by key.
    void type(const char* name, const std::string& keys);
    /// Puts a text into a field past its validator.
    void put(const char* name, const std::string& text);
    std::string textOf(const char* name);

    /// Preamble "PRE", postscript "POST", absolute motion, Z safe 5, retraction 10, depth -1,
    /// feeds 300 and 100 (Z): short programs with a number for everything.
    void usePlainSettings();
    /// As above for the drill page: depth -2, retract 1, feed 100, dwell 0.5, peck 0.25.
    void useDrillSettings(int cycle);

    /// Clicks "Generate" and returns the program; "(none)" when none was sent.
    std::string generate();
    /// The last text that was sent to the preview.
    std::string lastProgram() const;
    std::size_t programCount() const { return static_cast<std::size_t>(m_programs.count()); }

    GCodeWidget& panel() { return *m_panel; }
    QWidget& parent() { return m_parent; }

    TestHost host;

private:
    QWidget m_parent;
    std::unique_ptr<GCodeWidget> m_panel;
    QSignalSpy m_programs;
};
