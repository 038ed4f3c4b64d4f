// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "openglplotter/GCodeParser.h"

/// What the parser keeps without showing it.
struct ParserFields {
    const GCodeParserN& parser;

    static const std::vector<std::string>& codes() { return GCodeParserN::codes; }
    const Point3d& current() const { return parser.current; }
    const Point3d& drillTarget() const { return parser.drillTarget; }
    bool absoluteMode() const { return parser.absoluteMode; }
    int lastGCode() const { return parser.lastGCode; }
    int unitsMm() const { return parser.UNITS_MM; }
    int unitsInches() const { return parser.UNITS_INCHES; }
    int units() const { return parser.units; }
    float feedrate() const { return parser.feedrate; }
    float drillRetract() const { return parser.drillRetract; }
    float drillFeedrate() const { return parser.drillFeedrate; }
    int drillDwell() const { return parser.drillDwell; }
    float drillPecksize() const { return parser.drillPecksize; }
    const std::string& command() const { return parser.command; }
    const std::string& comment() const { return parser.comment; }
    float width() const { return parser.m_width; }
    float height() const { return parser.m_height; }
};
