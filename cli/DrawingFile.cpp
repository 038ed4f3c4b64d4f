// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "DrawingFile.h"

#include <iostream>

#include "ExitCode.h"
#include "Message.h"

namespace {

void sayLeftOut(const kxdrawing::ImportReport& report) {
    long leftOut = report.totals().leftOut;
    for (const kxdrawing::ImportRow& row : report.rowsInBlocks()) {
        leftOut += row.outcome == kxdrawing::ImportOutcome::LeftOut ? row.count : 0;
    }
    if (leftOut > 0) {
        sayLine("left out of the drawing: " + std::to_string(leftOut) +
                "; --report says what and why");
    }
}

}  // namespace

ImportWords wordsFor(bool report, bool quiet) {
    if (report) {
        return ImportWords::Report;
    }
    return quiet ? ImportWords::Warnings : ImportWords::Notes;
}

std::optional<kxdrawing::Drawing> readDrawingFile(const std::string& path, ImportWords words) {
    kxdrawing::ReadResult result = kxdrawing::readDxf(path);
    if (!result.drawing) {
        sayFailure(kExitUnreadableInput, result.error.toText());
        return std::nullopt;
    }
    const kxdrawing::ImportReport& report = result.drawing->report;
    if (words == ImportWords::Report) {
        std::cerr << report.toText();
        return std::move(result.drawing);
    }
    if (words == ImportWords::Notes) {
        for (const std::string& note : report.notes()) {
            sayLine(note);
        }
    }
    sayLeftOut(report);
    return std::move(result.drawing);
}
