// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <QTextEdit>

#include "RecordingApplication.h"
#include "core/PanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

kxHelpSettings helpSettings(bool web) {
    kxHelpSettings settings;
    settings.webHelp = web;
    settings.webLink = "http://help.example/";
    settings.language = 13;
    settings.helpFile = "/opt/help/Kestrix.chm";
    return settings;
}

}  // namespace

TEST_F(PanelTest, HelpOpensTheWebWhenItIsEnabled) {
    host.application()->SetHelp(helpSettings(true));
    click("HelpPushButton");
    EXPECT_THAT(host.webHelp,
                ElementsAre("http://help.example/?P=16&L=Korean&V=2019&C=KestrixQM&I=2250"));
    EXPECT_THAT(host.localHelp, IsEmpty());
}

TEST_F(PanelTest, HelpHasAnEmptyLanguageForALanguageNotInTheTable) {
    kxHelpSettings settings = helpSettings(true);
    settings.language = 4;
    host.application()->SetHelp(settings);
    click("HelpPushButton");
    EXPECT_THAT(host.webHelp,
                ElementsAre("http://help.example/?P=16&L=&V=2019&C=KestrixQM&I=2250"));
}

TEST_F(PanelTest, HelpOpensTheLocalFileOtherwise) {
    host.application()->SetHelp(helpSettings(false));
    click("HelpPushButton");
    EXPECT_THAT(host.localHelp, ElementsAre(Pair(2250, "/opt/help/KestrixQM.chm")));
    EXPECT_THAT(host.webHelp, IsEmpty());
}

TEST_F(PanelTest, HelpPassesAnEmptyPathOnWhenTheHostHasNoHelpFile) {
    kxHelpSettings settings = helpSettings(false);
    settings.helpFile = kxString();
    host.application()->SetHelp(settings);
    click("HelpPushButton");
    EXPECT_THAT(host.localHelp, ElementsAre(Pair(2250, "")));
}

TEST(PanelHelp, PassesAnEmptyPathOnWithoutASystemFilesObject) {
    TestHost host;
    RecordingApplication application(host.application());
    application.hasSystemFiles = false;
    host.application()->SetHelp(helpSettings(false));
    QWidget parent;
    GCodeWidget panel(&application, &parent);
    panel.OpenHelp();
    EXPECT_THAT(host.localHelp, ElementsAre(Pair(2250, "")));
}

TEST(PanelHelp, DoesNothingWithoutAnApplication) {
    QWidget parent;
    GCodeWidget panel(nullptr, &parent);
    panel.OpenHelp();
}
