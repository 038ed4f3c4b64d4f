// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "files/PrintableText.h"

#include <gtest/gtest.h>

#include <string>

using kxfiles::printable;

TEST(PrintableText, LeavesWhatCanBePrintedAsItIs) {
    for (const char* text : {"", "a b.dxf", "a\\n\\x1b", "\"'`$*", "\xC3\xA4\xD0\xB4\xE6\x9D\xBF",
                             "\xF0\x9F\x94\xA9", "\xC2\xA0"}) {
        EXPECT_EQ(printable(text), text);
    }
}

TEST(PrintableText, WritesControlCharactersOut) {
    EXPECT_EQ(printable("a\nb\tc\rd"), "a\\nb\\tc\\rd");
    EXPECT_EQ(printable("\x1b[31m\x7f"), "\\x1b[31m\\x7f");
    EXPECT_EQ(printable(std::string(1, '\0')), "\\x00");
    // Control characters of 8 bits, and other ends of a line.
    EXPECT_EQ(printable("\xC2\x9B"), "\\xc2\\x9b");
    EXPECT_EQ(printable("\xE2\x80\xA8"), "\\xe2\\x80\\xa8");
}

TEST(PrintableText, WritesOutWhatIsNoUtf8) {
    struct Row {
        const char* text;
        const char* shown;
    };
    for (const Row& row : {Row{"a\xFFz", "a\\xffz"}, Row{"\xC3(", "\\xc3("}, Row{"\xC3", "\\xc3"},
                           Row{"\xC3\xC3\xA4", "\\xc3\xC3\xA4"},             // a begun one first
                           Row{"\xC0\x8A", "\\xc0\\x8a"},                    // a long line feed
                           Row{"\xE0\x80\x8A", "\\xe0\\x80\\x8a"},           // a longer one
                           Row{"\xED\xA0\x80", "\\xed\\xa0\\x80"},           // half a pair
                           Row{"\xF4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},  // beyond the last one
                           Row{"\xF0\x9F\x94", "\\xf0\\x9f\\x94"}}) {        // cut short
        EXPECT_EQ(printable(row.text), row.shown);
    }
}

TEST(PrintableText, DoesNotChangeWhatItMade) {
    const std::string once = printable("a\n\xFF\x1b\\n");
    EXPECT_EQ(printable(once), once);
}
