// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ViewCommand.h"

#include "AddinFile.h"
#include "ExitCode.h"
#include "FileNames.h"
#include "Message.h"
#include "OffscreenHost.h"
#include "PanelDriver.h"
#include "ViewPicture.h"
#include "files/InputFile.h"

namespace {

/// As much as the panel takes.
constexpr std::size_t kLongestProgram = 1000000000;

/// Another name for an open file: one that the panel can take, whatever the file's own name is and
/// whatever becomes of it meanwhile.
QString nameOf(const kxfiles::FileDescriptor& file) {
    return QString::fromLatin1("/proc/self/fd/%1").arg(file.handle());
}

/// The panel itself passes over a file that it can't read, so that is found out before.
kxfiles::FileDescriptor openProgram(const std::string& path, std::string* cause) {
    kxfiles::FileDescriptor file = kxfiles::openInput(path, cause);
    if (file && !kxfiles::isReadable(file, kLongestProgram, cause)) {
        return {};
    }
    return file;
}

}  // namespace

int viewProgram(const ViewOptions& options) {
    std::string error = clashOfFiles({options.program}, {options.preview});
    if (!error.empty()) {
        return sayFailure(kExitWrongUsage, error);
    }
    const kxfiles::FileDescriptor program = openProgram(options.program, &error);
    if (!program) {
        return sayFailure(kExitUnreadableInput, options.program + ": " + error);
    }
    OffscreenHost host;
    const std::string addin = findAddinFile(options.addin, &error);
    if (addin.empty() || !host.loadAddin(addin, &error)) {
        return sayFailure(kExitUnreadableInput, "the add-in can't be loaded: " + error);
    }
    if (!showView(host.pane(), &error)) {
        return sayFailure(kExitUnwritableOutput, error);
    }
    PanelDriver panel(host.pane());
    if (!panel.open(nameOf(program))) {
        return sayFailure(kExitUnreadableInput,
                          "the add-in's panel has no " + panel.missingControl());
    }
    for (const std::string& line : host.printedLines()) {
        sayLine(line);
    }
    if (!writeViewPicture(host.pane(), options.preview, &error)) {
        return sayFailure(kExitUnwritableOutput, error);
    }
    if (!options.quiet) {
        sayLine("Written: " + options.preview);
    }
    return kExitWritten;
}
