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
#include "window/CheckFields.h"
#include "window/CheckedProgram.h"
#include "window/Dialogs.h"
#include "window/DrawingTab.h"
#include "window/Drawings.h"
#include "window/FindingPath.h"
#include "window/SelectionKeeper.h"

namespace {

/// Of the dock when it comes up: sentences are to be read.
constexpr int kWidth = 380;
constexpr int kUpdateMs = 50;

}  // namespace

ProgramCheck::ProgramCheck(const Parts& parts)
    : QObject(parts.window), m_parts(parts), m_dock(new CheckDock(parts.window)) {
    connectDock();
    connect(&m_watch, &FileWatch::changed, this,
            [this] { forget(tr("The program was written anew: check again.")); });
    connect(&m_progress, &QTimer::timeout, this, &ProgramCheck::tellProgress);
    connect(&m_worker, &CheckWorker::finished, this, &ProgramCheck::finish);
}

void ProgramCheck::connectDock() {
    connect(m_dock, &CheckDock::chooseAsked, this, &ProgramCheck::choose);
    connect(m_dock, &CheckDock::againAsked, this, [this] { run(m_program->file()); });
    connect(m_dock, &CheckDock::stopAsked, this, &ProgramCheck::stop);
    connect(m_dock, &CheckDock::reportAsked, this, &ProgramCheck::showReport);
    connect(m_dock, &CheckDock::pageAsked, this, m_parts.showManual);
    connect(m_dock, &CheckDock::findingChosen, this, &ProgramCheck::showFinding);
    connect(m_dock->fields(), &CheckFields::entered, this, [this] {
        if (m_program != nullptr) {
            run(m_program->file());
        }
    });
    // Later, since a dock is hidden for a moment while it is taken out of the window or put back.
    connect(
        m_dock, &QDockWidget::visibilityChanged, this, [this] { noticeDock(); },
        Qt::QueuedConnection);
}

void ProgramCheck::noticeDock() {
    // Behind another dock's tab it goes on to be what the user works with.
    if (m_dock->isHidden()) {
        stop();
        if (m_tab) {
            m_tab->view()->showPath({});
        }
    }
}

void ProgramCheck::run(const QString& file) {
    if (file.isEmpty()) {
        choose();
        return;
    }
    if (!areFieldsRight() || !load(QFileInfo(file).absoluteFilePath())) {
        return;
    }
    showDock();
    check();
}

void ProgramCheck::showDock() {
    if (m_dock->isHidden()) {
        m_dock->show();
        m_parts.window->resizeDocks({m_dock}, {kWidth}, Qt::Horizontal);
    }
    m_dock->raise();
}

bool ProgramCheck::areFieldsRight() {
    const QString error = m_dock->fields()->error();
    if (error.isEmpty()) {
        return true;
    }
    m_parts.complain(tr("The tools of the check can't be read: %1").arg(error));
    showDock();
    m_dock->fields()->focusError();
    return false;
}

void ProgramCheck::stop() {
    if (isRunning()) {
        m_worker.stop();
        m_progress.stop();
        m_dock->showNothing(m_program->file(), tr("The check was stopped."));
        take({});
    }
}

bool ProgramCheck::load(const QString& path) {
    QString error;
    const QString before = m_program != nullptr ? m_program->file() : QString();
    // First, so that what is written while the file is read is still said.
    m_watch.add(path);
    m_watch.accept(path);
    auto program = std::make_shared<CheckedProgram>();
    if (!program->load(path, &error)) {
        if (path != before) {
            m_watch.remove(path);
        }
        m_parts.complain(tr("The program can't be read: %1: %2").arg(path, error));
        return false;
    }
    if (path != before && !before.isEmpty()) {
        m_watch.remove(before);
    }
    m_program = std::move(program);
    return true;
}

void ProgramCheck::choose() {
    const DrawingTab* tab = m_parts.drawings->current();
    const QString known = m_program != nullptr ? m_program->file() : QString();
    const QString before = known.isEmpty() && tab != nullptr ? tab->path() : known;
    const QString file = QFileDialog::getOpenFileName(
        m_parts.window, tr("Check Program"), QFileInfo(before).path(),
        tr("Programs (*.nc *.ngc *.txt *.tap *.gcode);;All files (*)"));
    if (!file.isEmpty()) {
        run(file);
    }
}

