// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "Options.h"

#include <iostream>

#include "ExitCode.h"
#include "Message.h"
#include "OptionParts.h"
#include "SettingsReader.h"
#include "Version.h"
#include "interpreter/ToolText.h"

namespace {

void addProgram(CLI::App& app, Options& options) {
    addChoice<Mode>(app, "--mode", options.mode,
                    {{"toolpath", Mode::ToolPath}, {"drill", Mode::Drill}},
                    "What the program does (default toolpath)");
    addChoice<Cycle>(app, "--cycle", options.cycle,
                     {{"g81", Cycle::G81}, {"g82", Cycle::G82}, {"g83", Cycle::G83}},
                     "Drill cycle (default g81)");
    addChoice<Motion>(app, "--motion", options.motion,
                      {{"absolute", Motion::Absolute}, {"relative", Motion::Relative}},
                      "Coordinates (default absolute)");
    addChoice<std::optional<Unit>>(app, "--unit", options.unit,
                                   {{"mm", Unit::Millimetre}, {"inch", Unit::Inch}},
                                   "Unit of the program (default the drawing's)");
    app.add_option("--preamble", options.preambleFile, "Text file for the program's beginning")
        ->type_name("FILE");
    app.add_option("--postscript", options.postscriptFile, "Text file for the program's end")
        ->type_name("FILE");
    app.add_option("--comment", options.comment, "Text before the program")->type_name("TEXT");
    app.add_flag("--line-numbers", options.lineNumbers, "Number the lines: N5, N10, ...");
}

void addHeightsAndFeeds(CLI::App& app, Options& options) {
    const auto add = [&app](const char* name, std::string& value, const char* text,
                            const CLI::Validator& check, const char* group) {
        app.add_option(name, value, text)->type_name("NUMBER")->check(check)->group(group);
    };
    const char* const path = "Tool path (all needed)";
    add("--safe-height", options.safeHeight, "Z to lift to at feed, and to plunge from", isNumber(),
        path);
    add("--retraction", options.retraction, "Z of rapid travel", isNumber(), path);
    add("--depth", options.depth, "Z of cutting", isNumber(), path);
    add("--feed-z", options.feedZ, "Plunge feed per minute", isPositive(), path);
    add("--feed-xy", options.feedXY, "Cutting feed per minute", isPositive(), path);
    const char* const drill = "Drill cycle (all needed; dwell for g82, peck for g83)";
    add("--drill-feed", options.drillFeed, "Drill feed per minute", isPositive(), drill);
    add("--drill-depth", options.drillDepth, "Z of the hole's bottom", isNumber(), drill);
    add("--retract-height", options.retractHeight, "Z to retract to", isNumber(), drill);
    add("--dwell", options.dwell, "Dwell at the bottom", isNotNegative(), drill);
    add("--peck", options.peck, "Depth of one peck", isPositive(), drill);
}

void addCheck(CLI::App& app, Options& options) {
    constexpr char kGroup[] = "Check";
    app.add_flag("--check", options.isChecked,
                 "Tell what is wrong with the program (exit code 5 for errors)")
        ->group(kGroup);
    addCheckSettings(app, options.check, "--check-tolerance", kGroup);
}

void addAddin(CLI::App& app, std::string& addin) {
    app.add_option("--addin", addin, "The add-in's library, when it is not beside kxgcode")
        ->type_name("FILE")
        ->envname("KX_ADDIN_PATH")
        // Settings are passed on from one to another; code is not.
        ->configurable(false);
}

/// Gives what of it comes from a settings file.
std::shared_ptr<const OptionSet> addEverything(CLI::App& app, Options& options) {
    app.add_option("drawing", options.drawing, "The drawing, a DXF file")->type_name("DRAWING");
    app.add_option("-o,--output", options.output, "Where the program goes (default: shown)")
        ->type_name("FILE");
    addObjectChoice(app, options.objects, "--tolerance,--explode-tolerance");
    addProgram(app, options);
    addHeightsAndFeeds(app, options);
    addCheck(app, options);
    app.add_option("--preview", options.preview, "Where the picture of the path goes, a PNG file")
        ->type_name("FILE");
    app.add_flag("--report", options.report, "Print what was read from the drawing");
    app.add_flag("--quiet", options.quiet, "Print errors and warnings only");
    addAddin(app, options.addin);
    app.set_version_flag("--version", std::string("kxgcode ") + kVersion);
    return addSettingsFile(app);
}

/// Refuses what stands on the command line and means nothing there without another option. A
/// settings file may hold it all the same: it serves with that option and without.
void refuseWithout(const std::string& other, const std::vector<std::string>& names,
                   const CLI::App& app, const OptionSet& fromFile) {
    for (const std::string& name : names) {
        const CLI::Option* const option = app.get_option(name);
        if (option->count() > 0 && fromFile.count(option) == 0) {
            throw CLI::ArgumentMismatch(name + " means nothing without " + other);
        }
    }
}

/// The exit code to end with at once, after what is to be said was printed; else nothing.
std::optional<int> parse(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        app.exit(success);
        return kExitWritten;
    } catch (const CLI::FileError& error) {
        return sayFailure(kExitUnreadableInput, error.what());
    } catch (const SettingsError& error) {
        return sayFailure(kExitUnreadableInput, error.what());
    } catch (const CLI::Error& error) {
        sayFailure(kExitWrongUsage, error.what());
        sayLine("Run " + app.get_name() + " --help for the options.");
        return kExitWrongUsage;
    }
    return std::nullopt;
}

