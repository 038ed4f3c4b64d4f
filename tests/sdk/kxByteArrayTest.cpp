// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxByteArray.h>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(kxByteArray, isEmptyByDefaultFromNullAndFromNoBytes) {
    EXPECT_EQ(kxByteArray().size(), 0U);
    EXPECT_EQ(kxByteArray().data(), nullptr);
    EXPECT_EQ(kxByteArray(nullptr, 5).size(), 0U);
    EXPECT_EQ(kxByteArray("abc", 0).data(), nullptr);
}

TEST(kxByteArray, keepsZerosAndAllOtherBytes) {
    std::string all;
    for (int value = 0; value < 256; ++value) {
        all.push_back(static_cast<char>(value));
    }
    const kxByteArray bytes(all.data(), all.size());
    ASSERT_EQ(bytes.size(), 256U);
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), all);
}

TEST(kxByteArray, ownsItsBytesAndComparesByThem) {
    char buffer[] = {'a', '\0', 'b'};
    const kxByteArray bytes(buffer, sizeof buffer);
    const kxByteArray copy = bytes;
    EXPECT_NE(copy.data(), bytes.data());
    buffer[2] = 'c';
    EXPECT_TRUE(bytes == copy);
    EXPECT_FALSE(bytes == kxByteArray(buffer, sizeof buffer));
    EXPECT_FALSE(bytes == kxByteArray(buffer, 2));
}

}  // namespace
