// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <gtest/gtest.h>

#include "findings/Finding.h"

namespace {

const std::filesystem::path kPages = std::filesystem::path(KX_SOURCE_FOLDER) / "docs/user/findings";

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

}  // namespace
