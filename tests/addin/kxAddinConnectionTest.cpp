// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The add-in's library, loaded and driven as a host does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <kx/host/kxAddinLoader.h>

#include "RecordingApplication.h"
#include "TestHost.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class LoadedAddin : public testing::Test {
protected:
    bool load() { return load(host.application()); }
    bool load(kxApplication_c* application) {
        std::string error;
        const bool loaded = addin.Load(ADDIN_FILE, application, &error);
        EXPECT_EQ(error, "");
        return loaded;
    }
    QWidget* panel() const {
        for (QWidget* widget : host.pane()->findChildren<QWidget*>()) {
            if (widget->inherits("GCodeWidget")) {
                return widget;
            }
        }
        return nullptr;
    }
    bool isChecked(const char* name) const {
        return panel()->findChild<QAbstractButton*>(QLatin1String(name))->isChecked();
    }
    std::string lastPreambleLine() const {
        const QString text = panel()->findChild<QTextEdit*>("textEdit")->toPlainText();
        return text.section('\n', -1).toStdString();
    }

    TestHost host;
    kxLoadedAddin addin;
};

class RefusedAddin : public testing::TestWithParam<TestHost::Panes> {};

const char* const kHostItems[] = {"Item 0", "Item 1", "Item 2", "Item 3",
                                  "Item 4", "Item 5", "Item 6", "Item 7"};

/// A pane whose window is none of this process's.
class ForeignPane final : public kxCustomPropertyControl_c {
public:
    explicit ForeignPane(const kxCustomPropertyControl_ptr& pane) : m_pane(pane) {}
    kxWindowHandle GetHWND() const override { return 1; }
    bool get_Visible() const override { return m_pane->get_Visible(); }
    void put_Visible(bool visible) override { m_pane->put_Visible(visible); }
    void Destroy() override { m_pane->Destroy(); }

private:
    kxCustomPropertyControl_ptr m_pane;
};

}  // namespace

TEST_F(LoadedAddin, PaneHasItsTitleAreaAndFlags) {
    ASSERT_TRUE(load());
    ASSERT_THAT(host.paneRequests, SizeIs(1));
    EXPECT_EQ(host.paneRequests[0].title, kxString("G-code Generator"));
    EXPECT_EQ(host.paneRequests[0].area, kxCustomPropertyControlArea_Right);
    EXPECT_EQ(host.paneRequests[0].flags, 3);
}

TEST_F(LoadedAddin, PaneIsAtLeast370WideAndVisible) {
    ASSERT_TRUE(load());
    EXPECT_EQ(host.pane()->minimumWidth(), 370);
    EXPECT_TRUE(host.pane()->isVisible());
}

TEST_F(LoadedAddin, PaneHasANamedLayoutWithMarginsOfOneAndThePanelInIt) {
    ASSERT_TRUE(load());
    const auto* layout = qobject_cast<QVBoxLayout*>(host.pane()->layout());
    ASSERT_NE(layout, nullptr);
    EXPECT_EQ(layout->objectName(), QString("mainverticalLayout"));
    EXPECT_EQ(layout->contentsMargins(), QMargins(1, 1, 1, 1));
    EXPECT_EQ(layout->sizeConstraint(), QLayout::SetMaximumSize);
    ASSERT_EQ(layout->count(), 1);
    EXPECT_EQ(layout->itemAt(0)->widget(), panel());
    EXPECT_TRUE(panel()->isVisible());
}

TEST_F(LoadedAddin, CommandTogglesThePane) {
    ASSERT_TRUE(load());
    EXPECT_THAT(host.commandNames(), ElementsAre("_GCODE"));
    EXPECT_TRUE(host.application()->RunCommand("_GCODE"));
    EXPECT_FALSE(host.pane()->isVisible());
    EXPECT_TRUE(host.application()->RunCommand("_GCODE"));
    EXPECT_TRUE(host.pane()->isVisible());
}

TEST_F(LoadedAddin, CommandShowsAPaneThatTheUserClosed) {
    ASSERT_TRUE(load());
    host.pane()->close();
    host.application()->RunCommand("_GCODE");
    EXPECT_TRUE(host.pane()->isVisible());
}

TEST_F(LoadedAddin, MenuItemStandsAfterASeparatorAtPositionsSixAndSeven) {
    ASSERT_TRUE(load());
    EXPECT_THAT(host.toolsLabels(),
                ElementsAre("Item 0", "Item 1", "Item 2", "Item 3", "Item 4", "Item 5", "-",
                            "2D G-code Generator...", "Item 6", "Item 7"));
    const auto items = host.toolsMenu()->GetMenuItems();
    EXPECT_EQ(items[6]->GetType(), kxMenuItemType_Separator);
    EXPECT_EQ(items[7]->GetType(), kxMenuItemType_UserCommand);
}

