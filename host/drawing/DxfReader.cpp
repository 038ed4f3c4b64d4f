// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "drawing/DxfReader.h"

#include <exception>
#include <set>
#include <utility>

#include "drawing/ClassicLocale.h"
#include "drawing/DxfModelBuilder.h"
#include "drawing/DxfScanner.h"
#include "drawing/Units.h"

namespace kxdrawing {

namespace {

void noteHiddenLayers(Drawing* drawing) {
    std::set<kxString> hidden;
    for (const kxLayer& layer : drawing->layers) {
        if (!layer.visible) {
            hidden.insert(layer.name);
        }
    }
    if (hidden.empty()) {
        return;
    }
    long count = 0;
    for (const kxObject_ptr& object : drawing->objects) {
        count += hidden.count(object->GetLayer()) != 0 ? 1 : 0;
    }
    drawing->report.addNote("hidden layers: " + std::to_string(hidden.size()) +
                            ", objects on them: " + std::to_string(count));
}

void readRecords(DxfScanner* scanner, DxfModelBuilder* builder, ReadProgress* progress) {
    const auto fraction = [&] { return ReadProgress::kFileShare * scanner->fraction(); };
    scanner->setGoesOn([&] {
        progress->report(fraction());
        return !progress->isStopped();
    });
    builder->setProgress(progress);
    DxfRecord record;
    while (progress->step(fraction) && scanner->next(&record)) {
        builder->take(record);
    }
    scanner->setGoesOn({});
}

ReadResult readChecked(const std::string& path, const ReadOptions& options) {
    DxfScanner scanner;
    DxfModelBuilder builder;
    ReadProgress progress(options.progress);
    scanner.setLimits(options.scan);
    if (scanner.open(path)) {
        readRecords(&scanner, &builder, &progress);
    }
    if (progress.isStopped()) {
        return {std::nullopt, {}, true};
    }
    if (scanner.error()) {
        return {std::nullopt, *scanner.error(), false};
    }
    DxfModel model = builder.finish();
    const UnitDecision unit = decideUnit(model.insertUnits, model.measurement);
    Drawing drawing;
    drawing.unit = unit.unit;
    drawing.isUnitKnown = unit.isKnown;
    drawing.scale = unit.scale;
    drawing.report.addNote(unit.note);
    if (!scanner.hadSection("ENTITIES")) {
        drawing.report.addNote("the file has no section ENTITIES");
    }
    BlockExpander expander(model, options.limits, &drawing.report);
    expander.setProgress(&progress);
    drawing.objects = expander.expand(unit.scale);
    progress.report(1);
    if (progress.isStopped()) {
        return {std::nullopt, {}, true};
    }
    drawing.layers = std::move(model.layers);
    noteHiddenLayers(&drawing);
    return {std::move(drawing), {}, false};
}

}  // namespace

ReadResult readDxf(const std::string& path, const ReadOptions& options) {
    try {
        const ClassicLocale locale;
        return readChecked(path, options);
    } catch (const std::exception& problem) {
        return {
            std::nullopt, {path, 0, std::string("cannot be read: ") + problem.what(), ""}, false};
    } catch (...) {
        return {std::nullopt, {path, 0, "cannot be read", ""}, false};
    }
}

void loadInto(kxHostDocument_c& document, const Drawing& drawing) {
    document.SetLayers(drawing.layers);
    document.SetObjects(drawing.objects);
    document.SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, drawing.unit);
}

}  // namespace kxdrawing
