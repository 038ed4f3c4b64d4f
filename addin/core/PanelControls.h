// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>

#include <QString>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStringList;
class QTextEdit;
class QTreeWidget;
class QWidget;

// The controls the panel is made of, each with its object name and look. Sizes in pixels.

/// A text box of at most `maximumHeight`. Plain text only: what is typed goes into the program.
QTextEdit* createTextBox(const QString& name, int maximumHeight, QWidget* parent);

/// What was typed into a text box, as UTF-8 with line feeds. Unlike the box's own plain text it
/// keeps no-break spaces.
std::string typedText(const QTextEdit* box);

QComboBox* createComboBox(const QString& name, const QStringList& items, QWidget* parent);

/// A button with a tooltip and an icon.
QPushButton* createIconButton(const QString& name, const QString& toolTip, const QString& icon,
                              QWidget* parent);

/// The names of a row's widgets, and what they show.
struct FieldRow {
    const char* labelName = nullptr;
    const char* editName = nullptr;
    /// Null for a row without a picture.
    const char* icon = nullptr;
    QString placeholder;
};

/// Adds a row to a page's grid: an icon label of 30 x 30 and a line edit.
std::pair<QLabel*, QLineEdit*> addFieldRow(const FieldRow& row, QGridLayout* grid);

/// Scrolls a tree to each of the controls in it that the keyboard's focus comes to.
void showFocused(QTreeWidget* tree);
