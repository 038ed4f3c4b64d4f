// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ProgramCheck.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>

#include "drawing/CheckShapes.h"
#include "report/TextReport.h"
#include "report/Verdict.h"
#include "view/DrawingView.h"
#include "window/CheckDock.h"
#include "window/Dialogs.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/FindingPath.h"
#include "window/SelectionKeeper.h"

namespace {

/// Of the dock when it comes up: sentences are to be read.
constexpr int kWidth = 360;

}  // namespace

ProgramCheck::ProgramCheck(const Parts& parts)
    : QObject(parts.window), m_parts(parts), m_dock(new CheckDock(parts.window)) {
    connect(m_dock, &CheckDock::chooseAsked, this, &ProgramCheck::choose);
    connect(m_dock, &CheckDock::againAsked, this, [this] { run(m_program.file()); });
    connect(m_dock, &CheckDock::reportAsked, this, &ProgramCheck::showReport);
    connect(m_dock, &CheckDock::pageAsked, this, m_parts.showManual);
    connect(m_dock, &CheckDock::findingChosen, this, &ProgramCheck::showFinding);
    connect(&m_watch, &FileWatch::changed, this,
            [this] { forget(tr("The program was written anew: check again.")); });
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this](bool) {
        // Behind another dock's tab it goes on to be what the user works with.
        if (m_dock->isHidden() && m_tab) {
            m_tab->view()->showPath({});
        }
    });
}

void ProgramCheck::run(const QString& file) {
    if (file.isEmpty()) {
        choose();
        return;
    }
    if (!load(QFileInfo(file).absoluteFilePath())) {
        return;
    }
    check();
    if (m_dock->isHidden()) {
        m_dock->show();
        m_parts.window->resizeDocks({m_dock}, {kWidth}, Qt::Horizontal);
    }
    m_dock->raise();
}

bool ProgramCheck::load(const QString& path) {
    QString error;
    const QString before = m_program.file();
    // First, so that what is written while the file is read is still said.
    m_watch.add(path);
    m_watch.accept(path);
    if (!m_program.load(path, &error)) {
        if (path != before) {
            m_watch.remove(path);
        }
        m_parts.complain(tr("The program can't be read: %1: %2").arg(path, error));
        return false;
    }
    if (path != before && !before.isEmpty()) {
        m_watch.remove(before);
    }
    return true;
}

void ProgramCheck::choose() {
    const DrawingTab* tab = m_parts.drawings->current();
    const QString before =
        m_program.file().isEmpty() && tab != nullptr ? tab->path() : m_program.file();
    const QString file = QFileDialog::getOpenFileName(
        m_parts.window, tr("Check Program"), QFileInfo(before).path(),
        tr("Programs (*.nc *.ngc *.txt *.tap *.gcode);;All files (*)"));
    if (!file.isEmpty()) {
        run(file);
    }
}

QString ProgramCheck::hold(DrawingTab* tab) {
    m_drawing = {};
    follow(tab);
    if (tab == nullptr) {
        return tr("no drawing");
    }
    std::vector<kxObject_ptr> objects = m_parts.selection->selected(tab);
    const bool isSelection = !objects.empty();
    if (!isSelection) {
        objects = tab->view()->scene().objects();
    }
    kxdrawing::CheckShapes shapes = kxdrawing::checkShapes(objects, tab->unit());
    m_drawing = std::move(shapes.drawing);
    const auto count = static_cast<qulonglong>(m_drawing.shapes.size());
    return (isSelection ? tr("%1 selected objects of %2") : tr("all %1 objects of %2"))
        .arg(QString::number(count), tab->name());
}

void ProgramCheck::check() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    DrawingTab* tab = m_parts.drawings->current();
    const QString heldAgainst = hold(tab);
    gcode_check::CheckOptions options;
    const CheckValues values = m_dock->values();
    options.surfaceZ = values.surface;
    options.depth = values.depth;
    options.tolerance = values.tolerance;
    m_result = gcode_check::check(m_program.text(), options, tab != nullptr ? &m_drawing : nullptr);
    m_dock->showResult(&m_program, &m_result, heldAgainst);
    QApplication::restoreOverrideCursor();
    m_parts.say(QFileInfo(m_program.file()).fileName() + ": " +
                QString::fromStdString(verdictText(m_result)));
}

void ProgramCheck::follow(DrawingTab* tab) {
    if (m_tab) {
        m_tab->disconnect(this);
        m_tab->view()->showPath({});
    }
    m_tab = tab;
    if (tab != nullptr) {
        connect(tab, &DrawingTab::objectsChanged, this,
                [this] { forget(tr("The drawing changed: check again.")); });
        connect(tab, &QObject::destroyed, this,
                [this] { m_dock->tellOutdated(tr("The drawing was closed.")); });
    }
}

void ProgramCheck::forget(const QString& why) {
    if (m_tab) {
        m_tab->view()->showPath({});
    }
    m_dock->tellOutdated(why);
}

void ProgramCheck::showFinding(int index) {
    if (!m_tab) {
        return;
    }
    if (index < 0) {
        m_tab->view()->showPath({});
        return;
    }
    const double programUnit = m_result.inches ? 25.4 : 1;
    m_tab->view()->showPath(pathOfFinding(m_result,
                                          m_result.findings[static_cast<std::size_t>(index)],
                                          m_program, m_drawing.mmPerUnit.value_or(programUnit)));
}

void ProgramCheck::showReport() {
    gcode_check::ReportHead head;
    head.program = m_program.file().toStdString();
    head.drawing = m_tab ? m_tab->path().toStdString() : std::string();
    head.surfaceGiven = true;
    showText(tr("Check of %1").arg(QFileInfo(m_program.file()).fileName()),
             QString::fromStdString(textReport(m_result, head)), m_parts.window);
}
