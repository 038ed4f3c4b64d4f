// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxStringArray.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(kxStringArray, keepsTheOrderAndDuplicates) {
    kxStringArray texts;
    EXPECT_EQ(texts.GetCount(), 0U);
    for (const char* text : {"b", "a", "b", ""}) {
        texts.Add(text);
    }
    ASSERT_EQ(texts.GetCount(), 4U);
    EXPECT_EQ(texts.GetAt(0), kxString("b"));
    EXPECT_EQ(texts.GetAt(1), kxString("a"));
    EXPECT_EQ(texts.GetAt(2), kxString("b"));
    EXPECT_EQ(texts.GetAt(3), kxString());
}

TEST(kxStringArray, givesAnEmptyTextOutOfRange) {
    kxStringArray texts;
    EXPECT_TRUE(texts.GetAt(0).empty());
    texts.Add("a");
    EXPECT_TRUE(texts.GetAt(1).empty());
    EXPECT_TRUE(texts.GetAt(std::numeric_limits<std::size_t>::max()).empty());
}

TEST(kxStringArray, copiesAreIndependent) {
    kxStringArray texts;
    kxString text("a");
    texts.Add(text);
    text += kxString("x");
    kxStringArray copy = texts;
    copy.Add("b");
    EXPECT_EQ(texts.GetCount(), 1U);
    EXPECT_EQ(texts.GetAt(0), kxString("a"));
    EXPECT_EQ(copy.GetAt(1), kxString("b"));
}

}  // namespace
