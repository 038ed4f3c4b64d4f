// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <kx/kxString.h>

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring wide(const kxString& text) {
    return {text.c_str(), text.length()};
}

TEST(kxString, isEmptyByDefaultAndFromNull) {
    EXPECT_TRUE(kxString().empty());
    EXPECT_TRUE(kxString(static_cast<const char*>(nullptr)).empty());
    EXPECT_TRUE(kxString(static_cast<const wchar_t*>(nullptr)).empty());
    EXPECT_TRUE(kxString(static_cast<const wchar_t*>(nullptr), 3).empty());
    EXPECT_EQ(kxString().toUtf8(), "");
    EXPECT_EQ(kxString().c_str()[0], L'\0');
}

struct Utf8Row {
    const char* name;
    std::string utf8;
    std::wstring text;
};

class kxStringUtf8 : public testing::TestWithParam<Utf8Row> {};

TEST_P(kxStringUtf8, goesBothWays) {
    EXPECT_EQ(wide(kxString(GetParam().utf8)), GetParam().text);
    const kxString text(GetParam().text.c_str(), GetParam().text.size());
    EXPECT_EQ(text.toUtf8(), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(
    rows, kxStringUtf8,
    testing::Values(
        Utf8Row{"ascii", "G1 X0.5", L"G1 X0.5"},
        Utf8Row{"twoBytesSmallest", "\xC2\x80", std::wstring(1, wchar_t(0x80))},
        Utf8Row{"twoBytesLargest", "\xDF\xBF", std::wstring(1, wchar_t(0x7FF))},
        Utf8Row{"threeBytesSmallest", "\xE0\xA0\x80", std::wstring(1, wchar_t(0x800))},
        Utf8Row{"beforeTheSurrogates", "\xED\x9F\xBF", std::wstring(1, wchar_t(0xD7FF))},
        Utf8Row{"afterTheSurrogates", "\xEE\x80\x80", std::wstring(1, wchar_t(0xE000))},
        Utf8Row{"threeBytesLargest", "\xEF\xBF\xBF", std::wstring(1, wchar_t(0xFFFF))},
        Utf8Row{"fourBytesSmallest", "\xF0\x90\x80\x80", std::wstring(1, wchar_t(0x10000))},
        Utf8Row{"beyond16Bits", "a\xF0\x9F\x94\xA7z", std::wstring{L'a', wchar_t(0x1F527), L'z'}},
        Utf8Row{"largest", "\xF4\x8F\xBF\xBF", std::wstring(1, wchar_t(0x10FFFF))},
        Utf8Row{"zerosInside", std::string("a\0b\0", 4), std::wstring(L"a\0b\0", 4)},
        Utf8Row{"mixed", "\xC3\xA9\xE2\x82\xAC", std::wstring{wchar_t(0xE9), wchar_t(0x20AC)}}),
    [](const auto& row) { return row.param.name; });

struct InvalidRow {
    const char* name;
    std::string utf8;
    std::wstring text;
};

const wchar_t kBad = 0xFFFD;

class kxStringInvalidUtf8 : public testing::TestWithParam<InvalidRow> {};

TEST_P(kxStringInvalidUtf8, givesOneReplacementPerByte) {
    EXPECT_EQ(wide(kxString(GetParam().utf8)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    rows, kxStringInvalidUtf8,
    testing::Values(
        InvalidRow{"loneTail", "a\x80z", {L'a', kBad, L'z'}},
        InvalidRow{"overlongTwoBytes", "\xC0\x80", {kBad, kBad}},
        InvalidRow{"overlongThreeBytes", "\xE0\x9F\xBF", {kBad, kBad, kBad}},
        InvalidRow{"overlongFourBytes", "\xF0\x8F\xBF\xBF", {kBad, kBad, kBad, kBad}},
        InvalidRow{"highSurrogate", "\xED\xA0\x80", {kBad, kBad, kBad}},
        InvalidRow{"lowSurrogate", "\xED\xBF\xBF", {kBad, kBad, kBad}},
        InvalidRow{"aboveTheLargest", "\xF4\x90\x80\x80", {kBad, kBad, kBad, kBad}},
        InvalidRow{"leadF5", "\xF5\x80\x80\x80", {kBad, kBad, kBad, kBad}},
        InvalidRow{"leadFF", "\xFF", {kBad}}, InvalidRow{"cutOffTwo", "a\xC3", {L'a', kBad}},
        InvalidRow{"cutOffThree", "\xE2\x82", {kBad, kBad}},
        InvalidRow{"cutOffFour", "\xF0\x9F\x94", {kBad, kBad, kBad}},
        InvalidRow{"goesOnAfterABrokenSequence", "\xE2\x82G1", {kBad, kBad, L'G', L'1'}},
        InvalidRow{"zeroBreaksASequence", std::string("\xC3\0x", 3), {kBad, L'\0', L'x'}}),
    [](const auto& row) { return row.param.name; });

TEST(kxString, valuesThatAreNoCharacterBecomeTheReplacementInUtf8) {
    for (const long value : {0xD800L, 0xDBFFL, 0xDC00L, 0xDFFFL, 0x110000L, -1L}) {
        const wchar_t text[] = {L'a', static_cast<wchar_t>(value), L'z'};
        EXPECT_EQ(kxString(text, 3).toUtf8(), "a\xEF\xBF\xBDz") << value;
    }
}

TEST(kxString, everyScalarValueComesBack) {
    for (unsigned long value = 0; value <= 0x10FFFF; ++value) {
        if (value < 0xD800 || value > 0xDFFF) {
            const wchar_t character = static_cast<wchar_t>(value);
            const kxString text(&character, 1);
            ASSERT_EQ(kxString(text.toUtf8()), text) << value;
        }
    }
}

TEST(kxString, stopsAtTheZeroOfAPlainPointerOnly) {
    EXPECT_EQ(kxString(L"ab\0c").length(), 2U);
    EXPECT_EQ(kxString("ab\0c").length(), 2U);
    EXPECT_EQ(kxString(L"ab\0c", 4).length(), 4U);
    EXPECT_EQ(kxString(std::string("ab\0c", 4)).length(), 4U);
}

TEST(kxString, ownsItsCharacters) {
    wchar_t buffer[] = L"one";
    const kxString text(buffer);
    buffer[0] = L'X';
    EXPECT_EQ(text, kxString("one"));
    EXPECT_EQ(text.c_str()[text.length()], L'\0');
}

TEST(kxString, joinsAndAppends) {
    kxString text("G");
    text += kxString(L"81");
    EXPECT_EQ(text, kxString("G81"));
    EXPECT_EQ(kxString("a") + kxString("b"), kxString("ab"));
    text += text;
    EXPECT_EQ(text, kxString("G81G81"));
    const kxString withZero(L"a\0", 2);
    EXPECT_EQ((withZero + kxString("b")).length(), 3U);
}

TEST(kxString, comparesByCodePoint) {
    EXPECT_TRUE(kxString("Z") < kxString("a"));
    EXPECT_TRUE(kxString("a") < kxString("ab"));
    EXPECT_FALSE(kxString("a") < kxString("a"));
    // UTF-16 would order these the other way round.
    EXPECT_TRUE(kxString("\xEF\xBF\xBF") < kxString("\xF0\x90\x80\x80"));
    EXPECT_TRUE(kxString("a") != kxString("A"));
    EXPECT_NE(kxString(L"a\0", 2), kxString("a"));
}

}  // namespace
