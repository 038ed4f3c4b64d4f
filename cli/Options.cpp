// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <memory>

#include "ExitCode.h"
#include "Message.h"
#include "Version.h"
#include "files/InputFile.h"

namespace {

std::optional<double> readNumber(const std::string& text) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, value);
    const bool whole = error == std::errc() && last == end && std::isfinite(value);
    return whole ? std::optional(value) : std::nullopt;
}

/// Numbers have a decimal point whatever the locale is.
std::string checkNumber(const std::string& text) {
    return readNumber(text) ? std::string() : "'" + text + "' is not a number";
}

std::string checkPositive(const std::string& text) {
    const std::optional<double> value = readNumber(text);
    return value && *value > 0 ? std::string() : "'" + text + "' is not a number above 0";
}

std::string checkNotNegative(const std::string& text) {
    const std::optional<double> value = readNumber(text);
    return value && *value >= 0 ? std::string() : "'" + text + "' is not a number of at least 0";
}

// Without descriptions of their own: the help would print them beside the options' types.
const CLI::Validator kNumber(checkNumber, "");
const CLI::Validator kPositive(checkPositive, "");
const CLI::Validator kNotNegative(checkNotNegative, "");

/// Before it is read: a pipe would be waited for, a device might never end.
std::string checkSettingsFile(const std::string& path) {
    constexpr std::size_t kLongest = std::size_t{16} << 20;
    std::string cause;
    const kxfiles::FileDescriptor file = kxfiles::openInput(path, &cause);
    if (!file || !kxfiles::isReadable(file, kLongest, &cause)) {
        throw CLI::FileError(path + ": " + cause, CLI::ExitCodes::FileError);
    }
    return {};
}

/// A settings file as CLI11 reads it, without a byte order mark.
class SettingsFile : public CLI::ConfigTOML {
public:
    std::vector<CLI::ConfigItem> from_config(std::istream& input) const override {
        constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
        std::string start(3, '\0');
        input.read(start.data(), 3);
        if (input.gcount() != 3 || start != kByteOrderMark) {
            input.clear();
            input.seekg(0);
        }
        return CLI::ConfigTOML::from_config(input);
    }
};

/// Accepts the given words only, and names them.
CLI::Validator oneOf(const std::vector<std::string>& words) {
    const std::string all = CLI::detail::join(words, ", ");
    return CLI::Validator(
        [words, all](std::string& given) {
            const bool known = std::find(words.begin(), words.end(), given) != words.end();
            return known ? std::string() : "'" + given + "' is none of " + all;
        },
        "");
}

/// Makes letters small before they are compared.
CLI::Validator lowered() {
    return CLI::Validator(
        [](std::string& given) {
            given = CLI::detail::to_lower(given);
            return std::string();
        },
        "");
}

/// An option that takes one of some words, in any case.
template <class Enum>
void addChoice(CLI::App& app, const std::string& name, Enum& value,
               const std::vector<std::pair<std::string, Enum>>& words, const std::string& text) {
    std::vector<std::string> names;
    for (const auto& word : words) {
        names.push_back(word.first);
    }
    const auto take = [&value, words](const std::string& given) {
        for (const auto& [word, meaning] : words) {
            if (word == given) {
                value = meaning;
            }
        }
    };
    app.add_option_function<std::string>(name, take, text)
        ->type_name(CLI::detail::join(names, "|"))
        ->check(oneOf(names))
        ->transform(lowered());
}

