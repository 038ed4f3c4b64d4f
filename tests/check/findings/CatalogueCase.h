// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "findings/Check.h"

// One program of the catalogue, with its drawing and with what is to be found in it. A file has
// lines "key: value" (title, expect, option, unit), then "shapes:" with a shape a line, then
// "program:" and the program as it stands.
struct CatalogueCase {
    std::string name;
    std::string title;
    std::string expected;  // identifier, empty: nothing
    std::uint32_t line = 0;
    gcode_check::CheckOptions options;
    std::optional<gcode_check::Drawing> drawing;
    std::string program;
    std::string error;  // what of the file can't be read
};

// "line X Y X Y", "arc X Y RADIUS FROM-DEGREES TO-DEGREES", "circle X Y RADIUS", "point X Y"
bool readShape(const std::string& text, gcode_check::Shape& shape);
CatalogueCase readCase(const std::filesystem::path& file);
// Sorted by name.
std::vector<CatalogueCase> readCases(const std::filesystem::path& folder);
