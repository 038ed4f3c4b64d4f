// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QStringList>

class QWidget;

/// A line of a choice: what it stands for, and how many objects there are.
struct ChoiceItem {
    QString name;
    long count = 0;
};

struct Choice {
    QString title;
    QString text;
    std::vector<ChoiceItem> items;
};

/// Lets the user check some of the items ("choiceList"); nothing when cancelled.
std::optional<QStringList> chooseMany(const Choice& choice, QWidget* parent);

/// Shows a text in a window of its own that stays beside the work ("textView").
void showText(const QString& title, const QString& text, QWidget* parent);
