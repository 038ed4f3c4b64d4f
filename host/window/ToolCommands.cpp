// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Commands that tell about the drawing, the program and its commands.
#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>

#include "KxText.h"
#include "Version.h"
#include "commandline/CommandTable.h"
#include "window/Dialogs.h"
#include "window/DrawingTab.h"
#include "window/HostParts.h"
#include "window/HostSession.h"
#include "window/HostSettings.h"
#include "window/MeasureTool.h"
#include "window/ObjectText.h"
#include "window/SelectionKeeper.h"
#include "window/SettingsDialog.h"
#include "window/TypedPoints.h"

namespace {

/// More than these are counted only.
constexpr std::size_t kMaxDescribed = 1000;
constexpr int kNameWidth = 34;

QString tr(const char* text) {
    return QCoreApplication::translate("HostCommands", text);
}

void tellObjects(const HostParts& parts, DrawingTab& tab) {
    const std::vector<kxObject_ptr>& objects = parts.selection->selected(&tab);
    if (objects.empty()) {
        parts.say(tr("Nothing is selected. The drawing holds %1.")
                      .arg(countText(countTypes(tab.document()->GetObjects()))));
        return;
    }
    if (objects.size() == 1) {
        parts.say(describeObject(*objects.front()));
    }
    QString text = countText(countTypes(objects)) + "\n\n";
    for (std::size_t index = 0; index < std::min(objects.size(), kMaxDescribed); ++index) {
        text += QString::number(index + 1) + "  " + describeObject(*objects[index]) + "\n";
    }
    if (objects.size() > kMaxDescribed) {
        text += tr("... and %1 more").arg(objects.size() - kMaxDescribed);
    }
    showText(tr("Object Information"), text, parts.window);
}

void tellReport(const HostParts& parts, DrawingTab& tab) {
    showText(tr("Import Report of %1").arg(tab.name()),
             QString::fromStdString(tab.report().toText()), parts.window);
}

QString usageOf(const HostCommand& command) {
    return command.arguments.isEmpty() ? command.name : command.name + " " + command.arguments;
}

void tellCommand(const HostParts& parts, const QString& name) {
    const HostCommand* command = parts.commands->find(name);
    if (command != nullptr) {
        parts.say(usageOf(*command) + ": " + command->help);
    } else {
        parts.complain(tr("There is no help for %1.").arg(name));
    }
}

QString addinCommands(const HostParts& parts) {
    QStringList names;
    for (const kxString& name : parts.session->application()->GetCommandNames()) {
        names.append(toQString(name));
    }
    return names.join(", ");
}

void listCommands(const HostParts& parts) {
    QStringList names;
    for (const HostCommand& command : parts.commands->commands()) {
        names.append(command.name);
    }
    names.sort();
    parts.say(tr("Commands: %1").arg(names.join(", ")));
    const QString others = addinCommands(parts);
    if (!others.isEmpty()) {
        parts.say(tr("Of add-ins: %1").arg(others));
    }
    parts.say(tr("HELP COMMAND tells about one, MANUAL opens the manual."));
}

void showCommands(const HostParts& parts) {
    QString text;
    for (const HostCommand& command : parts.commands->commands()) {
        text += usageOf(command).leftJustified(kNameWidth) + command.help + "\n";
    }
    const QString others = addinCommands(parts);
    if (!others.isEmpty()) {
        text += tr("\nOf add-ins: %1\n").arg(others);
    }
    showText(tr("Commands"), text, parts.window);
}

void measure(const HostParts& parts, DrawingTab& tab, const CommandArguments& arguments) {
    if (arguments.isEmpty()) {
        parts.measure->start(&tab);
    } else if (const auto points = typedPoints(arguments)) {
        parts.say(MeasureTool::resultText(points->first, points->second));
    } else {
        parts.complain(tr("MEASURE takes two points: X,Y X,Y"));
    }
}

void changeSettings(const HostParts& parts) {
    SettingsDialog dialog(*parts.settings, parts.window);
    if (dialog.exec() == QDialog::Accepted) {
        *parts.settings = dialog.settings();
        parts.settingsChanged();
    }
}

void about(const HostParts& parts) {
    QMessageBox::about(
        parts.window, tr("About kxhost"),
        tr("kxhost %1\n\nA host for 2-D drawings and add-ins: open a DXF drawing, select, "
           "generate, save.\n\nGPL-2.0-or-later, the GCodeAddin developers")
            .arg(QString::fromLatin1(kVersion)));
}

void addHelpCommands(const HostParts& parts) {
    CommandTable& table = *parts.commands;
    table.add({"HELP", "[COMMAND]", tr("Lists the commands, or tells about one."),
               [parts](const CommandArguments& arguments) {
                   arguments.isEmpty() ? listCommands(parts)
                                       : tellCommand(parts, arguments.first());
               },
               true});
    table.add({"MANUAL", QString(), tr("Opens the manual."),
               [parts](const CommandArguments&) { parts.showManual(); }, true});
    table.add({"COMMANDS", QString(), tr("Shows a table of all commands."),
               [parts](const CommandArguments&) { showCommands(parts); }, true});
    table.add({"ABOUT", QString(), tr("Tells about this program."),
               [parts](const CommandArguments&) { about(parts); }, true});
}

}  // namespace

void addToolCommands(const HostParts& parts) {
    CommandTable& table = *parts.commands;
    table.add({"INFO", QString(), tr("Tells about the selected objects."),
               onDrawing(parts, [parts](DrawingTab& tab,
                                        const CommandArguments&) { tellObjects(parts, tab); }),
               true});
    table.add({"MEASURE", "[X,Y X,Y]", tr("Measures between two points."),
               onDrawing(parts,
                         [parts](DrawingTab& tab, const CommandArguments& arguments) {
                             measure(parts, tab, arguments);
                         }),
               true});
    table.add({"REPORT", QString(), tr("Shows what became of the file's entities."),
               onDrawing(parts, [parts](DrawingTab& tab,
                                        const CommandArguments&) { tellReport(parts, tab); }),
               true});
    table.add(
        {"CHECKPROGRAM", "[FILE]", tr("Checks a program, against the drawing in front."),
         [parts](const CommandArguments& arguments) { parts.checkProgram(arguments.value(0)); }});
    table.add({"SETTINGS", QString(), tr("Changes the settings."),
               [parts](const CommandArguments&) { changeSettings(parts); }});
    addHelpCommands(parts);
}