TEST_F(LoadedAddin, MenuItemRunsTheUserCommandWithItsMacroTextAndIcons) {
    ASSERT_TRUE(load());
    const auto item = host.toolsMenu()->GetMenuItems().at(7);
    const auto command = host.application()->FindUserCommand(item->GetID());
    ASSERT_TRUE(command);
    const kxUserCommandData data = command->GetData();
    EXPECT_EQ(data.state, kxUIState_Document);
    EXPECT_EQ(data.macro, kxString("^C^C_GCODE"));
    EXPECT_EQ(data.description, kxString("Generate 2D G-code: _GCODE"));
    EXPECT_EQ(data.smallIcon, kxString(":/gcodeaddin/Resource/Generate_32x-32.svg"));
    EXPECT_EQ(data.largeIcon, kxString(":/gcodeaddin/Resource/Generate_32x-32.svg"));
    EXPECT_TRUE(QFile::exists(":/gcodeaddin/Resource/Generate_32x-32.svg"));
    EXPECT_TRUE(host.application()->RunCommand(data.macro));
    EXPECT_FALSE(host.pane()->isVisible());
}

TEST_F(LoadedAddin, OtherMenusAreLeftAlone) {
    ASSERT_TRUE(load());
    EXPECT_THAT(host.application()->GetMenuItems(kxUIState_Document).at(0)->GetMenuItems(),
                IsEmpty());
}

TEST_F(LoadedAddin, DrawingInInchesChecksTheInchButtonAndRewritesThePreamble) {
    ASSERT_TRUE(load());
    host.open(short{0});
    EXPECT_TRUE(isChecked("inchRadioButton"));
    EXPECT_FALSE(isChecked("mmRadioButton"));
    EXPECT_EQ(lastPreambleLine(), "G20    ; Units in inch");
}

TEST_F(LoadedAddin, DrawingInAnyOtherUnitChecksTheMillimetreButton) {
    ASSERT_TRUE(load());
    for (const short unit : {short{1}, short{2}, short{-1}}) {
        host.open(short{0});
        host.open(unit);
        EXPECT_TRUE(isChecked("mmRadioButton")) << unit;
        EXPECT_EQ(lastPreambleLine(), "G21    ; Units in mm") << unit;
    }
}

TEST_F(LoadedAddin, DrawingChangeClearsThePreview) {
    ASSERT_TRUE(load());
    const QSignalSpy programs(panel(), SIGNAL(GCodeGenFinish(QString)));
    ASSERT_TRUE(programs.isValid());
    QTest::mouseClick(panel()->findChild<QAbstractButton*>("generateGCodeBtn"), Qt::LeftButton);
    ASSERT_EQ(programs.count(), 1);
    EXPECT_FALSE(programs.at(0).at(0).toString().isEmpty());
    host.open(short{1});
    ASSERT_EQ(programs.count(), 2);
    EXPECT_EQ(programs.at(1).at(0).toString(), QString());
}

TEST_F(LoadedAddin, DrawingWithoutAUnitChangesNothing) {
    ASSERT_TRUE(load());
    host.open(short{0});
    const QSignalSpy programs(panel(), SIGNAL(GCodeGenFinish(QString)));
    host.open();
    EXPECT_TRUE(isChecked("inchRadioButton"));
    EXPECT_EQ(lastPreambleLine(), "G20    ; Units in inch");
    EXPECT_EQ(programs.count(), 0);
}

TEST_F(LoadedAddin, ClosingTheLastDrawingChangesNothing) {
    ASSERT_TRUE(load());
    const auto drawing = host.open(short{0});
    const QSignalSpy programs(panel(), SIGNAL(GCodeGenFinish(QString)));
    host.application()->CloseDocument(drawing.get());
    EXPECT_TRUE(isChecked("inchRadioButton"));
    EXPECT_EQ(programs.count(), 0);
}

TEST_F(LoadedAddin, ConnectingListensToTheActiveDrawingOnlyAndBuildsThePaneFirst) {
    RecordingApplication application(host.application());
    ASSERT_TRUE(load(&application));
    EXPECT_THAT(application.calls, ElementsAre("RegisterEvent 5", "CreateCustomPropertyControl2",
                                               "CreateCommand _GCODE", "CreateUserCommand"));
    EXPECT_EQ(application.lastAppID.length(), 36U);
    addin.Unload();
}

