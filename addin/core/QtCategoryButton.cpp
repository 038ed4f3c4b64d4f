// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/QtCategoryButton.h"

#include <QTreeWidget>

#include "core/PanelResources.h"

QtCategoryButton::QtCategoryButton(const QString& text, QTreeWidget* parent, QTreeWidgetItem* item)
    : QPushButton(text, parent), m_pItem(item) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setStyleSheet(panelStyleSheet());
}

void QtCategoryButton::ButtonPressed() {}
