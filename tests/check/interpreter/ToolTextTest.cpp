// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "interpreter/ToolText.h"

#include <gtest/gtest.h>

namespace gcode_check {
namespace {

// "3=6 7=12.5", millimetres.
std::string toolsAsText(std::string_view list) {
    const ToolTexts read = toolsIn(list);
    EXPECT_TRUE(read.error.empty() || read.tools.empty()) << list;
    std::string text = read.error;
    for (const Tool& tool : read.tools) {
        EXPECT_EQ(tool.pocket, tool.number);
        std::string width = std::to_string(tool.diameterMm);
        width.erase(width.find_last_not_of('0') + 1);
        text += (text.empty() ? "" : " ") + std::to_string(tool.number) + "=" + width;
    }
    return text;
}

TEST(ToolText, ToolsStandBehindCommasSemicolonsOrBlanks) {
    EXPECT_EQ(toolsAsText("3=6"), "3=6.");
    EXPECT_EQ(toolsAsText("3=6, 7=12.5"), "3=6. 7=12.5");
    EXPECT_EQ(toolsAsText("3=6;7=12.5"), "3=6. 7=12.5");
    EXPECT_EQ(toolsAsText(" 3=6 7=12.5\t"), "3=6. 7=12.5");
    EXPECT_EQ(toolsAsText("3 = 6,7= 0.5in,"), "3=6. 7=12.7");
    EXPECT_EQ(toolsAsText("1=0"), "1=0.");
    EXPECT_EQ(toolsAsText(""), "");
    EXPECT_EQ(toolsAsText(" , "), "");
}

TEST(ToolText, WhatIsNoToolIsNamed) {
    for (const char* bad : {"3", "=6", "3=", "x=6", "0=6", "-3=6", "3=-1", "3=in", "3=6mm",
                            "3=1e999", "3=nan", "3=6=7", "3.5=6", "99999999999=6", "T3=6", "="}) {
        EXPECT_EQ(toolsAsText(bad),
                  "'" + std::string(bad) + "' is no tool: NUMBER=DIAMETER, as 3=6 or 3=0.25in");
    }
    // Decimals stand behind a point; 12 mm for 12.5 would be a wrong radius.
    for (const char* comma : {"7=12,5", "3=6, 7=12,5", "7=12,5, 3=6"}) {
        EXPECT_EQ(toolsAsText(comma), "'7=12,5' is no tool: NUMBER=DIAMETER, as 3=6 or 3=0.25in");
    }
    EXPECT_EQ(toolsAsText("3=0.25 in"), "'in' is no tool: NUMBER=DIAMETER, as 3=6 or 3=0.25in");
}

TEST(ToolText, AToolHasOneDiameter) {
    EXPECT_EQ(toolsAsText("3=6, 7=8, 3=6"), "tool 3 is there twice");
}

}  // namespace
}  // namespace gcode_check
