// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
// Any arguments and any settings file give options whose numbers can be used, or an exit code and a
// line that says why, with the file's name and the line when it is about the settings.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzCheck.h"
#include "ParsedCommand.h"

namespace {

constexpr std::string_view kConfig = "--config";

/// One argument a line, up to an empty line; behind it is the settings file.
std::vector<std::string> argumentsIn(std::string_view input, std::string_view* settings) {
    std::vector<std::string> arguments;
    while (!input.empty()) {
        const std::size_t end = input.find('\n');
        const std::string_view line = input.substr(0, end);
        input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
        if (line.empty()) {
            break;
        }
        // An argument ends at a zero byte.
        arguments.emplace_back(line.substr(0, line.find('\0')));
    }
    *settings = input;
    return arguments;
}

/// Settings files are those of this process only: no argument names another file that is read.
void nameSettings(const std::string& path, std::vector<std::string>* arguments) {
    bool isNext = false;
    for (std::string& argument : *arguments) {
        if (isNext) {
            argument = path;
        }
        isNext = argument == kConfig;
        if (argument.compare(0, kConfig.size() + 1, "--config=") == 0) {
            argument = "--config=" + path;
        }
    }
}

/// A failure to read a file is about the settings: no other one is read.
void checkNamed(const ParsedCommand& command, const std::string& path) {
    const std::string start = "kxgcode: " + path + ":";
    FUZZ_CHECK(command.messages.compare(0, start.size(), start) == 0);
    const std::string rest = command.messages.substr(start.size());
    const std::size_t digits = rest.find_first_not_of("0123456789");
    FUZZ_CHECK(digits > 0 && digits != std::string::npos);
    FUZZ_CHECK(rest.compare(digits, 2, ": ") == 0 && rest.size() > digits + 3);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view settings;
    std::vector<std::string> arguments =
        argumentsIn({reinterpret_cast<const char*>(data), size}, &settings);
    const std::string path = settingsFileWith(std::string(settings));
    nameSettings(path, &arguments);
    const ParsedCommand command = parseCommand(arguments);
    if (command.exitCode == 2) {
        checkNamed(command, path);
    }
    return 0;
}
