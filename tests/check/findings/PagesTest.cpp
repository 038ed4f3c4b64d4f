// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "CatalogueCase.h"
#include "findings/Check.h"
#include "report/TextReport.h"

namespace {

const std::filesystem::path kPages =
    std::filesystem::path(KX_SOURCE_FOLDER) / "docs/user/manual/findings";

std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Pages, EveryFindingHasOneThatSaysWhatWhyAndWhichField) {
    for (const gcode_check::FindingKind kind : gcode_check::allFindingKinds()) {
        const std::string name = identifierOf(kind);
        const std::string page = read(kPages / (name + ".md"));
        EXPECT_EQ(page.compare(0, name.size() + 3, "# " + name + "\n"), 0) << name;
        for (const char* heading : {"\n## What it means\n", "\n## Why it happens with this panel\n",
                                    "\n## What mends it\n"}) {
            EXPECT_NE(page.find(heading), std::string::npos) << name << heading;
        }
    }
}

TEST(Pages, EveryPageHasItsFindingAndStandsInTheIndex) {
    std::set<std::string> known{"README"};
    for (const gcode_check::FindingKind kind : gcode_check::allFindingKinds()) {
        known.insert(identifierOf(kind));
    }
    const std::string index = read(kPages / "README.md");
    for (const auto& entry : std::filesystem::directory_iterator(kPages)) {
        const std::string name = entry.path().stem().string();
        EXPECT_EQ(known.count(name), 1U) << name;
        if (name != "README") {
            EXPECT_NE(index.find("(" + name + ".md)"), std::string::npos) << name;
        }
    }
}

// What stands between "```name" and "```"; empty: no such block.
std::string block(const std::string& page, const std::string& name) {
    const std::string begin = "\n```" + name + "\n";
    const std::size_t at = page.find(begin);
    if (at == std::string::npos) {
        return "";
    }
    const std::size_t text = at + begin.size();
    return page.substr(text, page.find("```\n", text) - text);
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// As kxgcode names and numbers the objects of a drawing.
gcode_check::Drawing drawingOf(const std::string& page) {
    gcode_check::Drawing drawing;
    drawing.mmPerUnit = 1;
    for (const std::string& line : linesOf(block(page, "drawing"))) {
        gcode_check::Shape shape;
        EXPECT_TRUE(readShape(line, shape)) << line;
        const std::string kind = line.substr(0, line.find(' '));
        shape.name = kind + ' ' + std::to_string(drawing.shapes.size() + 1) + " of layer 0";
        drawing.shapes.push_back(shape);
    }
    return drawing;
}

std::string findingsOf(const std::string& page) {
    gcode_check::CheckOptions options;
    const std::string command = block(page, "sh");
    const std::size_t depth = command.find("--depth ");
    if (depth != std::string::npos) {
        options.depth = std::atof(command.c_str() + depth + 8);
    }
    const gcode_check::Drawing drawing = drawingOf(page);
    const auto result = gcode_check::check(block(page, "gcode"), options,
                                           drawing.shapes.empty() ? nullptr : &drawing);
    std::string findings;
    for (const std::string& line : linesOf(gcode_check::textReport(result))) {
        const bool isFinding = !line.empty() && line.back() == ']';
        findings += isFinding ? line + '\n' : "";
    }
    return findings;
}

TEST(Pages, TheExampleOfEachShowsItsFindingInTheWordsOfThePage) {
    for (const gcode_check::FindingKind kind : gcode_check::allFindingKinds()) {
        const std::string name = identifierOf(kind);
        const std::string page = read(kPages / (name + ".md"));
        const std::string findings = findingsOf(page);
        EXPECT_EQ(findings, block(page, "text")) << name;
        EXPECT_NE(findings.find("[" + name + "]"), std::string::npos) << name;
    }
}

// "Severity: error or warning."
std::string severitiesOf(const std::string& page) {
    const std::size_t at = page.find("Severity: ");
    return page.substr(at, page.find('.', at) - at);
}

TEST(Pages, NameTheSeverityOfEveryHazard) {
    const std::string index = read(kPages / "README.md");
    const auto folder = std::filesystem::path(KX_SOURCE_FOLDER) / "tests/check/catalogue/hazards";
    for (const CatalogueCase& entry : readCases(folder)) {
        const auto result = gcode_check::check(entry.program, entry.options,
                                               entry.drawing ? &*entry.drawing : nullptr);
        ASSERT_FALSE(result.findings.empty()) << entry.name;
        const std::string severity = nameOf(result.findings.front().severity);
        const std::string page = read(kPages / (entry.expected + ".md"));
        EXPECT_NE(severitiesOf(page).find(severity), std::string::npos) << entry.name;
        const std::size_t row = index.find("(" + entry.expected + ".md) | ");
        ASSERT_NE(row, std::string::npos) << entry.name;
        EXPECT_NE(index.substr(row, index.find('\n', row) - row).find(severity), std::string::npos)
            << entry.name;
    }
}

}  // namespace
