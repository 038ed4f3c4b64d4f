// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PostProcessorImpl.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

Rows rowsOf(const std::map<std::string, std::string>& map) {
    return {map.begin(), map.end()};
}

const Rows kRows{{"CancelCannedCycle", "G80"},
                 {"DrillCycleWithDwell", "G82"},
                 {"G02", "G02"},
                 {"G03", "G03"},
                 {"I", "I"},
                 {"J", "J"},
                 {"K", "K"},
                 {"LINEAR", "G01"},
                 {"PeckDrillCycle", "G83"},
                 {"R", "R"},
                 {"RAPID", "G0"},
                 {"ReturnToRLevelInCannedCycle", "G99"},
                 {"SimpleDrillCycle", "G81"},
                 {"X", "X"},
                 {"Y", "Y"},
                 {"Z", "Z"}};

}  // namespace

TEST(PostProcessorImpl, FreshInstanceYieldsTheSixteenRowsInBytewiseKeyOrder) {
    EXPECT_EQ(rowsOf(PostProcessorImpl().GetMap()), kRows);
}

TEST(PostProcessorImpl, ARepeatedCreateMapLeavesTheSameContent) {
    PostProcessorImpl processor;
    processor.CreateMap();
    EXPECT_EQ(rowsOf(processor.GetMap()), kRows);
}

TEST(PostProcessorImpl, TwoCallsOfGetPostProcessorReturnTheSameInstance) {
    PostProcessorImpl* const first = PostProcessorImpl::GetPostProcessor();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(PostProcessorImpl::GetPostProcessor(), first);
    EXPECT_EQ(rowsOf(first->GetMap()), kRows);
}

TEST(PostProcessorImpl, ALookupOfAMissingKeyChangesTheCallersCopyOnly) {
    PostProcessorImpl* const processor = PostProcessorImpl::GetPostProcessor();
    auto copy = processor->GetMap();
    EXPECT_EQ(copy[""], "");
    EXPECT_EQ(copy["no such key"], "");
    EXPECT_EQ(copy.size(), 18U);
    EXPECT_EQ(rowsOf(processor->GetMap()), kRows);
}

TEST(PostProcessorImpl, IsDestroyedWholeThroughItsInterface) {
    static_assert(std::has_virtual_destructor_v<PostProcessorInt>);
    const std::unique_ptr<PostProcessorInt> processor = std::make_unique<PostProcessorImpl>();
    EXPECT_EQ(processor->GetMap().size(), 16U);
}
