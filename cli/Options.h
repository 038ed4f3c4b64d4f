// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ObjectChoice.h"
#include "ProgramCheck.h"

enum class Mode { ToolPath, Drill };
enum class Cycle { G81 = 0, G82 = 1, G83 = 2 };
enum class Motion { Relative = 0, Absolute = 1 };
enum class Unit { Millimetre, Inch };

/// What the command line and the settings file ask for. Numbers stay the texts that were given,
/// because they are typed into the panel's fields; they are checked to be finite.
struct Options {
    std::string drawing;
    /// Empty or "-": standard output.
    std::string output;
    ObjectChoice objects;
    Mode mode = Mode::ToolPath;
    Cycle cycle = Cycle::G81;
    Motion motion = Motion::Absolute;
    /// The drawing's own unit when nothing is said.
    std::optional<Unit> unit;

    std::string safeHeight;
    std::string retraction;
    std::string depth;
    std::string feedZ;
    std::string feedXY;
    std::string drillFeed;
    std::string drillDepth;
    std::string retractHeight;
    std::string dwell;
    std::string peck;

    std::string preambleFile;
    std::string postscriptFile;
    /// The settings file that was read; empty without one.
    std::string settingsFile;
    std::string comment;
    bool lineNumbers = false;
    /// Whether the program is checked once it is written.
    bool isChecked = false;
    CheckSettings check;
    bool report = false;
    bool quiet = false;
    /// Where the view's picture goes; empty: nowhere.
    std::string preview;
    /// The add-in's library; empty: where it is looked for.
    std::string addin;
};

/// What `kxgcode view` is asked for.
struct ViewOptions {
    std::string program;
    std::string preview;
    bool quiet = false;
    std::string addin;
};

/// What `kxgcode check` is asked for.
struct CheckCommandOptions {
    /// "-": standard input.
    std::string program;
    /// Empty: the program is read without one.
    std::string drawing;
    ObjectChoice objects;
    /// The settings file that was read; empty without one.
    std::string settingsFile;
    /// Instead of what the drawing's file says.
    std::optional<Unit> drawingUnit;
    CheckSettings check;
    Unit startUnit = Unit::Millimetre;
    /// Those whose diameters are known.
    std::vector<gcode_check::Tool> tools;
    bool blockDelete = false;
    bool json = false;
    bool report = false;
    bool quiet = false;
};

/// Either options to work with, or the exit code to end with at once: help or version was printed
/// on standard output, or what is wrong on standard error.
template <class Wanted>
struct Parsed {
    Wanted options;
    std::optional<int> exitCode;
};

/// Whether the command line begins with the word of a command, such as "view".
bool asksFor(const std::string& command, int argc, char** argv);

/// Reads the command line and the settings file it may name.
Parsed<Options> parseOptions(int argc, char** argv);

/// Reads the command line of `kxgcode view`.
Parsed<ViewOptions> parseViewOptions(int argc, char** argv);

/// Reads the command line of `kxgcode check`.
Parsed<CheckCommandOptions> parseCheckOptions(int argc, char** argv);

/// What a check of the program is told: what was asked for, and the settings' own feed and depth.
CheckSettings checkSettingsOf(const Options& options);

/// The options that the mode needs and nobody gave, as they are written on the command line.
std::vector<std::string> missingOptions(const Options& options);