TEST_F(LoadedAddin, DisconnectingWithoutTrackersUnregistersOnlyTheApplicationsEvent) {
    RecordingApplication application(host.application());
    host.open(short{1});
    ASSERT_TRUE(load(&application));
    application.calls.clear();
    addin.Unload();
    EXPECT_THAT(
        application.calls,
        ElementsAre("RemoveUserInterface " + application.lastAppID.toUtf8(), "UnRegisterEvent 5"));
}

TEST_F(LoadedAddin, DisconnectingRemovesAllThatConnectingMade) {
    ASSERT_TRUE(load());
    addin.Unload();
    EXPECT_THAT(host.commandNames(), IsEmpty());
    EXPECT_THAT(host.toolsLabels(), testing::ElementsAreArray(kHostItems));
    EXPECT_THAT(host.panes(), IsEmpty());
    EXPECT_EQ(host.destroyedPanes, 1);
    host.open(short{0});
    EXPECT_FALSE(host.application()->RunCommand("_GCODE"));
}

TEST_F(LoadedAddin, SecondConnectionWorksLikeTheFirst) {
    ASSERT_TRUE(load());
    addin.Unload();
    ASSERT_TRUE(load());
    EXPECT_THAT(host.commandNames(), ElementsAre("_GCODE"));
    EXPECT_THAT(host.toolsLabels(), SizeIs(10));
    host.open(short{0});
    EXPECT_TRUE(isChecked("inchRadioButton"));
}

TEST_F(LoadedAddin, PanelGeneratesFromTheHostsSelection) {
    ASSERT_TRUE(load());
    host.open(short{1});
    host.select({pointObject(at(3, 4))});
    const QSignalSpy programs(panel(), SIGNAL(GCodeGenFinish(QString)));
    QTest::mouseClick(panel()->findChild<QAbstractButton*>("generateGCodeBtn"), Qt::LeftButton);
    ASSERT_EQ(programs.count(), 1);
    EXPECT_TRUE(programs.at(0).at(0).toString().contains("\nG0 X3 Y4 \n"));
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 1 "));
}

TEST_F(LoadedAddin, DisconnectsAfterTheHostHasTornDownThePanesContent) {
    ASSERT_TRUE(load());
    delete panel();
    host.open(short{0});
    addin.Unload();
    EXPECT_THAT(host.panes(), IsEmpty());
}

TEST_F(LoadedAddin, LoadingTwiceInARowLeavesAnEmptyLog) {
    const QString temporary =
        QStandardPaths::standardLocations(QStandardPaths::TempLocation).first();
    QFile log(temporary + "/GCodeAddin.log");
    // The library stays in the process and would not be loaded again: each time a copy is.
    const QTemporaryDir folder;
    for (const char* name : {"libFirst.so", "libSecond.so"}) {
        const QString copy = folder.filePath(QLatin1String(name));
        ASSERT_TRUE(QFile::copy(QLatin1String(ADDIN_FILE), copy));
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
        log.write("from an earlier run\n");
        log.close();
        std::string error;
        ASSERT_TRUE(addin.Load(copy.toStdString(), host.application(), &error)) << error;
        EXPECT_TRUE(log.exists());
        EXPECT_EQ(log.size(), 0) << name;
        addin.Unload();
        EXPECT_TRUE(log.exists());
        EXPECT_EQ(log.size(), 0) << name;
    }
}

TEST_F(LoadedAddin, RefusesToConnectToAWindowThatIsNotThisProcesss) {
    RecordingApplication application(host.application());
    application.wrapPane = [](const kxCustomPropertyControl_ptr& pane) {
        return kxCustomPropertyControl_ptr(new ForeignPane(pane));
    };
    std::string error;
    EXPECT_FALSE(addin.Load(ADDIN_FILE, &application, &error));
    EXPECT_EQ(host.destroyedPanes, 1);
    host.open(short{0});
}

TEST_P(RefusedAddin, FailsCleanlyWithoutAWindow) {
    TestHost host(GetParam());
    kxLoadedAddin addin;
    std::string error;
    EXPECT_FALSE(addin.Load(ADDIN_FILE, host.application(), &error));
    EXPECT_NE(error, "");
    EXPECT_FALSE(addin.IsLoaded());
    EXPECT_THAT(host.commandNames(), IsEmpty());
    EXPECT_THAT(host.toolsLabels(), testing::ElementsAreArray(kHostItems));
    host.open(short{0});
}

INSTANTIATE_TEST_SUITE_P(Panes, RefusedAddin,
                         testing::Values(TestHost::Panes::withoutWindow, TestHost::Panes::refused),
                         [](const auto& panes) {
                             return panes.param == TestHost::Panes::refused ? "Refused"
                                                                            : "WithoutWindow";
                         });
