// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ViewCommand.h"

#include <QFile>
#include <iostream>

#include "AddinFile.h"
#include "ExitCode.h"
#include "FileNames.h"
#include "OffscreenHost.h"
#include "PanelDriver.h"
#include "ViewPicture.h"

namespace {

int fail(int code, const std::string& cause) {
    std::cerr << "kxgcode: " << cause << "\n";
    return code;
}

}  // namespace

int viewProgram(const ViewOptions& options) {
    std::string clash = clashOfFiles({options.program}, {options.preview});
    if (!clash.empty()) {
        return fail(kExitWrongUsage, clash);
    }
    QFile program(QString::fromStdString(options.program));
    // The panel itself passes over a file that it can't read.
    if (!program.open(QIODevice::ReadOnly)) {
        return fail(kExitUnreadableInput,
                    options.program + ": " + program.errorString().toStdString());
    }
    program.close();
    OffscreenHost host;
    std::string error;
    const std::string addin = findAddinFile(options.addin, &error);
    if (addin.empty() || !host.loadAddin(addin, &error)) {
        return fail(kExitUnreadableInput, "the add-in can't be loaded: " + error);
    }
    if (!showView(host.pane(), &error)) {
        return fail(kExitUnwritableOutput, error);
    }
    PanelDriver panel(host.pane());
    if (!panel.open(program.fileName())) {
        return fail(kExitUnreadableInput, "the add-in's panel has no " + panel.missingControl());
    }
    for (const std::string& line : host.printedLines()) {
        std::cerr << line << "\n";
    }
    if (!writeViewPicture(host.pane(), options.preview, &error)) {
        return fail(kExitUnwritableOutput, error);
    }
    if (!options.quiet) {
        std::cerr << "Written: " << options.preview << "\n";
    }
    return kExitWritten;
}
