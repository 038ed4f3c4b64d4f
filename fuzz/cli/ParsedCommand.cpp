// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "ParsedCommand.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "FuzzCheck.h"

namespace {

/// Takes what is printed on a stream while it lives.
class Captured {
public:
    explicit Captured(std::ostream& stream)
        : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;
    ~Captured() { m_stream.rdbuf(m_before); }
    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

void checkMessages(const ParsedCommand& command) {
    const std::string& said = command.messages;
    if (!command.exitCode || *command.exitCode == 0) {
        FUZZ_CHECK(said.empty());
        FUZZ_CHECK(command.output.empty() == !command.exitCode);
        return;
    }
    FUZZ_CHECK(*command.exitCode == 1 || *command.exitCode == 2);
    FUZZ_CHECK(command.output.empty());
    FUZZ_CHECK(startsWith(said, "kxgcode: ") && said.back() == '\n');
    const std::size_t end = said.find('\n') + 1;
    FUZZ_CHECK(end > sizeof "kxgcode: ");
    FUZZ_CHECK(end == said.size() || (*command.exitCode == 1 &&
                                      said.substr(end) == "Run kxgcode --help for the options.\n"));
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\n'; };
    FUZZ_CHECK(std::none_of(said.begin(), said.end(), isControl));
}

/// A folder that is removed at the end.
class Folder {
public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "settings.XXXXXX").string();
        FUZZ_CHECK(mkdtemp(pattern.data()) != nullptr);
        m_path = pattern;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

void checkNumber(const std::string& text, double least, bool isIncluded) {
    if (text.empty()) {
        return;
    }
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    FUZZ_CHECK(end == text.data() + text.size() && std::isfinite(value));
    FUZZ_CHECK(value > least || (isIncluded && value == least));
}

}  // namespace

ParsedCommand parseCommand(const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"kxgcode"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& argument : all) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    ParsedCommand command;
    {
        const Captured output(std::cout);
        const Captured messages(std::cerr);
        Parsed<Options> parsed = parseOptions(static_cast<int>(all.size()), pointers.data());
        command = {std::move(parsed.options), parsed.exitCode, false, output.text(),
                   messages.text()};
    }
    checkMessages(command);
    FUZZ_CHECK(command.exitCode || missingOptions(command.options).empty());
    command.isTaken = !command.exitCode || startsWith(command.messages, "kxgcode: needed ");
    if (command.isTaken) {
        checkNumbers(command.options);
    }
    return command;
}

std::string settingsFileWith(const std::string& content) {
    static const Folder folder;
    const std::string path = folder.path() + "/settings.toml";
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

void checkNumbers(const Options& options) {
    constexpr double kAny = -HUGE_VAL;
    for (const std::string* text : {&options.safeHeight, &options.retraction, &options.depth,
                                    &options.drillDepth, &options.retractHeight}) {
        checkNumber(*text, kAny, false);
    }
    for (const std::string* text :
         {&options.feedZ, &options.feedXY, &options.drillFeed, &options.peck}) {
        checkNumber(*text, 0, false);
    }
    checkNumber(options.dwell, 0, true);
    const double tolerance = options.objects.explodeTolerance;
    FUZZ_CHECK(std::isfinite(tolerance) && tolerance > 0);
    for (const double value :
         {options.check.surface.value_or(0), options.check.arcTolerance.value_or(0),
          options.check.tolerance, options.check.rapidRate}) {
        FUZZ_CHECK(std::isfinite(value));
    }
}
