// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Commands that change the drawing, and take it back.
#include <cmath>

#include <QCoreApplication>
#include <QLocale>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>

#include "commandline/CommandTable.h"
#include "drawing/Explode.h"
#include "drawing/Selectable.h"
#include "window/DrawingTab.h"
#include "window/ExplodeCommand.h"
#include "window/HostParts.h"
#include "window/HostSettings.h"
#include "window/SelectionKeeper.h"
#include "window/ToolPathCheck.h"

namespace {

using Objects = std::vector<kxObject_ptr>;

QString tr(const char* text) {
    return QCoreApplication::translate("HostCommands", text);
}

/// The tolerance that was typed or else set; nothing for a word that is none.
std::optional<double> toleranceOf(const HostParts& parts, const CommandArguments& arguments) {
    if (arguments.isEmpty()) {
        return parts.settings->explodeTolerance;
    }
    bool isNumber = false;
    const double typed = QLocale::c().toDouble(arguments.first(), &isNumber);
    if (!isNumber || !std::isfinite(typed) || typed <= 0) {
        parts.complain(tr("No tolerance: %1. It is a number above 0.").arg(arguments.first()));
        return std::nullopt;
    }
    return typed;
}

void explodeObjects(const HostParts& parts, DrawingTab& tab, const Objects& objects,
                    double tolerance) {
    if (ToolPathCheck(objects).countExplodable() == 0) {
        parts.say(tr("Nothing to explode: no polyline, ellipse or spline among %1 selected.")
                      .arg(objects.size()));
        return;
    }
    const kxHostDocument_ptr document = tab.document();
    auto before = ExplodeCommand::State::of(*document);
    const kxdrawing::ExplodeResult result = kxdrawing::explode(*document, objects, tolerance);
    if (result.exploded.empty()) {
        parts.say(tr("Nothing to explode: what is selected has no length."));
        return;
    }
    Objects selected = tab.selection();
    selected.insert(selected.end(), result.pieces.begin(), result.pieces.end());
    document->SetSelection(kxSelectionSetType_Current, selected);
    tab.undoStack()->push(new ExplodeCommand(document, std::move(before)));
    parts.say(explodeText(result));
}

void explode(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    const std::optional<double> tolerance = toleranceOf(parts, arguments);
    if (!tolerance) {
        return;
    }
    if (tab.selection().empty()) {
        parts.say(tr("Nothing is selected. Select what EXPLODE is to take apart."));
        return;
    }
    explodeObjects(parts, tab, tab.selection(), *tolerance);
}

void checkToolPath(const HostParts& parts, DrawingTab& tab) {
    const bool hasSelection = !tab.selection().empty();
    const Objects objects =
        hasSelection ? tab.selection() : kxdrawing::selectableObjects(*tab.document());
    const ToolPathCheck check(objects);
    QMessageBox box(QMessageBox::Information, tr("Tool Path Check"),
                    (hasSelection ? tr("Of the selection:\n") : tr("Of the whole drawing:\n")) +
                        check.longText(),
                    QMessageBox::Close, parts.window);
    box.setObjectName("toolPathCheck");
    QAbstractButton* explodeButton = nullptr;
    if (check.countExplodable() != 0) {
        explodeButton = box.addButton(tr("&Explode"), QMessageBox::ActionRole);
        explodeButton->setObjectName("toolPathExplode");
    }
    box.exec();
    if (explodeButton != nullptr && box.clickedButton() == explodeButton) {
        explodeObjects(parts, tab, objects, parts.settings->explodeTolerance);
    }
}

void undo(const HostParts& parts, DrawingTab& tab) {
    if (!tab.undoStack()->canUndo()) {
        parts.say(tr("Nothing to undo."));
        return;
    }
    const QString step = tab.undoStack()->undoText();
    tab.undoStack()->undo();
    parts.say(tr("Undone: %1").arg(step));
}

void redo(const HostParts& parts, DrawingTab& tab) {
    if (!tab.undoStack()->canRedo()) {
        parts.say(tr("Nothing to redo."));
        return;
    }
    const QString step = tab.undoStack()->redoText();
    tab.undoStack()->redo();
    parts.say(tr("Done again: %1").arg(step));
}

}  // namespace

void addEditCommands(const HostParts& parts) {
    CommandTable& table = *parts.commands;
    table.add({"EXPLODE", "[TOLERANCE]",
               tr("Turns selected polylines, ellipses and splines into lines and arcs."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments& arguments) {
                   explode(parts, tab, arguments);
               })});
    table.add({"UNDO", QString(), tr("Takes the last explode back."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments&) { undo(parts, tab); })});
    table.add({"REDO", QString(), tr("Does again what was taken back."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments&) { redo(parts, tab); })});
    table.add({"TOOLPATHCHECK", QString(), tr("Says which objects give no tool path."),
               onDrawing(parts, [parts](DrawingTab& tab, const CommandArguments&) {
                   checkToolPath(parts, tab);
               })});
}
