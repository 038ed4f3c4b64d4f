// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "CatalogueCase.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "geometry/Curve.h"

namespace {

using gcode_check::Shape;
using gcode_check::ShapeKind;

constexpr double kRadPerDeg = gcode_check::kPi / 180;

bool readOption(const std::string& text, gcode_check::CheckOptions& options) {
    std::istringstream words(text);
    words.imbue(std::locale::classic());
    std::string name;
    double value = 0;
    words >> name >> value;
    if (name == "surface") {
        options.surfaceZ = value;
    } else if (name == "tolerance") {
        options.tolerance = value;
    } else if (name == "arc-tolerance") {
        options.arcRadiusTolerance = value;
    } else if (name == "depth") {
        options.depth = value;
    } else if (name == "plunge-feed") {
        options.plungeFeed = value;
    } else {
        return false;
    }
    return !words.fail();
}

bool readHead(const std::string& key, const std::string& value, CatalogueCase& read) {
    if (key == "title") {
        read.title = value;
    } else if (key == "expect") {
        std::istringstream words(value);
        words >> read.expected >> read.line;
        read.expected = read.expected == "nothing" ? "" : read.expected;
    } else if (key == "option") {
        return readOption(value, read.options);
    } else if (key == "unit") {
        read.drawing.emplace();
        read.drawing->mmPerUnit = value == "inch" ? 25.4 : value == "metre" ? 1000 : 1;
    } else {
        return false;
    }
    return true;
}

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r") == std::string::npos;
}

}  // namespace

bool readShape(const std::string& text, Shape& shape) {
    std::istringstream words(text);
    words.imbue(std::locale::classic());
    std::string kind;
    words >> kind;
    if (kind == "line") {
        shape.kind = ShapeKind::Line;
        words >> shape.first.x >> shape.first.y >> shape.second.x >> shape.second.y;
    } else if (kind == "arc") {
        shape.kind = ShapeKind::Arc;
        words >> shape.centre.x >> shape.centre.y >> shape.radius >> shape.startRad >> shape.endRad;
        shape.startRad *= kRadPerDeg;
        shape.endRad *= kRadPerDeg;
    } else if (kind == "circle") {
        shape.kind = ShapeKind::Circle;
        words >> shape.centre.x >> shape.centre.y >> shape.radius;
    } else if (kind == "point") {
        shape.kind = ShapeKind::Point;
        words >> shape.first.x >> shape.first.y;
    } else {
        return false;
    }
    return !words.fail();
}

CatalogueCase readCase(const std::filesystem::path& file) {
    CatalogueCase read;
    read.name = file.stem().string();
    std::ifstream stream(file, std::ios::binary);
    bool inShapes = false;
    std::string text;
    while (std::getline(stream, text)) {
        if (text == "program:") {
            read.program.assign(std::istreambuf_iterator<char>(stream), {});
            return read;
        }
        if (text == "shapes:") {
            inShapes = true;
            if (!read.drawing) {
                read.drawing.emplace();
            }
        } else if (inShapes) {
            Shape shape;
            if (!readShape(text, shape)) {
                read.error = "shape: " + text;
            }
            read.drawing->shapes.push_back(shape);
        } else if (!isBlank(text)) {
            const std::size_t colon = std::min(text.find(": "), text.size());
            if (!readHead(text.substr(0, colon), text.substr(std::min(colon + 2, text.size())),
                          read)) {
                read.error = "line: " + text;
            }
        }
    }
    read.error = "no program";
    return read;
}

std::vector<CatalogueCase> readCases(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".case") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    std::vector<CatalogueCase> cases;
    for (const std::filesystem::path& file : files) {
        cases.push_back(readCase(file));
    }
    return cases;
}
