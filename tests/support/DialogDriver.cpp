// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

constexpr int kPollMs = 20;

QLineEdit& nameField(QDialog& dialog) {
    return *dialog.findChild<QLineEdit*>("fileNameEdit");
}

void clickStandardButton(QDialog& dialog, QDialogButtonBox::StandardButton button) {
    auto* box = dialog.findChild<QDialogButtonBox*>("buttonBox");
    QTest::mouseClick(box->button(button), Qt::LeftButton);
}

void accept(QDialog& dialog) {
    const bool saves = dynamic_cast<QFileDialog&>(dialog).acceptMode() == QFileDialog::AcceptSave;
    clickStandardButton(dialog, saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
}

}  // namespace

DialogDriver::DialogDriver() {
    connect(&m_timer, &QTimer::timeout, this, &DialogDriver::answerNext);
    m_timer.start(kPollMs);
}

DialogDriver::~DialogDriver() {
    for (const std::string& title : m_unexpected) {
        ADD_FAILURE() << "an unexpected dialog: " << title;
    }
    EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected dialogs did not come";
}

void DialogDriver::chooseFile(const QString& path) {
    m_answers.emplace_back([path](QDialog& dialog) {
        nameField(dialog).setText(path);
        accept(dialog);
    });
}

void DialogDriver::cancelFile() {
    m_answers.emplace_back(
        [](QDialog& dialog) { clickStandardButton(dialog, QDialogButtonBox::Cancel); });
}

void DialogDriver::press(QMessageBox::StandardButton button) {
    m_answers.emplace_back([button](QDialog& dialog) {
        QTest::mouseClick(dynamic_cast<QMessageBox&>(dialog).button(button), Qt::LeftButton);
    });
}

void DialogDriver::dismiss() {
    m_answers.emplace_back([](QDialog& dialog) { dialog.done(-1); });
}

SeenDialog DialogDriver::describe(QDialog& dialog) {
    SeenDialog seen;
    seen.title = dialog.windowTitle().toStdString();
    seen.parent = dialog.parentWidget();
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        seen.text = box->text().toStdString();
        seen.buttons = box->standardButtons();
        seen.hasDefaultButton = box->defaultButton() != nullptr;
    }
    if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
        for (const QString& filter : files->nameFilters()) {
            seen.filters.push_back(filter.toStdString());
        }
        seen.saves = files->acceptMode() == QFileDialog::AcceptSave;
        seen.proposedName = nameField(dialog).text().toStdString();
    }
    return seen;
}

void DialogDriver::answerNext() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() || m_isAnswering) {
        return;
    }
    if (m_answers.empty()) {
        m_unexpected.push_back(dialog->windowTitle().toStdString());
        dialog->reject();
        return;
    }
    m_seen.push_back(describe(*dialog));
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    // Not from within the timer: an answer may open a further dialog, and the timer must go on.
    m_isAnswering = true;
    QTimer::singleShot(0, dialog, [this, dialog, answer] {
        m_isAnswering = false;
        answer(*dialog);
    });
}
