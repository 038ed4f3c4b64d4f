// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostActions.h"

#include <array>
#include <utility>

#include <QIcon>
#include <QKeySequence>

namespace {

enum class Needs { Nothing, Drawing };

struct Spec {
    const char* command;
    /// With the mnemonic of menus; Tools gives its own.
    const char* text;
    /// Null for none.
    const char* icon;
    /// Separated by "; ".
    const char* shortcuts;
    const char* tip;
    Needs needs = Needs::Drawing;
    bool isSwitch = false;
};

// NOLINTNEXTLINE(readability-function-size): a plain table
constexpr std::array<Spec, 36> kSpecs{{
    {"OPEN", "&Open...", "open", "Ctrl+O", "Open drawings", Needs::Nothing},
    {"RELOAD", "&Reload", "reload", "Ctrl+R; F5", "Read the drawing from its file again"},
    {"CLOSE", "&Close", "close", "Ctrl+W", "Close the drawing"},
    {"QUIT", "&Quit", "quit", "Ctrl+Q", "Close all drawings and end the program", Needs::Nothing},
    {"UNDO", "&Undo", "undo", "Ctrl+Z", "Take the last explode back"},
    {"REDO", "&Redo", "redo", "Ctrl+Shift+Z; Ctrl+Y", "Do again what was taken back"},
    {"SELECTALL", "Select &All", "select-all", "Ctrl+A", "Select all that is shown"},
    {"SELECTLAYER", "Select by &Layer...", "select-layer", "Ctrl+L",
     "Select the objects of layers"},
    {"SELECTTYPE", "Select by &Type...", "select-type", "Ctrl+T", "Select the objects of types"},
    {"INVERT", "&Invert Selection", "invert", "Ctrl+I", "Select what is not selected"},
    {"CLEAR", "&Clear Selection", "clear", "Ctrl+Shift+A", "Select nothing (Esc in the drawing)"},
    {"EXPLODE", "&Explode", "explode", "Ctrl+E",
     "Turn selected polylines, ellipses and splines into lines and arcs"},
    {"ZOOMFIT", "Zoom to &Fit", "zoom-fit", "Ctrl+0", "Show the whole drawing"},
    {"ZOOMWINDOW", "Zoom &Window", "zoom-window", "Ctrl+Shift+W",
     "Show the part that the next box encloses"},
    {"ZOOMIN", "Zoom &In", "zoom-in", "Ctrl++; Ctrl+=", "Show less of the drawing, larger"},
    {"ZOOMOUT", "Zoom &Out", "zoom-out", "Ctrl+-", "Show more of the drawing, smaller"},
    {"GRID", "&Grid", "grid", "F7", "Show the grid", Needs::Nothing, true},
    {"AXES", "&Axes", "axes", "F8", "Show the axes", Needs::Nothing, true},
    {"CANVAS", "Light &Canvas", "canvas", "F9", "Draw on a light canvas", Needs::Nothing, true},
    {"NEXT", "&Next Drawing", nullptr, "Ctrl+Tab; Ctrl+PgDown", "Show the next drawing"},
    {"PREVIOUS", "&Previous Drawing", nullptr, "Ctrl+Shift+Tab; Ctrl+PgUp",
     "Show the drawing before"},
    {"NEXTAREA", "Next A&rea", nullptr, "F6",
     "Go on to the command line, a panel, the layers, or the drawing", Needs::Nothing},
    {"PREVIOUSAREA", "Previous Area", nullptr, "Shift+F6", "Go the other way round",
     Needs::Nothing},
    {"INFO", "Object Information", "info", "Ctrl+D", "Tell about the selected objects"},
    {"MEASURE", "Measure Distance", "measure", "Ctrl+M", "Measure between two points"},
    {"REPORT", "Import Report", "report", "", "Show what became of the file's entities"},
    {"TOOLPATHCHECK", "Tool Path Check", "check", "Ctrl+K", "Say which objects give no tool path"},
    {"PICTURE", "Save Picture...", "picture", "", "Save what the view shows as a picture"},
    {"ADDIN", "Load Add-in...", "addin", "", "Load an add-in", Needs::Nothing},
    {"CHECKPROGRAM", "Check Program...", "check-program", "Ctrl+Shift+K",
     "Check a program, against what is selected", Needs::Nothing},
    {"SETTINGS", "Settings...", "settings", "Ctrl+,", "Change the settings", Needs::Nothing},
    {"MANUAL", "&Contents", "help", "F1", "Open the manual", Needs::Nothing},
    {"COMMANDS", "C&ommands", nullptr, "", "Show a table of all commands", Needs::Nothing},
    {"ABOUT", "&About kxhost", "kxhost", "", "Tell about this program", Needs::Nothing},
    {"UNITS MM", "&Millimetres", nullptr, "", "Take the drawing's numbers as millimetres"},
    {"UNITS INCH", "&Inches", nullptr, "", "Take the drawing's numbers as inches"},
}};

QAction* makeAction(const Spec& spec, QObject* parent) {
    auto* action = new QAction(HostActions::tr(spec.text), parent);
    action->setObjectName("action" + QString::fromLatin1(spec.command).remove(' '));
    if (spec.icon != nullptr) {
        action->setIcon(QIcon(":/kxhost/icons/" + QString::fromLatin1(spec.icon) + ".svg"));
    }
    action->setShortcuts(QKeySequence::listFromString(spec.shortcuts));
    action->setStatusTip(HostActions::tr(spec.tip));
    const QString key = action->shortcut().toString(QKeySequence::NativeText);
    const QString tip = HostActions::tr(spec.tip);
    action->setToolTip(key.isEmpty() ? tip : tip + " (" + key + ")");
    action->setCheckable(spec.isSwitch);
    action->setProperty("needsDrawing", spec.needs == Needs::Drawing);
    // Quit and About would move to another menu on some desktops.
    action->setMenuRole(QAction::NoRole);
    return action;
}

}  // namespace

HostActions::HostActions(const Run& run, IsAllowedInPrompt isAllowed, QObject* parent)
    : QObject(parent), m_isAllowed(std::move(isAllowed)) {
    for (const Spec& spec : kSpecs) {
        const QString command = QString::fromLatin1(spec.command);
        QAction* action = makeAction(spec, this);
        connect(action, &QAction::triggered, this, [run, command] { run(command); });
        m_actions.insert(command, action);
    }
}

void HostActions::update(const State& state) {
    for (auto action = m_actions.begin(); action != m_actions.end(); ++action) {
        const bool needsDrawing = action.value()->property("needsDrawing").toBool();
        const QString command = action.key().section(' ', 0, 0);
        action.value()->setEnabled((state.hasDrawing || !needsDrawing) &&
                                   (!state.isPrompting || m_isAllowed(command)));
    }
    of("UNDO")->setEnabled(of("UNDO")->isEnabled() && state.canUndo);
    of("REDO")->setEnabled(of("REDO")->isEnabled() && state.canRedo);
    of("GRID")->setChecked(state.grid);
    of("AXES")->setChecked(state.axes);
    of("CANVAS")->setChecked(state.lightCanvas);
}
