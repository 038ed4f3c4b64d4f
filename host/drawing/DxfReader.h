// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <kx/host/kxHostDocument.h>

#include "drawing/BlockExpander.h"
#include "drawing/DxfDiagnostic.h"
#include "drawing/DxfScanner.h"
#include "drawing/ImportReport.h"
#include "drawing/ReadProgress.h"

namespace kxdrawing {

struct ReadOptions {
    ExpandLimits limits;
    ScanLimits scan;
    /// Called now and then from the reading thread with what part is done, 0 to 1; false stops the
    /// reading.
    ProgressReport progress;
};

/// A drawing read from a file, in the units that its unit option names.
struct Drawing {
    /// In drawing order, those on hidden layers too.
    std::vector<kxObject_ptr> objects;
    /// As the file lists them, then those that are only used; off and frozen ones are not visible.
    std::vector<kxLayer> layers;
    /// 0 inches, 1 millimetres.
    short unit = 1;
    /// Whether the file names a unit; otherwise millimetres are assumed.
    bool isUnitKnown = false;
    /// The factor that brought the file's numbers to that unit.
    double scale = 1;
    ImportReport report;
};

/// Either a drawing or, when the file can't be read whole, the cause, or neither when the reading
/// was stopped.
struct ReadResult {
    std::optional<Drawing> drawing;
    DxfDiagnostic error;
    bool cancelled = false;
};

/// Reads an ASCII DXF file. Nothing is thrown.
ReadResult readDxf(const std::string& path, const ReadOptions& options = {});

/// Puts a drawing's layers, objects and unit into a document.
void loadInto(kxHostDocument_c& document, const Drawing& drawing);

}  // namespace kxdrawing
