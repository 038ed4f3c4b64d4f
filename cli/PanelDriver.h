// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>

#include <QByteArray>
#include <QString>
#include <QWidget>

/// Works the add-in's panel as a user does: it knows the controls by their object names only.
class PanelDriver {
public:
    explicit PanelDriver(QWidget* panel) : m_panel(panel) {}

    // Each is false when the panel has no such control; `missingControl` then names it.
    bool typeField(const char* name, const std::string& text);
    bool typeText(const char* name, const QString& text);
    bool choose(const char* name, int index);
    bool check(const char* name, bool checked);
    bool click(const char* name);
    /// Clicks "Generate"; `finished` tells whether the panel gave out a program.
    bool generate(QString* program, bool* finished);
    /// Clicks "Save" and answers its dialog with a file that does not exist yet; the content of
    /// the file, or nothing when none was written.
    std::optional<QByteArray> save(const QString& path);

    /// Clicks "Select file" and answers its dialog with an existing file.
    bool open(const QString& path);

    const std::string& missingControl() const { return m_missingControl; }

private:
    template <class Control>
    Control* find(const char* name);

    QWidget* m_panel;
    std::string m_missingControl;
};
