// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/QtCategoryButton.h"

#include <gtest/gtest.h>

#include <QTreeWidget>

#include "core/PanelResources.h"

TEST(QtCategoryButton, HasItsTextItsParentAndThePanelsStyleSheet) {
    QTreeWidget tree;
    auto* item = new QTreeWidgetItem(&tree);
    const QtCategoryButton button("Header", &tree, item);
    EXPECT_EQ(button.text(), QString("Header"));
    EXPECT_EQ(button.parent(), &tree);
    EXPECT_EQ(button.styleSheet(), panelStyleSheet());
    EXPECT_EQ(button.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(button.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
}

TEST(QtCategoryButton, PressingItDoesNothingByItself) {
    QTreeWidget tree;
    auto* item = new QTreeWidgetItem(&tree);
    new QTreeWidgetItem(item);
    item->setExpanded(true);
    QtCategoryButton button("Header", &tree, item);
    EXPECT_GE(button.metaObject()->indexOfSlot("ButtonPressed()"), 0);
    button.ButtonPressed();
    button.click();
    EXPECT_TRUE(item->isExpanded());
    EXPECT_EQ(button.text(), QString("Header"));
}