void addTools(CLI::App& app, std::vector<gcode_check::Tool>& tools) {
    const auto take = [&tools](const std::vector<std::string>& texts) {
        gcode_check::ToolTexts read = gcode_check::toolsOf(texts);
        if (!read.error.empty()) {
            throw CLI::ValidationError("--tool", read.error);
        }
        tools = std::move(read.tools);
    };
    app.add_option_function<std::vector<std::string>>("--tool", take,
                                                      "A tool's diameter in millimetres, or inches "
                                                      "with \"in\", for G41 and G42; once per tool")
        ->type_name("NUMBER=DIAMETER")
        ->expected(1)
        ->take_all();
}

void addCheckCommand(CLI::App& app, CheckCommandOptions& options) {
    app.add_option("program", options.program, "The program, a G-code file; -: standard input")
        ->type_name("PROGRAM")
        ->required();
    app.add_option("--drawing", options.drawing, "The drawing that it was made from, a DXF file")
        ->type_name("DRAWING");
    addObjectChoice(app, options.objects, "--explode-tolerance");
    app.add_option("--config", options.settingsFile,
                   "The settings file (TOML) that the program was made with")
        ->type_name("FILE");
    addChoice<std::optional<Unit>>(app, "--unit", options.drawingUnit,
                                   {{"mm", Unit::Millimetre}, {"inch", Unit::Inch}},
                                   "Unit of the drawing (default what its file says)");
    addCheckSettings(app, options.check, "--tolerance,--check-tolerance", "Options");
    app.add_option("--depth", options.check.depth,
                   "Z of the deepest cut: none may go deeper, and one must reach it")
        ->type_name("NUMBER")
        ->check(isNumber());
    app.add_option("--feed-z", options.check.plungeFeed, "Plunge feed per minute as it should be")
        ->type_name("NUMBER")
        ->check(isPositive());
    addChoice<Unit>(app, "--start-unit", options.startUnit,
                    {{"mm", Unit::Millimetre}, {"inch", Unit::Inch}},
                    "Unit of the machine before the first G20 or G21 (default mm)");
    addTools(app, options.tools);
    app.add_flag("--block-delete", options.blockDelete, "Leave out the lines that begin with /");
    app.add_flag("--report", options.report, "Print what was read from the drawing");
    app.add_flag("--json", options.json, "Print the report as JSON");
    app.add_flag("--quiet", options.quiet, "Say errors and warnings only of what is read");
}

/// The settings in a file, as they are read to make a program.
Options settingsIn(const std::string& file) {
    Options settings;
    CLI::App app("", "kxgcode");
    addEverything(app, settings);
    app.parse(std::vector<std::string>{"--config=" + file});
    return settings;
}

/// What the command line leaves open is as it was when the program was made.
void takeSettings(const CLI::App& app, CheckCommandOptions& options) {
    const Options settings = settingsIn(options.settingsFile);
    const CheckSettings known = checkSettingsOf(settings);
    const auto take = [&app](const char* name, auto& option, const auto& setting) {
        if (app.count(name) == 0) {
            option = setting;
        }
    };
    take("--drawing", options.drawing, settings.drawing);
    take("--layer", options.objects.layers, settings.objects.layers);
    take("--type", options.objects.types, settings.objects.types);
    take("--explode", options.objects.explode, settings.objects.explode);
    take("--explode-tolerance", options.objects.explodeTolerance,
         settings.objects.explodeTolerance);
    take("--surface", options.check.surface, known.surface);
    take("--check-tolerance", options.check.tolerance, known.tolerance);
    take("--arc-tolerance", options.check.arcTolerance, known.arcTolerance);
    take("--rapid-rate", options.check.rapidRate, known.rapidRate);
    take("--depth", options.check.depth, known.depth);
    take("--feed-z", options.check.plungeFeed, known.plungeFeed);
    take("--report", options.report, settings.report);
    take("--quiet", options.quiet, settings.quiet);
}

