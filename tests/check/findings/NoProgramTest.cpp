// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "findings/rules/NoProgramRule.h"

#include <gtest/gtest.h>

#include "CatalogueCase.h"
#include "report/TextReport.h"

namespace gcode_check {
namespace {

std::string times(int count, const std::string& line) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += line + "\n";
    }
    return text;
}

struct Row {
    const char* name;
    std::string text;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.text.substr(0, 60);
}

class NoProgram : public testing::TestWithParam<Row> {};
TEST_P(NoProgram, IsOneFindingWithTheFirstLineThatShowsIt) {
    EXPECT_TRUE(isNoProgram(GetParam().text));
    const CheckResult result = check(GetParam().text, {});
    ASSERT_EQ(result.findings.size(), 1U) << textReport(result);
    EXPECT_EQ(result.findings[0].kind, FindingKind::ControllerRejects);
    EXPECT_TRUE(hasErrors(result));
    EXPECT_NE(result.findings[0].sentence.find("This does not look like a program"),
              std::string::npos);
}

class Program : public testing::TestWithParam<Row> {};
TEST_P(Program, IsReportedLineByLineWhateverIsWrongWithIt) {
    EXPECT_FALSE(isNoProgram(GetParam().text));
    const CheckResult result = check(GetParam().text, {});
    EXPECT_NE(result.reading.stopLine, 0U);
    EXPECT_EQ(textReport(result).find("does not look like"), std::string::npos);
}

const auto nameOf = [](const auto& row) { return std::string(row.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Texts, NoProgram,
    testing::Values(Row{"oneLine", "hello"}, Row{"oneWordLineInEleven", "X1\n" + times(10, "text")},
                    Row{"oneCodeLineInEleven", "take G1\n" + times(10, "text")},
                    Row{"remarksDoNotCount", "X1\n" + times(9, "(G1)\n; G2\n%\ntext") + "text"},
                    Row{"versions", times(9, "v2.36")}, Row{"minus", "a - b"},
                    Row{"wordsThatBeginLikeCodes", "More\nGood\nmoreover"},
                    Row{"codesWithinWords", "RG1\nX-G1\n_M3"}, Row{"point", "e. g. 5"},
                    Row{"percentAndText", "% of it\n%%"},
                    Row{"comment", "# a comment\n// another"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Texts, Program,
    testing::Values(
        Row{"oneWordLineInTen", "X1\n" + times(9, "text")},
        Row{"oneCodeLineInTen", "take G1\n" + times(9, "text")},
        Row{"remarksDoNotCount", "X1\n" + times(9, "text\n(a remark)\n; another\n%")},
        Row{"decimalCommas", times(50, "X1,5 Y2,5")}, Row{"exponents", times(50, "G1 X1e-5")},
        Row{"lettersForZero", times(50, "GO XO")}, Row{"endOfBlockSigns", times(50, "G1 X1*")},
        Row{"remarksWithoutBrackets", times(50, "Safe height G0 X0 Y0;")},
        Row{"axesOfLathes", times(50, "N10 U1 W2")}, Row{"slashes", times(50, "/G1 X1 !")},
        Row{"blanks", times(50, " N 1 0 G 1 = ")}, Row{"parameters", times(50, "#5 = #<_x>")},
        Row{"subroutines", times(50, "o<cut> call")}, Row{"values", times(50, "X#1\nY[1+2]")},
        Row{"aByteOrderMark", "\xef\xbb\xbfG1 X1"}, Row{"returnsAlone", "G1 X1\rX2\rX3"},
        Row{"behindARemark", times(50, "(cut) G1 X1 !")}),
    nameOf);

TEST(NoProgramRule, SaysHowManyLinesAndTheFirstOfThemWithItsNumber) {
    const std::string text =
        "(a remark)\nX1\n\n  the\tfirst of many words that stand in this line\n" +
        times(20, "text");
    const CheckResult result = check(text, {});
    ASSERT_EQ(result.findings.size(), 1U);
    EXPECT_EQ(result.findings[0].line, 4U);
    EXPECT_EQ(result.findings[0].sentence,
              "This does not look like a program: only 1 of its 22 lines begins with a word such "
              "as G1 or X10. This one reads \"the first of many words that stand in th...\". Give "
              "the program's file; nothing of this one was checked.");
    EXPECT_EQ(check("Gr\xc3\xbc\xc3\x9f"
                    "e\r\n",
                    {})
                  .findings[0]
                  .sentence,
              "This does not look like a program: its only line does not begin with a word such as "
              "G1 or X10. This one reads \"Gr??e\". Give the program's file; nothing of this one "
              "was checked.");
}

// The other side of the rule: hazards are programs.
TEST(NoProgramRule, OfTheCatalogueOnlyItsOwnCasesAreNone) {
    const auto folder = std::filesystem::path(KX_SOURCE_FOLDER) / "tests/check/catalogue";
    std::size_t none = 0;
    for (const char* const kind : {"hazards", "clean"}) {
        for (const CatalogueCase& entry : readCases(folder / kind)) {
            const bool isNone = entry.name.rfind("no-program-", 0) == 0;
            EXPECT_EQ(isNoProgram(entry.program), isNone) << entry.name;
            none += isNone ? 1 : 0;
        }
    }
    EXPECT_GE(none, 8U);
}

}  // namespace
}  // namespace gcode_check