void addSelection(CLI::App& app, Options& options) {
    app.add_option("--layer", options.layers, "Take only the objects of this layer (repeatable)")
        ->type_name("NAME")
        ->allow_extra_args(false);
    app.add_option("--type", options.types, "Take only objects of this type (repeatable)")
        ->type_name("line|arc|circle|point")
        ->allow_extra_args(false)
        ->check(oneOf({"line", "arc", "circle", "point"}))
        ->transform(lowered());
    app.add_flag("--explode,!--no-explode", options.explode,
                 "Turn polylines, ellipses and splines into lines and arcs (default)");
    app.add_option("--tolerance", options.tolerance,
                   "Chord tolerance of ellipses and splines in drawing units")
        ->type_name("NUMBER")
        ->check(kPositive)
        ->capture_default_str();
}

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
    add("--safe-height", options.safeHeight, "Z to lift to at feed, and to plunge from", kNumber,
        path);
    add("--retraction", options.retraction, "Z of rapid travel", kNumber, path);
    add("--depth", options.depth, "Z of cutting", kNumber, path);
    add("--feed-z", options.feedZ, "Plunge feed per minute", kPositive, path);
    add("--feed-xy", options.feedXY, "Cutting feed per minute", kPositive, path);
    const char* const drill = "Drill cycle (all needed; dwell for g82, peck for g83)";
    add("--drill-feed", options.drillFeed, "Drill feed per minute", kPositive, drill);
    add("--drill-depth", options.drillDepth, "Z of the hole's bottom", kNumber, drill);
    add("--retract-height", options.retractHeight, "Z to retract to", kNumber, drill);
    add("--dwell", options.dwell, "Dwell at the bottom", kNotNegative, drill);
    add("--peck", options.peck, "Depth of one peck", kPositive, drill);
}

void addAddin(CLI::App& app, std::string& addin) {
    app.add_option("--addin", addin, "The add-in's library, when it is not beside kxgcode")
        ->type_name("FILE")
        ->envname("KX_ADDIN_PATH")
        // Settings are passed on from one to another; code is not.
        ->configurable(false);
}

void addEverything(CLI::App& app, Options& options) {
    app.add_option("drawing", options.drawing, "The drawing, a DXF file")
        ->type_name("DRAWING")
        ->required();
    app.add_option("-o,--output", options.output, "Where the program goes (default: shown)")
        ->type_name("FILE");
    addSelection(app, options);
    addProgram(app, options);
    addHeightsAndFeeds(app, options);
    app.add_option("--preview", options.preview, "Where the picture of the path goes, a PNG file")
        ->type_name("FILE");
    app.add_flag("--report", options.report, "Print what was read from the drawing");
    app.add_flag("--quiet", options.quiet, "Print errors and warnings only");
    addAddin(app, options.addin);
    app.set_config("--config", "", "Settings file (TOML) with any of these options")
        ->type_name("FILE");
    app.get_config_ptr()->check(CLI::Validator(checkSettingsFile, ""));
    app.config_formatter(std::make_shared<SettingsFile>());
    app.allow_config_extras(CLI::config_extras_mode::error);
    app.set_version_flag("--version", std::string("kxgcode ") + kVersion);
}

/// The text before the first "=" without blanks around it and without a byte order mark.
std::string keyOf(const std::string& line) {
    constexpr char kAround[] = " \t\xEF\xBB\xBF";
    const std::string key = line.substr(0, line.find('='));
    const std::size_t begin = key.find_first_not_of(kAround);
    return begin == std::string::npos
               ? ""
               : key.substr(begin, key.find_last_not_of(kAround) - begin + 1);
}

/// The number of the line of a settings file that sets a key; 0 when none does.
int lineOf(const std::string& file, const std::string& key) {
    std::ifstream in(file);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (keyOf(line) == key) {
            return number;
        }
    }
    return 0;
}

/// Names file, line and cause of what a settings file holds that no option takes.
int settingsFailure(const CLI::App& app, const CLI::Error& error) {
    const std::string file = app.get_config_ptr()->as<std::string>();
    const std::string what = error.what();
    const std::string item = what.substr(what.rfind(' ') + 1);
    const int line = lineOf(file, item);
    return sayFailure(kExitUnreadableInput, file + (line > 0 ? ":" + std::to_string(line) : "") +
                                                ": '" + item + "' is no setting");
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
    } catch (const CLI::ConfigError& error) {
        return settingsFailure(app, error);
    } catch (const CLI::Error& error) {
        sayFailure(kExitWrongUsage, error.what());
        sayLine("Run kxgcode --help for the options.");
        return kExitWrongUsage;
    }
    return std::nullopt;
}

}  // namespace

bool asksForView(int argc, char** argv) {
    return argc > 1 && std::string(argv[1]) == "view";
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

Parsed<Options> parseOptions(int argc, char** argv) {
    Parsed<Options> parsed;
    CLI::App app(
        "Turns a 2-D drawing into a CNC program in G-code.\n"
        "kxgcode view FILE.nc --preview FILE.png makes a picture of any program.",
        "kxgcode");
    addEverything(app, parsed.options);
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
