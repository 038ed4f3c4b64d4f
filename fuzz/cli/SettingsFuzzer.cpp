// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// What is set in a file, in whatever way it is written there, is what the same arguments set; and
// where the one is refused, so is the other. A file can't name the add-in, which is not tried here.
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "ByteReader.h"
#include "FuzzCheck.h"
#include "ParsedCommand.h"

namespace {

enum class Kind { number, word, text, list, flag };

struct Option {
    const char* name;
    Kind kind;
};

constexpr std::array<Option, 29> kOptions{{
    {"mode", Kind::word},         {"cycle", Kind::word},         {"motion", Kind::word},
    {"unit", Kind::word},         {"safe-height", Kind::number}, {"retraction", Kind::number},
    {"depth", Kind::number},      {"feed-z", Kind::number},      {"feed-xy", Kind::number},
    {"drill-feed", Kind::number}, {"drill-depth", Kind::number}, {"retract-height", Kind::number},
    {"dwell", Kind::number},      {"peck", Kind::number},        {"tolerance", Kind::number},
    {"preamble", Kind::text},     {"postscript", Kind::text},    {"comment", Kind::text},
    {"output", Kind::text},       {"preview", Kind::text},       {"surface", Kind::number},
    {"layer", Kind::list},        {"type", Kind::list},          {"line-numbers", Kind::flag},
    {"explode", Kind::flag},      {"no-explode", Kind::flag},    {"report", Kind::flag},
    {"quiet", Kind::flag},        {"speed", Kind::text},
}};

constexpr std::array<const char*, 16> kWords{
    "toolpath", "drill", "g81",  "g82", "g83",    "absolute", "relative", "mm",
    "inch",     "MM",    "line", "arc", "circle", "point",    "G83",      "lathe"};
constexpr std::array<const char*, 16> kNumbers{"0",   "-1",  "5",    "10.25", "-0",    "1e3",
                                               "nan", "inf", "0x10", "1,5",   "1e400", "+5",
                                               ".5",  "5.",  "-.5",  "1e-400"};

/// A text as an argument may be: without zero bytes, UTF-8 as settings files are.
std::string anyText(ByteReader* input) {
    std::string text;
    for (const char c : input->text()) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0xc0) {
            text += "\xC3\xA4";
        } else {
            const auto ascii = static_cast<char>(byte & 0x7fU);
            text += ascii == '\0' ? '#' : ascii;
        }
    }
    return text;
}

std::string value(ByteReader* input, Kind kind) {
    const std::uint8_t choice = input->byte();
    if (choice >= 224 || kind == Kind::text) {
        return anyText(input);
    }
    if (kind == Kind::number) {
        return choice < 128 ? kNumbers[choice % 16]
                            : std::to_string(static_cast<int>(choice) - 176);
    }
    return kWords[choice % 16];
}

std::string escaped(const std::string& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            result += std::string("\\") + c;
        } else if (byte < ' ') {
            result += std::string("\\u00") + kDigits[byte / 16] + kDigits[byte % 16];
        } else {
            result += c;
        }
    }
    return result;
}

bool isBareWord(const std::string& text) {
    constexpr char kParts[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.+-_";
    return !text.empty() && text.find_first_not_of(kParts) == std::string::npos;
}

std::string written(ByteReader* input, const std::string& text) {
    const std::uint8_t way = input->byte();
    if (way % 4 == 0 && isBareWord(text)) {
        return text;
    }
    if (way % 4 == 1 && text.find_first_of("'\r\n") == std::string::npos) {
        return "'" + text + "'";
    }
    // A line end right behind three quotes doesn't count.
    return way % 4 == 2 ? "\"\"\"\n" + escaped(text) + "\"\"\"" : "\"" + escaped(text) + "\"";
}

/// The same settings in both ways.
struct Both {
    std::vector<std::string> arguments;
    std::string file;
};

void addList(ByteReader* input, const std::string& name, Both* both) {
    both->file += name + " = [";
    for (std::size_t count = input->below(4); count > 0; --count) {
        const std::string text = value(input, Kind::word);
        both->arguments.insert(both->arguments.end(), {"--" + name, text});
        both->file += written(input, text) + (input->flag() ? "," : " , # next\n");
    }
    both->file += "]";
}

void addSetting(ByteReader* input, const Option& option, Both* both) {
    const std::string name = option.name;
    both->file += std::string(input->below(3), ' ');
    if (option.kind == Kind::list) {
        addList(input, name, both);
    } else if (option.kind == Kind::flag) {
        const char* const text = input->flag() ? "true" : "false";
        both->arguments.push_back("--" + name + "=" + text);
        both->file += name + " = " + text;
    } else {
        const std::string text = value(input, option.kind);
        both->arguments.insert(both->arguments.end(), {"--" + name, text});
        both->file += name + "=" + written(input, text);
    }
    constexpr std::array<const char*, 6> kEnds{"\n", "\n\n", "\r\n", " # \"why\n", "#\n", " \t\n"};
    both->file += kEnds[input->below(kEnds.size())];
}

/// Each option once: the command line may repeat some, a file none.
Both settings(ByteReader* input) {
    Both both;
    std::set<std::string> used;
    both.file = input->flag() ? "\xEF\xBB\xBF" : "# settings\n";
    while (!input->atEnd()) {
        const Option& option = kOptions.at(input->below(kOptions.size()));
        const std::string name = option.name;
        if (used.insert(name == "no-explode" ? "explode" : name).second) {
            addSetting(input, option, &both);
        }
    }
    return both;
}

bool same(const Options& a, const Options& b) {
    const auto all = [](const Options& o) {
        return std::tie(o.drawing, o.output, o.objects.layers, o.objects.types, o.mode, o.cycle,
                        o.motion, o.unit, o.safeHeight, o.retraction, o.depth, o.feedZ, o.feedXY,
                        o.drillFeed, o.drillDepth, o.retractHeight, o.dwell, o.peck, o.preambleFile,
                        o.postscriptFile, o.comment, o.lineNumbers, o.objects.explode,
                        o.objects.explodeTolerance, o.isChecked, o.check.surface, o.check.tolerance,
                        o.check.rapidRate, o.report, o.quiet, o.preview, o.addin);
    };
    return all(a) == all(b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(data, size);
    Both both = settings(&input);
    const std::string path = settingsFileWith(both.file);
    // What only a check needs is refused as an argument without it; a file may hold it.
    both.arguments.insert(both.arguments.end(), {"--check", "part.dxf"});
    const ParsedCommand typed = parseCommand(both.arguments);
    const ParsedCommand read = parseCommand({"part.dxf", "--check", "--config", path});
    FUZZ_CHECK(typed.exitCode.has_value() == read.exitCode.has_value());
    FUZZ_CHECK(typed.isTaken == read.isTaken);
    if (typed.isTaken) {
        FUZZ_CHECK(same(typed.options, read.options));
        FUZZ_CHECK(typed.exitCode || read.options.settingsFile == path);
    }
    return 0;
}
