// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "miscellaneous.h"

#include <gtest/gtest.h>

#include <kx/kxByteArray.h>
#include <kx/kxString.h>
#include <kx/kxStringArray.h>

TEST(EnvironmentVariable, IsEmptyWhenItIsNotSet) {
    EXPECT_EQ(getEnvironmentVariable("GCODE_TEST_UNSET"), QString());
}

TEST(EnvironmentVariable, ReplacesAnEarlierValue) {
    setEnvironmentVariable("GCODE_TEST", "one");
    setEnvironmentVariable("GCODE_TEST", "two");
    EXPECT_EQ(getEnvironmentVariable("GCODE_TEST").toStdString(), "two");
    EXPECT_EQ(qgetenv("GCODE_TEST"), QByteArray("two"));
}

TEST(EnvironmentVariable, IsSetAsUtf8AndReadAsLatin1) {
    setEnvironmentVariable("GCODE_TEST_UMLAUT", QString(QChar(0xE4)));
    EXPECT_EQ(qgetenv("GCODE_TEST_UMLAUT"), QByteArray("\xC3\xA4"));
    EXPECT_EQ(getEnvironmentVariable("GCODE_TEST_UMLAUT"), QString(QChar(0xC3)) + QChar(0xA4));
}

TEST(TextConversion, GoesThereAndBackForEveryCharacter) {
    for (uint code = 0; code <= 0x10FFFF; ++code) {
        if (code == 0xD800) {
            code = 0xE000;  // Surrogates are no characters.
        }
        const QString text = QString::fromUcs4(&code, 1);
        if (text.isEmpty()) {
            continue;  // The toolkit's own conversion reads U+FEFF as a byte order mark.
        }
        if (d2q(q2d(text)) != text) {
            ADD_FAILURE() << std::hex << code;
        }
    }
}

TEST(TextConversion, KeepsAByteOrderMarkAndZeros) {
    const QString mark = QString(QChar(0xFEFF)) + "a";
    EXPECT_EQ(d2q(q2d(mark)), mark);
    const QString zeros = QString("a") + QChar(0) + "b" + QChar(0);
    EXPECT_EQ(q2d(zeros).length(), 4U);
    EXPECT_EQ(d2q(q2d(zeros)), zeros);
}

TEST(TextConversion, MakesOneHostCharacterOfASurrogatePair) {
    const QString text = QString::fromUtf8("a😀b");
    ASSERT_EQ(text.size(), 4);
    const kxString host = q2d(text);
    ASSERT_EQ(host.length(), 3U);
    EXPECT_EQ(host.c_str()[1], wchar_t{0x1F600});
    EXPECT_EQ(d2q(host), text);
}

TEST(TextConversion, DoesNotNormalise) {
    const QString decomposed = QString("e") + QChar(0x301);
    EXPECT_EQ(q2d(decomposed).length(), 2U);
    EXPECT_EQ(d2q(q2d(decomposed)), decomposed);
}

TEST(TextConversion, KeepsEmptyAndLongTexts) {
    EXPECT_EQ(d2q(q2d(QString())), QString());
    const QString text(1000000, QChar(0x263A));
    EXPECT_EQ(d2q(q2d(text)), text);
}

TEST(ByteConversion, CopiesEveryByteAndTheSize) {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.append(static_cast<char>(i));
    }
    const kxByteArray host = q2d(bytes);
    ASSERT_EQ(host.size(), 256U);
    EXPECT_EQ(d2q(host), bytes);
    EXPECT_EQ(d2q(q2d(QByteArray())).size(), 0);
}

TEST(ListConversion, ConvertsElementByElementInOrder) {
    const QStringList list = {"b", "", QString::fromUtf8("😀"), "a"};
    const kxStringArray host = q2d(list);
    ASSERT_EQ(host.GetCount(), 4U);
    EXPECT_EQ(host.GetAt(2).length(), 1U);
    EXPECT_EQ(d2q(host), list);
    EXPECT_TRUE(d2q(q2d(QStringList())).isEmpty());
}