void finishCheckOptions(const CLI::App& app, CheckCommandOptions& options) {
    if (!options.settingsFile.empty()) {
        takeSettings(app, options);
    }
    if (options.drawing.empty()) {
        refuseWithout(
            "--drawing",
            {"--layer", "--type", "--explode", "--explode-tolerance", "--unit", "--report"}, app,
            {});
    }
}

}  // namespace

bool asksFor(const std::string& command, int argc, char** argv) {
    return argc > 1 && argv[1] == command;
}

Parsed<ViewOptions> parseViewOptions(int argc, char** argv) {
    Parsed<ViewOptions> parsed;
    CLI::App app("Shows the path of a program.", "kxgcode view");
    app.add_option("program", parsed.options.program, "The program, a G-code file")
        ->type_name("FILE")
        ->required();
    app.add_option("--preview", parsed.options.preview, "Where the picture goes, a PNG file")
        ->type_name("FILE")
        ->required();
    app.add_flag("--quiet", parsed.options.quiet, "Print errors and warnings only");
    addAddin(app, parsed.options.addin);
    parsed.exitCode = parse(app, argc - 1, argv + 1);
    return parsed;
}

Parsed<CheckCommandOptions> parseCheckOptions(int argc, char** argv) {
    Parsed<CheckCommandOptions> parsed;
    CLI::App app("Tells what a program does on a machine, and what is wrong with it.",
                 "kxgcode check");
    addCheckCommand(app, parsed.options);
    app.callback([&app, &parsed] { finishCheckOptions(app, parsed.options); });
    parsed.exitCode = parse(app, argc - 1, argv + 1);
    return parsed;
}

Parsed<Options> parseOptions(int argc, char** argv) {
    Parsed<Options> parsed;
    CLI::App app(
        "Turns a 2-D drawing into a CNC program in G-code.\n"
        "kxgcode view FILE.nc --preview FILE.png makes a picture of any program,\n"
        "kxgcode check FILE.nc tells what is wrong with it.",
        "kxgcode");
    const std::shared_ptr<const OptionSet> fromFile = addEverything(app, parsed.options);
    app.get_option("drawing")->required();
    app.callback([&app, &parsed, &fromFile] {
        if (!parsed.options.isChecked) {
            refuseWithout("--check",
                          {"--surface", "--check-tolerance", "--arc-tolerance", "--rapid-rate"},
                          app, *fromFile);
        }
    });
    parsed.exitCode = parse(app, argc, argv);
    if (parsed.exitCode) {
        return parsed;
    }
    if (app.get_config_ptr()->count() > 0) {
        parsed.options.settingsFile = app.get_config_ptr()->as<std::string>();
    }
    const std::vector<std::string> missing = missingOptions(parsed.options);
    if (!missing.empty()) {
        std::cerr << "kxgcode: needed for this mode and not given:";
        for (const std::string& name : missing) {
            std::cerr << ' ' << name;
        }
        std::cerr << "\n";
        parsed.exitCode = kExitWrongUsage;
    }
    return parsed;
}

CheckSettings checkSettingsOf(const Options& options) {
    CheckSettings settings = options.check;
    const bool isDrill = options.mode == Mode::Drill;
    settings.plungeFeed = numberIn(isDrill ? options.drillFeed : options.feedZ);
    if (options.motion == Motion::Absolute) {
        settings.depth = numberIn(isDrill ? options.drillDepth : options.depth);
    }
    return settings;
}

std::vector<std::string> missingOptions(const Options& options) {
    std::vector<std::string> missing;
    const auto need = [&missing](const char* name, const std::string& value) {
        if (value.empty()) {
            missing.emplace_back(name);
        }
    };
    if (options.mode == Mode::ToolPath) {
        need("--safe-height", options.safeHeight);
        need("--retraction", options.retraction);
        need("--depth", options.depth);
        need("--feed-z", options.feedZ);
        need("--feed-xy", options.feedXY);
        return missing;
    }
    need("--drill-feed", options.drillFeed);
    need("--drill-depth", options.drillDepth);
    need("--retract-height", options.retractHeight);
    if (options.cycle == Cycle::G82) {
        need("--dwell", options.dwell);
    }
    if (options.cycle == Cycle::G83) {
        need("--peck", options.peck);
    }
    return missing;
}
