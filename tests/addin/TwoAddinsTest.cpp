// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The add-in beside another one, and beside a copy of itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include <QAbstractButton>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <kx/host/kxAddinLoader.h>

#include "TestHost.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

class TwoAddins : public testing::Test {
protected:
    using Addin = std::unique_ptr<kxLoadedAddin>;

    Addin load(const std::string& file) const {
        auto addin = std::make_unique<kxLoadedAddin>();
        std::string error;
        EXPECT_TRUE(addin->Load(file, host.application(), &error)) << error;
        return addin;
    }
    /// The library once more, as a file of its own.
    std::string copyOfAddin(const char* name) const {
        const QString copy = folder.filePath(QLatin1String(name));
        EXPECT_TRUE(QFile::copy(QLatin1String(ADDIN_FILE), copy));
        return copy.toStdString();
    }

    static QWidget* panelIn(const QWidget* pane) {
        for (QWidget* widget : pane->findChildren<QWidget*>()) {
            if (widget->inherits("GCodeWidget")) {
                return widget;
            }
        }
        ADD_FAILURE() << "no panel";
        return nullptr;
    }
    /// Whether a panel makes a program of what is selected, and only that one does.
    void expectItGenerates(const QWidget* pane) const {
        QSignalSpy programs(panelIn(pane), SIGNAL(GCodeGenFinish(QString)));
        QTest::mouseClick(pane->findChild<QAbstractButton*>("generateGCodeBtn"), Qt::LeftButton);
        ASSERT_EQ(programs.count(), 1);
        EXPECT_TRUE(programs.at(0).at(0).toString().contains("\nG0 X3 Y4 \n"));
    }
    void expectItToggles() const {
        const QWidget* const pane = host.panes().front();
        const bool wasVisible = pane->isVisible();
        EXPECT_TRUE(host.application()->RunCommand("_GCODE"));
        EXPECT_NE(pane->isVisible(), wasVisible);
    }
    void expectItCounts() {
        host.lines.clear();
        EXPECT_TRUE(host.application()->RunCommand("_COUNT"));
        EXPECT_THAT(host.lines, ElementsAre("1 object selected"));
    }
    void selectAPoint() {
        host.open(short{1});
        host.select({pointObject(at(3, 4))});
    }

    QTemporaryDir folder;
    TestHost host;
};

}  // namespace

TEST_F(TwoAddins, BothWorkAndTheFirstOneMayLeaveFirst) {
    Addin first = load(ADDIN_FILE);
    Addin second = load(MINIMAL_ADDIN_FILE);
    EXPECT_THAT(host.commandNames(), UnorderedElementsAre("_GCODE", "_COUNT"));
    selectAPoint();
    expectItGenerates(host.pane());
    expectItToggles();
    expectItCounts();
    first.reset();
    EXPECT_THAT(host.commandNames(), ElementsAre("_COUNT"));
    EXPECT_THAT(host.panes(), IsEmpty());
    expectItCounts();
    host.open(short{0});
    second.reset();
    EXPECT_THAT(host.commandNames(), IsEmpty());
    EXPECT_THAT(host.toolsLabels(), SizeIs(8));
}

TEST_F(TwoAddins, BothWorkAndTheLastOneMayLeaveFirst) {
    Addin first = load(MINIMAL_ADDIN_FILE);
    Addin second = load(ADDIN_FILE);
    selectAPoint();
    expectItCounts();
    expectItGenerates(host.pane());
    first.reset();
    EXPECT_THAT(host.commandNames(), ElementsAre("_GCODE"));
    expectItGenerates(host.pane());
    expectItToggles();
    first = load(MINIMAL_ADDIN_FILE);
    expectItCounts();
    second.reset();
    expectItCounts();
}

TEST_F(TwoAddins, ACopyOfTheLibraryHasAPaneOfItsOwn) {
    for (const bool firstLeavesFirst : {true, false}) {
        Addin first = load(ADDIN_FILE);
        Addin second = load(copyOfAddin(firstLeavesFirst ? "libOne.so" : "libTwo.so"));
        ASSERT_THAT(host.panes(), SizeIs(2));
        // The name of the command is taken: it belongs to the one who came first.
        EXPECT_THAT(host.commandNames(), ElementsAre("_GCODE"));
        selectAPoint();
        expectItGenerates(host.panes()[0]);
        expectItGenerates(host.panes()[1]);
        expectItToggles();
        QWidget* const stays = host.panes()[firstLeavesFirst ? 1 : 0];
        (firstLeavesFirst ? first : second).reset();
        ASSERT_THAT(host.panes(), ElementsAre(stays));
        EXPECT_EQ(host.commandNames().size(), firstLeavesFirst ? 0U : 1U);
        EXPECT_THAT(host.toolsLabels(), SizeIs(10));
        host.open(short{0});
        EXPECT_TRUE(stays->findChild<QAbstractButton*>("inchRadioButton")->isChecked());
        selectAPoint();
        expectItGenerates(stays);
        (firstLeavesFirst ? second : first).reset();
        EXPECT_THAT(host.panes(), IsEmpty());
        EXPECT_THAT(host.toolsLabels(), SizeIs(8));
    }
}

TEST_F(TwoAddins, TheSameLibraryUnderAnotherNameIsRefusedAndTheFirstGoesOn) {
    const Addin first = load(ADDIN_FILE);
    const QString alias = folder.filePath("libAlias.so");
    ASSERT_TRUE(QFile::link(QLatin1String(ADDIN_FILE), alias));
    for (const std::string& file : {std::string(ADDIN_FILE), alias.toStdString()}) {
        kxLoadedAddin second;
        std::string error;
        EXPECT_FALSE(second.Load(file, host.application(), &error)) << file;
        EXPECT_THAT(error, testing::HasSubstr("refused"));
        EXPECT_FALSE(second.IsLoaded());
    }
    ASSERT_THAT(host.panes(), SizeIs(1));
    selectAPoint();
    expectItGenerates(host.pane());
    expectItToggles();
}