std::optional<gcode_check::Drawing> ProgramCheck::hold(DrawingTab* tab) {
    follow(tab);
    m_mmPerUnit.reset();
    if (tab == nullptr) {
        m_heldAgainst = tr("no drawing");
        return std::nullopt;
    }
    std::vector<kxObject_ptr> objects = m_parts.selection->selected(tab);
    const bool isSelection = !objects.empty();
    if (!isSelection) {
        objects = tab->view()->scene().objects();
    }
    gcode_check::Drawing drawing = kxdrawing::checkShapes(objects, tab->unit()).drawing;
    m_mmPerUnit = drawing.mmPerUnit;
    const auto count = static_cast<qulonglong>(drawing.shapes.size());
    m_heldAgainst = (isSelection ? tr("%1 selected objects of %2") : tr("all %1 objects of %2"))
                        .arg(QString::number(count), tab->name());
    return drawing;
}

void ProgramCheck::check() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto task = std::make_shared<CheckTask>();
    task->program = m_program;
    task->drawing = hold(m_parts.drawings->current());
    const CheckValues values = m_dock->fields()->values();
    task->options.surfaceZ = values.surface;
    task->options.depth = values.depth;
    task->options.tolerance = values.tolerance;
    task->options.machine.tools = values.tools;
    m_dock->fields()->accept();
    m_outdated.clear();
    m_worker.start(std::move(task));
    m_progress.start(kQuietMs);
    QApplication::restoreOverrideCursor();
}

void ProgramCheck::tellProgress() {
    if (m_progress.interval() != kUpdateMs) {
        m_progress.setInterval(kUpdateMs);
        m_dock->showChecking(m_program->file(), m_heldAgainst);
        take({});
    }
    m_dock->setPart(m_worker.part());
}

void ProgramCheck::finish(const CheckWorker::Result& result) {
    m_progress.stop();
    const QString name = QFileInfo(m_program->file()).fileName();
    if (result == nullptr) {
        const QString why = tr("There is not enough memory to check it.");
        m_dock->showNothing(m_program->file(), why);
        take({});
        m_parts.complain(name + ": " + why);
        return;
    }
    m_dock->showResult({m_program, result}, m_heldAgainst);
    take({m_program, result});
    m_parts.say(name + ": " + QString::fromStdString(verdictText(*result)));
    if (!m_outdated.isEmpty()) {
        m_dock->tellOutdated(m_outdated);
    }
}

/// What was shown before may be large: where nobody waits for it, it is freed.
void ProgramCheck::take(const CheckedResult& checked) {
    m_worker.discard(std::make_shared<CheckedResult>(std::move(m_checked)));
    m_checked = checked;
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
        connect(tab, &QObject::destroyed, this, [this] {
            // Its view is gone already.
            m_tab.clear();
            forget(tr("The drawing was closed."));
        });
    }
}

void ProgramCheck::forget(const QString& why) {
    if (m_tab) {
        m_tab->view()->showPath({});
    }
    m_outdated = why;
    if (!isRunning()) {
        m_dock->tellOutdated(why);
    }
}

void ProgramCheck::showFinding(int index) {
    // While the next check runs, what is still shown is not of this drawing.
    if (!m_tab || isRunning()) {
        return;
    }
    if (index < 0) {
        m_tab->view()->showPath({});
        return;
    }
    const gcode_check::CheckResult& result = *m_checked.result;
    const double programUnit = result.inches ? 25.4 : 1;
    m_tab->view()->showPath(pathOfFinding(result, result.findings[static_cast<std::size_t>(index)],
                                          *m_checked.program, m_mmPerUnit.value_or(programUnit)));
}

void ProgramCheck::showReport() {
    const QString file = m_checked.program->file();
    gcode_check::ReportHead head;
    head.program = file.toStdString();
    head.drawing = m_tab ? m_tab->path().toStdString() : std::string();
    head.surfaceGiven = true;
    showText(tr("Check of %1").arg(QFileInfo(file).fileName()),
             QString::fromStdString(textReport(*m_checked.result, head)), m_parts.window);
}
