// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/WrappedRows.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTreeWidget>

namespace {

constexpr int kUnbounded = 1 << 20;

/// A tree asks for the height of a row without telling its width.
class WrappedText : public QStyledItemDelegate {
public:
    explicit WrappedText(QTreeWidget* table) : QStyledItemDelegate(table), m_table(table) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem item(option);
        item.rect = QRect(0, 0, m_table->columnWidth(index.column()), kUnbounded);
        return QStyledItemDelegate::sizeHint(item, index);
    }

private:
    QTreeWidget* m_table;
};

}  // namespace

void wrapRows(QTreeWidget* table, int column) {
    table->setUniformRowHeights(false);
    table->setWordWrap(true);
    table->setTextElideMode(Qt::ElideNone);
    table->setItemDelegateForColumn(column, new WrappedText(table));
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A bar that came and went with the height of the rows would change it each time.
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table->header()->setSectionResizeMode(column, QHeaderView::Stretch);
    QObject::connect(table->header(), &QHeaderView::sectionResized, table,
                     [table] { table->doItemsLayout(); });
}
