// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "PanelDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QTextEdit>
#include <QTimer>

#include "ProgramReceiver.h"

namespace {

constexpr char kProgramSignal[] = "GCodeGenFinish(QString)";

/// The widget below the pane that gives out programs.
QWidget* findProgramSource(QWidget* pane) {
    for (QWidget* widget : pane->findChildren<QWidget*>()) {
        if (widget->metaObject()->indexOfSignal(kProgramSignal) >= 0) {
            return widget;
        }
    }
    return nullptr;
}

/// Closes a box in which the toolkit complains about the file, so that nobody waits for it.
void closeComplaint() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box != nullptr) {
        box->close();
    }
}

/// Fills in the file dialog that is open now.
void answerFileDialog(const QString& path) {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) {
        return;
    }
    dialog->selectFile(path);
    QTimer::singleShot(0, dialog, &closeComplaint);
    // The public slot of the base class; the file dialog hides its own.
    static_cast<QDialog*>(dialog)->accept();
    if (dialog->isVisible()) {
        dialog->reject();
    }
}

}  // namespace

template <class Control>
Control* PanelDriver::find(const char* name) {
    auto* control = m_panel->findChild<Control*>(QLatin1String(name));
    if (control == nullptr) {
        m_missingControl = name;
    }
    return control;
}

bool PanelDriver::typeField(const char* name, const std::string& text) {
    auto* field = find<QLineEdit>(name);
    if (field != nullptr) {
        field->setText(QString::fromStdString(text));
    }
    return field != nullptr;
}

bool PanelDriver::typeText(const char* name, const QString& text) {
    auto* box = find<QTextEdit>(name);
    if (box != nullptr) {
        box->setPlainText(text);
    }
    return box != nullptr;
}

bool PanelDriver::choose(const char* name, int index) {
    auto* combo = find<QComboBox>(name);
    if (combo != nullptr) {
        combo->setCurrentIndex(index);
    }
    return combo != nullptr;
}

bool PanelDriver::check(const char* name, bool checked) {
    auto* button = find<QAbstractButton>(name);
    if (button != nullptr) {
        button->setChecked(checked);
    }
    return button != nullptr;
}

bool PanelDriver::click(const char* name) {
    auto* button = find<QAbstractButton>(name);
    if (button != nullptr) {
        button->click();
    }
    return button != nullptr;
}

bool PanelDriver::generate(QString* program, bool* finished) {
    QWidget* source = findProgramSource(m_panel);
    if (source == nullptr) {
        m_missingControl = kProgramSignal;
        return false;
    }
    ProgramReceiver receiver;
    QObject::connect(source, SIGNAL(GCodeGenFinish(QString)), &receiver, SLOT(take(QString)));
    const bool clicked = click("generateGCodeBtn");
    *finished = receiver.program().has_value();
    *program = receiver.program().value_or(QString());
    return clicked;
}

std::optional<QByteArray> PanelDriver::save(const QString& path) {
    QTimer::singleShot(0, m_panel, [path] { answerFileDialog(path); });
    QFile file(path);
    if (!click("saveBtn") || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

bool PanelDriver::open(const QString& path) {
    // The dialog takes a relative path as one below its own folder.
    const QString whole = QFileInfo(path).absoluteFilePath();
    QTimer::singleShot(0, m_panel, [whole] { answerFileDialog(whole); });
    return click("selectFileBtn");
}
