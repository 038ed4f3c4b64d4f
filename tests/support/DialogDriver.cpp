// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

constexpr int kPollMs = 20;
constexpr int kRetryMs = 1000;

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
    connect(&m_timer, &QTimer::timeout, this, &DialogDriver::look);
    m_sinceAnswer.start();
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

void DialogDriver::look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() || m_isAnswering) {
        return;
    }
    // A dialog stays for a moment after its answer, and comes back when one above it closes.
    const auto earlier = std::find_if(m_answered.begin(), m_answered.end(),
                                      [&](const Answered& one) { return one.dialog == dialog; });
    if (earlier == m_answered.end()) {
        answerFirstTime(dialog);
    } else if (m_sinceAnswer.elapsed() > kRetryMs) {
        answerAgain(*earlier);
    }
}

void DialogDriver::answerFirstTime(QDialog* dialog) {
    if (m_answers.empty()) {
        m_unexpected.push_back(dialog->windowTitle().toStdString());
        m_answered.push_back({dialog, [](QDialog& open) { open.reject(); }});
        dialog->reject();
        return;
    }
    m_seen.push_back(describe(*dialog));
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    m_answered.push_back({dialog, answer});
    give(answer, dialog);
}

void DialogDriver::answerAgain(const Answered& earlier) {
    // On a busy machine a click can come before the window system has shown the dialog.
    give(earlier.answer, earlier.dialog);
}

void DialogDriver::give(const Answer& answer, QDialog* dialog) {
    // Not from within the timer: an answer may open a further dialog, and the timer must go on.
    m_isAnswering = true;
    QTimer::singleShot(0, dialog, [this, dialog, answer] {
        m_isAnswering = false;
        m_sinceAnswer.start();
        answer(*dialog);
    });
}
