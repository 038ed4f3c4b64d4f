// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <set>

#include <gtest/gtest.h>

#include "CatalogueCase.h"
#include "report/TextReport.h"

namespace {

using gcode_check::CheckResult;
using gcode_check::Finding;

const std::filesystem::path kCatalogue =
    std::filesystem::path(KX_SOURCE_FOLDER) / "tests/check/catalogue";

CheckResult resultOf(const CatalogueCase& entry) {
    return gcode_check::check(entry.program, entry.options,
                              entry.drawing ? &*entry.drawing : nullptr);
}

class Hazard : public testing::TestWithParam<CatalogueCase> {};
class Clean : public testing::TestWithParam<CatalogueCase> {};

std::string nameOfCase(const testing::TestParamInfo<CatalogueCase>& info) {
    std::string name = info.param.name;
    for (char& c : name) {
        c = c == '-' ? '_' : c;
    }
    return name;
}

TEST_P(Hazard, ShowsItsOneFindingAndNothingElse) {
    const CatalogueCase& entry = GetParam();
    ASSERT_EQ(entry.error, "");
    ASSERT_NE(entry.expected, "");
    const CheckResult result = resultOf(entry);
    ASSERT_EQ(result.findings.size(), 1U) << entry.title << '\n' << textReport(result);
    const Finding& finding = result.findings.front();
    EXPECT_EQ(identifierOf(finding.kind), entry.expected) << textReport(result);
    EXPECT_EQ(finding.line, entry.line) << textReport(result);
    EXPECT_LE(finding.line, result.reading.lines);
    EXPECT_FALSE(finding.sentence.empty());
    EXPECT_EQ(finding.sentence.back(), '.');
}

TEST_P(Clean, ShowsNoFinding) {
    const CatalogueCase& entry = GetParam();
    ASSERT_EQ(entry.error, "");
    ASSERT_EQ(entry.expected, "");
    const CheckResult result = resultOf(entry);
    EXPECT_TRUE(result.findings.empty()) << entry.title << '\n' << textReport(result);
    EXPECT_EQ(result.reading.stopLine, 0U);
    EXPECT_FALSE(result.reading.motions.empty());
    EXPECT_EQ(result.drawingGiven, result.coverageJudged);
    EXPECT_EQ(result.shapes, result.shapesCut);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, Hazard, testing::ValuesIn(readCases(kCatalogue / "hazards")),
                         nameOfCase);
INSTANTIATE_TEST_SUITE_P(Catalogue, Clean, testing::ValuesIn(readCases(kCatalogue / "clean")),
                         nameOfCase);

TEST(CatalogueTest, HasFortyHazardsAndTwentyCleanPrograms) {
    EXPECT_GE(readCases(kCatalogue / "hazards").size(), 40U);
    EXPECT_GE(readCases(kCatalogue / "clean").size(), 20U);
}

TEST(CatalogueTest, ShowsEveryKindOfFinding) {
    std::set<std::string> shown;
    for (const CatalogueCase& entry : readCases(kCatalogue / "hazards")) {
        shown.insert(entry.expected);
    }
    for (const gcode_check::FindingKind kind : gcode_check::allFindingKinds()) {
        EXPECT_EQ(shown.count(identifierOf(kind)), 1U) << identifierOf(kind);
    }
    EXPECT_EQ(shown.size(), gcode_check::allFindingKinds().size());
}

}  // namespace
