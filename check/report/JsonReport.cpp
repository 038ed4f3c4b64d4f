// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/JsonReport.h"

#include "report/JsonWriter.h"

namespace gcode_check {
namespace {

const char* nameOf(Measure measure) {
    switch (measure) {
        case Measure::Length:
            return "length";
        case Measure::Feed:
            return "feed";
        case Measure::Speed:
            return "speed";
        case Measure::Seconds:
            return "seconds";
        case Measure::Count:
            return "count";
        case Measure::Factor:
            break;
    }
    return "factor";
}

void addPoint(JsonWriter& json, const char* name, const Point& place) {
    json.beginObject(name);
    json.number("x", place.x);
    json.number("y", place.y);
    json.number("z", place.z);
    json.endObject();
}

void addPlanePoint(JsonWriter& json, const char* name, const PlanePoint& place) {
    json.beginObject(name);
    json.number("x", place.x);
    json.number("y", place.y);
    json.endObject();
}

void addPlace(JsonWriter& json, const Finding& finding) {
    if (!finding.place) {
        json.none("place");
        return;
    }
    const Place& place = *finding.place;
    json.beginObject("place");
    addPoint(json, "from", place.from);
    addPoint(json, "to", place.to);
    addPlanePoint(json, "drawingFrom", place.drawingFrom);
    addPlanePoint(json, "drawingTo", place.drawingTo);
    if (place.firstMotion && place.lastMotion) {
        json.count("firstMotion", *place.firstMotion);
        json.count("lastMotion", *place.lastMotion);
    }
    json.endObject();
}

void addFinding(JsonWriter& json, const Finding& finding) {
    json.beginObject();
    json.text("identifier", identifierOf(finding.kind));
    json.text("severity", gcode_check::nameOf(finding.severity));
    json.count("line", finding.line);
    json.count("column", finding.column);
    json.text("sentence", finding.sentence);
    json.text("detail", finding.detail);
    json.beginArray("numbers");
    for (const NamedNumber& number : finding.numbers) {
        json.beginObject();
        json.text("name", number.name);
        json.number("value", number.value);
        json.text("measure", nameOf(number.measure));
        json.endObject();
    }
    json.endArray();
    addPlace(json, finding);
    if (finding.shape) {
        json.count("object", *finding.shape);
    } else {
        json.none("object");
    }
    json.endObject();
}

void addBox(JsonWriter& json, const char* name, const Box& box) {
    if (box.empty()) {
        json.none(name);
        return;
    }
    json.beginObject(name);
    addPoint(json, "min", box.min);
    addPoint(json, "max", box.max);
    json.endObject();
}

void addFigures(JsonWriter& json, const Figures& figures) {
    json.beginObject("figures");
    addBox(json, "moves", figures.moves);
    addBox(json, "cutting", figures.cutting);
    json.number("cuttingDepth", figures.cuttingDepth);
    json.number("cutLength", figures.cutLength);
    json.number("feedLength", figures.feedLength);
    json.number("rapidLength", figures.rapidLength);
    json.count("strokes", figures.strokes);
    json.count("toolDowns", figures.toolDowns);
    json.count("toolUps", figures.toolUps);
    json.count("toolChanges", figures.toolChanges);
    json.count("dwells", figures.dwells);
    json.number("feedSeconds", figures.feedSeconds);
    json.number("rapidSeconds", figures.rapidSeconds);
    json.number("dwellSeconds", figures.dwellSeconds);
    json.number("seconds", figures.seconds());
    json.endObject();
}

void addCounts(JsonWriter& json, const CheckResult& result) {
    json.count("errors", countOf(result, Severity::Error));
    json.count("warnings", countOf(result, Severity::Warning));
    json.count("notes", countOf(result, Severity::Note));
    json.beginObject("leftOut");
    for (const FindingKind kind : allFindingKinds()) {
        const std::size_t count = result.leftOut[static_cast<std::size_t>(kind)];
        if (count > 0) {
            json.count(identifierOf(kind), count);
        }
    }
    json.endObject();
}

void addDrawing(JsonWriter& json, const CheckResult& result) {
    if (!result.drawingGiven) {
        json.none("objects");
        return;
    }
    json.beginObject("objects");
    json.count("selected", result.shapes);
    if (result.coverageJudged) {
        json.count("cut", result.shapesCut);
    } else {
        json.none("cut");
    }
    json.endObject();
}

}  // namespace

std::string jsonReport(const CheckResult& result, const ReportHead& head) {
    JsonWriter json;
    json.beginObject();
    json.count("version", 1);
    json.text("program", head.program);
    json.text("drawing", head.drawing);
    json.text("unit", result.inches ? "in" : "mm");
    json.count("lines", result.reading.lines);
    json.count("stopLine", result.reading.stopLine);
    addCounts(json, result);
    json.beginArray("findings");
    for (const Finding& finding : result.findings) {
        addFinding(json, finding);
    }
    json.endArray();
    addDrawing(json, result);
    addFigures(json, result.figures);
    json.endObject();
    return json.take();
}

}  // namespace gcode_check
