// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/Dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "window/ObjectText.h"

namespace {

void fill(QListWidget* list, const std::vector<ChoiceItem>& items) {
    for (const ChoiceItem& item : items) {
        auto* row = new QListWidgetItem(
            QObject::tr("%1 (%2)").arg(item.name, QString::number(item.count)), list);
        row->setData(Qt::UserRole, item.name);
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(Qt::Unchecked);
    }
    list->setCurrentRow(0);
}

QStringList checkedNames(const QListWidget& list) {
    QStringList names;
    for (int row = 0; row < list.count(); ++row) {
        if (list.item(row)->checkState() == Qt::Checked) {
            names.append(list.item(row)->data(Qt::UserRole).toString());
        }
    }
    return names;
}

}  // namespace

std::optional<QStringList> chooseMany(const Choice& choice, QWidget* parent) {
    QDialog dialog(parent);
    dialog.setWindowTitle(choice.title);
    dialog.setObjectName("choiceDialog");
    auto* rows = new QVBoxLayout(&dialog);
    auto* list = new QListWidget(&dialog);
    list->setObjectName("choiceList");
    fill(list, choice.items);
    auto* label = new QLabel(choice.text, &dialog);
    label->setBuddy(list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->setObjectName("buttonBox");
    rows->addWidget(label);
    rows->addWidget(list);
    rows->addWidget(buttons);
    QPushButton* accept = buttons->button(QDialogButtonBox::Ok);
    accept->setEnabled(false);
    QObject::connect(list, &QListWidget::itemChanged, &dialog,
                     [=] { accept->setEnabled(!checkedNames(*list).isEmpty()); });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    dialog.resize(340, 360);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return checkedNames(*list);
}

void showText(const QString& title, const QString& text, QWidget* parent) {
    auto* dialog = new QDialog(parent);
    dialog->setObjectName("textDialog");
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    auto* view = new QPlainTextEdit(text, dialog);
    view->setObjectName("textView");
    view->setReadOnly(true);
    view->setTabChangesFocus(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* rows = new QVBoxLayout(dialog);
    rows->addWidget(view);
    rows->addWidget(buttons);
    dialog->resize(720, 420);
    dialog->show();
}
