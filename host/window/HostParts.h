// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QString>
#include <QStringList>

class CommandTable;
class DrawingTab;
class Drawings;
class HostSession;
class MeasureTool;
class QMainWindow;
class SelectionKeeper;
struct HostSettings;

/// What commands work with. All of it is the window's and outlives the commands.
struct HostParts {
    QMainWindow* window = nullptr;
    CommandTable* commands = nullptr;
    HostSession* session = nullptr;
    Drawings* drawings = nullptr;
    SelectionKeeper* selection = nullptr;
    MeasureTool* measure = nullptr;
    HostSettings* settings = nullptr;

    /// A line, or an error, on the command line.
    std::function<void(const QString&)> say;
    std::function<void(const QString&)> complain;
    /// Keeps the settings and puts them into effect.
    std::function<void()> settingsChanged;
    std::function<void()> showManual;
    /// Holds a program against the drawing in front; asks for the file when the name is empty.
    std::function<void(const QString& file)> checkProgram;
    /// Moves the keyboard's focus on by so many areas of the window.
    std::function<void(int)> walkAreas;
};

using CommandArguments = QStringList;
using DrawingCommand = std::function<void(DrawingTab&, const CommandArguments&)>;

/// A command that works on the drawing in front, and says so when there is none.
std::function<void(const CommandArguments&)> onDrawing(const HostParts& parts,
                                                       DrawingCommand command);

/// ON or OFF in any case, else what `present` is not; the switch that a word means.
bool switchedBy(const CommandArguments& arguments, bool present);

void addFileCommands(const HostParts& parts);
void addSelectionCommands(const HostParts& parts);
void addEditCommands(const HostParts& parts);
void addViewCommands(const HostParts& parts);
void addToolCommands(const HostParts& parts);
