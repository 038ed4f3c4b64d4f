// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostParts.h"

#include <utility>

#include <QCoreApplication>

#include "window/Drawings.h"

std::function<void(const CommandArguments&)> onDrawing(const HostParts& parts,
                                                       DrawingCommand command) {
    return [parts, command = std::move(command)](const CommandArguments& arguments) {
        DrawingTab* tab = parts.drawings->current();
        if (tab == nullptr) {
            parts.complain(QCoreApplication::translate("HostCommands", "No drawing is open."));
            return;
        }
        command(*tab, arguments);
    };
}

bool switchedBy(const CommandArguments& arguments, bool present) {
    const QString word = arguments.value(0).toUpper();
    if (word == "ON" || word == "OFF") {
        return word == "ON";
    }
    return !present;
}
