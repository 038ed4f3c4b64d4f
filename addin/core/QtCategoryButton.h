// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

class QTreeWidget;
class QTreeWidgetItem;

/// The header of a category of the panel. The panel itself expands and collapses.
class QtCategoryButton : public QPushButton {
    Q_OBJECT

public:
    /// `item` is the tree item it heads; `parent` must not be null.
    QtCategoryButton(const QString& text, QTreeWidget* parent, QTreeWidgetItem* item);

public slots:
    /// Does nothing: the panel reacts to the header's group.
    void ButtonPressed();

private:
    QTreeWidgetItem* m_pItem;
};
