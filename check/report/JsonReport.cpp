// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "report/JsonReport.h"

#include "interpreter/Units.h"
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

// 0 stands for none, as people count from 1.
void addNumber(JsonWriter& json, const char* name, std::uint32_t number) {
    if (number == 0) {
        json.none(name);
    } else {
        json.count(name, number);
    }
}

const char* nameOf(MotionKind kind) {
    switch (kind) {
        case MotionKind::Rapid:
            return "rapid";
        case MotionKind::Feed:
            return "feed";
        case MotionKind::Arc:
            return "arc";
        default:
            return "other";
    }
}

void addMotion(JsonWriter& json, const char* name, const CheckResult& result, std::size_t index) {
    const Motion& motion = result.reading.motions[index];
    const Frame& frame = result.reading.frames[motion.frame];
    const double mmPerUnit = result.inches ? kMmPerInch : 1;
    const auto placed = [&frame, mmPerUnit](const Point& machine) {
        const Point place = toProgram(frame, machine);
        return Point{place.x / mmPerUnit, place.y / mmPerUnit, place.z / mmPerUnit};
    };
    json.beginObject(name);
    json.count("line", motion.line);
    json.text("kind", nameOf(motion.kind));
    addPoint(json, "from", placed(motion.from));
    addPoint(json, "to", placed(motion.to));
    json.endObject();
}

void addPlanePoint(JsonWriter& json, const char* name, const std::optional<PlanePoint>& place) {
    if (place) {
        addPlanePoint(json, name, *place);
    } else {
        json.none(name);
    }
}

void addPlace(JsonWriter& json, const CheckResult& result, const Finding& finding) {
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
    addPlanePoint(json, "farthest", place.farthest);
    addPlanePoint(json, "drawingFarthest", place.drawingFarthest);
    if (place.firstMotion && place.lastMotion) {
        addMotion(json, "firstMotion", result, *place.firstMotion);
        addMotion(json, "lastMotion", result, *place.lastMotion);
    } else {
        json.none("firstMotion");
        json.none("lastMotion");
    }
    json.endObject();
}

void addFinding(JsonWriter& json, const CheckResult& result, const Finding& finding) {
    json.beginObject();
    json.text("identifier", identifierOf(finding.kind));
    json.text("severity", gcode_check::nameOf(finding.severity));
    addNumber(json, "line", finding.line);
    addNumber(json, "column", finding.column);
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
    addPlace(json, result, finding);
    addNumber(json, "object", finding.object);
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
    json.count("version", 2);
    json.text("program", head.program);
    json.text("drawing", head.drawing);
    json.text("unit", result.inches ? "in" : "mm");
    json.count("lines", result.reading.lines);
    addNumber(json, "stopLine", result.reading.stopLine);
    json.number("surface", result.surface);
    json.truth("surfaceGiven", head.surfaceGiven);
    addCounts(json, result);
    json.beginArray("findings");
    for (const Finding& finding : result.findings) {
        addFinding(json, result, finding);
    }
    json.endArray();
    addDrawing(json, result);
    addFigures(json, result.figures);
    json.endObject();
    return json.take();
}

}  // namespace gcode_check
