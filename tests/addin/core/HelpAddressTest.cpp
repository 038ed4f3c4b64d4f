// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/HelpAddress.h"

#include <gtest/gtest.h>

#include <map>

TEST(HelpLanguage, HasANameForTheKnownNumbersAndNoneForAllOthers) {
    const std::map<long, std::string> names = {{1, "German"},
                                               {2, "English"},
                                               {3, "Turkish"},
                                               {5, "Polish"},
                                               {6, "Japanese"},
                                               {7, "French"},
                                               {8, "Chinese"},
                                               {9, "Chinese-simplified"},
                                               {10, "Italian"},
                                               {11, "Spanish"},
                                               {13, "Korean"},
                                               {18, "Russian"},
                                               {19, "Portuguese-brazilian"},
                                               {20, "Czech"}};
    for (long number = -1; number <= 30; ++number) {
        const auto known = names.find(number);
        EXPECT_EQ(helpLanguageName(number).toStdString(), known == names.end() ? "" : known->second)
            << number;
    }
}

TEST(WebHelpAddress, IsTheLinkFollowedByTheQuery) {
    EXPECT_EQ(webHelpAddress("http://help.example/", 1).toStdString(),
              "http://help.example/?P=16&L=German&V=2019&C=KestrixQM&I=2250");
}

TEST(WebHelpAddress, HasAnEmptyLanguageForALanguageNotInTheTable) {
    EXPECT_EQ(webHelpAddress("link", 4).toStdString(), "link?P=16&L=&V=2019&C=KestrixQM&I=2250");
}

TEST(WebHelpAddress, TakesTheLinkAsItIs) {
    EXPECT_EQ(webHelpAddress("a%1b%20", 2).toStdString(),
              "a%1b%20?P=16&L=English&V=2019&C=KestrixQM&I=2250");
}

TEST(LocalHelpFile, LiesBesideTheHostsOwn) {
    EXPECT_EQ(localHelpFile("/opt/help/Kestrix.chm").toStdString(), "/opt/help/KestrixQM.chm");
}

TEST(LocalHelpFile, StaysAsItIsWithoutTheHostsFileName) {
    EXPECT_EQ(localHelpFile("").toStdString(), "");
    EXPECT_EQ(localHelpFile("/opt/help/other.chm").toStdString(), "/opt/help/other.chm");
    EXPECT_EQ(localHelpFile("/opt/help/kestrix.chm").toStdString(), "/opt/help/kestrix.chm");
}
