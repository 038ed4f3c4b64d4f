// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <kx/host/kxHostApplication.h>

#include "Listener.h"

namespace {

const kxString kApp("6f9619ff-8b86-d011-b42d-00cf4fc964ff");
const kxString kOther("7d444840-9dc0-11d1-b245-5ffdce74fad2");

class UserInterfaceTest : public testing::Test {
protected:
    static kxHostCallbacks counting(int* changes) {
        kxHostCallbacks callbacks;
        callbacks.userInterfaceChanged = [changes] { ++*changes; };
        return callbacks;
    }
    kxCommand_ptr makeCommand(const char* name, const kxString& app = kApp) {
        return m_application->CreateCommand(app, name, &m_error);
    }
    std::string commandNames() const {
        std::string names;
        for (const kxString& name : m_application->GetCommandNames()) {
            names += name.toUtf8() + ";";
        }
        return names;
    }
    static kxMenuItem_ptr insert(const kxMenuItem_ptr& menu, long position, const char* name,
                                 const kxString& app = kApp) {
        return menu->InsertMenuItem(app, position, {kxMenuItemType_UserCommand, "UC_1", name});
    }
    static std::string itemNames(const kxMenuItem_ptr& menu) {
        std::string names;
        for (const kxMenuItem_ptr& item : menu->GetMenuItems()) {
            names += item->get_Name().toUtf8();
        }
        return names;
    }

    int m_changes = 0;
    kxHostApplication_ptr m_application = kxCreateHostApplication(counting(&m_changes));
    kxMenuItem_ptr m_tools = m_application->AddMenu(kxUIState_Document, "ID_MnTools", "Tools");
    kxCreateCommandError_e m_error = kxCreateCommandError_NoError;
    Listener m_listener;
};

TEST_F(UserInterfaceTest, aCommandRunsByNameInAnyCase) {
    const kxCommand_ptr command = makeCommand("_Count");
    ASSERT_TRUE(command);
    EXPECT_EQ(m_error, kxCreateCommandError_NoError);
    EXPECT_EQ(command->GetName(), kxString("_Count"));
    command->RegisterEvent(kxCommand_ExecuteNotify_id, &m_listener, Listener::hook);
    for (const char* name : {"_Count", "_COUNT", "_count", "^C_COUNT", "^C^C_Count"}) {
        EXPECT_TRUE(m_application->RunCommand(name)) << name;
    }
    EXPECT_EQ(m_listener.calls, 5);
}

TEST_F(UserInterfaceTest, anUnknownCommandDoesNotRun) {
    makeCommand("_COUNT");
    for (const char* name : {"", "^C", "^C^C", "COUNT", "_COUNT ", "_COUNTER", "_COUNT^C"}) {
        EXPECT_FALSE(m_application->RunCommand(name)) << name;
    }
}

TEST_F(UserInterfaceTest, aCommandThatSaysItWasNotDoneHasRunAllTheSame) {
    makeCommand("_A")->RegisterEvent(kxCommand_ExecuteNotify_id, &m_listener, Listener::hook);
    m_listener.answer = false;
    EXPECT_TRUE(m_application->RunCommand("_A"));
    EXPECT_EQ(m_listener.calls, 1);
}

TEST_F(UserInterfaceTest, anEmptyNameIsRefused) {
    EXPECT_FALSE(makeCommand(""));
    EXPECT_EQ(m_error, kxCreateCommandError_EmptyName);
    EXPECT_EQ(commandNames(), "");
}

TEST_F(UserInterfaceTest, aNameInUseIsRefusedWhateverItsCaseAndOwner) {
    makeCommand("_COUNT");
    const int changes = m_changes;
    EXPECT_FALSE(makeCommand("_count", kOther));
    EXPECT_EQ(m_error, kxCreateCommandError_NameInUse);
    EXPECT_EQ(m_changes, changes);
    EXPECT_TRUE(makeCommand("_COUNT2", kOther));
    EXPECT_EQ(m_error, kxCreateCommandError_NoError);
    EXPECT_EQ(commandNames(), "_COUNT;_COUNT2;");
}

TEST_F(UserInterfaceTest, aCommandsHookIsUnregistered) {
    const kxCommand_ptr command = makeCommand("_A");
    const auto unknown = static_cast<kxCommandEvent_e>(0);
    EXPECT_EQ(command->RegisterEvent(unknown, &m_listener, Listener::hook),
              kxEventResult_UnknownEvent);
    const auto execute = kxCommand_ExecuteNotify_id;
    command->RegisterEvent(execute, &m_listener, Listener::hook);
    EXPECT_EQ(command->RegisterEvent(execute, &m_listener, Listener::hook),
              kxEventResult_AlreadyRegistered);
    EXPECT_EQ(command->UnRegisterEvent(execute, &m_listener), kxEventResult_Success);
    EXPECT_TRUE(m_application->RunCommand("_A"));
    EXPECT_EQ(m_listener.calls, 0);
}

TEST_F(UserInterfaceTest, aCommandMayRemoveItselfWhileItRuns) {
    makeCommand("_A")->RegisterEvent(kxCommand_ExecuteNotify_id, &m_listener, Listener::hook);
    m_listener.action = [this] { EXPECT_TRUE(m_application->RemoveUserInterface(kApp)); };
    EXPECT_TRUE(m_application->RunCommand("_A"));
    EXPECT_FALSE(m_application->RunCommand("_A"));
    EXPECT_EQ(m_listener.calls, 1);
}

TEST_F(UserInterfaceTest, aUserCommandIsFoundByItsOwnId) {
    kxUserCommandData data;
    data.macro = "^C^C_COUNT";
    data.description = "Counts";
    data.smallIcon = "small.svg";
    data.largeIcon = "large.svg";
    const kxUserCommand_ptr first = m_application->CreateUserCommand(kApp, data);
    const kxUserCommand_ptr second = m_application->CreateUserCommand(kApp, {});
    EXPECT_FALSE(first->GetID().empty());
    EXPECT_NE(first->GetID(), second->GetID());
    const kxUserCommand_ptr found = m_application->FindUserCommand(first->GetID());
    ASSERT_TRUE(found == first);
    EXPECT_EQ(found->GetData().macro, data.macro);
    EXPECT_EQ(found->GetData().description, data.description);
    EXPECT_EQ(found->GetData().smallIcon, data.smallIcon);
    EXPECT_EQ(found->GetData().largeIcon, data.largeIcon);
    EXPECT_EQ(found->GetData().state, kxUIState_Document);
    EXPECT_FALSE(m_application->FindUserCommand("no such"));
}

TEST_F(UserInterfaceTest, menusBelongToTheirState) {
    const kxMenuItem_ptr file = m_application->AddMenu(kxUIState_Zero, "ID_MnFile", "File");
    const kxMenuItem_ptr help = m_application->AddMenu(kxUIState_Document, "ID_MnHelp", "Help");
    const std::vector<kxMenuItem_ptr> menus = m_application->GetMenuItems(kxUIState_Document);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_TRUE(menus[0] == m_tools);
    EXPECT_TRUE(menus[1] == help);
    EXPECT_EQ(menus[0]->GetID(), kxString("ID_MnTools"));
    EXPECT_EQ(menus[0]->get_Name(), kxString("Tools"));
    EXPECT_EQ(menus[0]->GetType(), kxMenuItemType_Menu);
    ASSERT_EQ(m_application->GetMenuItems(kxUIState_Zero).size(), 1U);
}

TEST_F(UserInterfaceTest, itemsAreInsertedBeforeTheirPosition) {
    insert(m_tools, 0, "b");
    insert(m_tools, 0, "a");
    insert(m_tools, 2, "d");
    insert(m_tools, 2, "c");
    EXPECT_EQ(itemNames(m_tools), "abcd");
    insert(m_tools, 100, "e");
    insert(m_tools, -5, "0");
    EXPECT_EQ(itemNames(m_tools), "0abcde");
}

TEST_F(UserInterfaceTest, onlyAMenuTakesItems) {
    const kxMenuItem_ptr item = insert(m_tools, 0, "a");
    const kxMenuItem_ptr line =
        m_tools->InsertMenuItem(kApp, 1, {kxMenuItemType_Separator, "", ""});
    EXPECT_FALSE(insert(item, 0, "x"));
    EXPECT_FALSE(insert(line, 0, "x"));
    EXPECT_TRUE(line->get_Name().empty());
    EXPECT_TRUE(item->GetMenuItems().empty());
    const kxMenuItem_ptr sub =
        m_tools->InsertMenuItem(kApp, 2, {kxMenuItemType_Menu, "ID_Sub", "Sub"});
    EXPECT_TRUE(insert(sub, 0, "inner"));
    EXPECT_EQ(itemNames(sub), "inner");
}

TEST_F(UserInterfaceTest, removalTakesAllOfOneAddinAndNothingElse) {
    const kxMenuItem_ptr sub =
        m_tools->InsertMenuItem(kOther, 0, {kxMenuItemType_Menu, "ID_Sub", "Sub"});
    insert(m_tools, 9, "mine");
    insert(m_tools, 9, "theirs", kOther);
    insert(sub, 9, "mineBelow");
    insert(sub, 9, "theirsBelow", kOther);
    makeCommand("_MINE");
    makeCommand("_THEIRS", kOther);
    const kxString mine = m_application->CreateUserCommand(kApp, {})->GetID();
    const kxString theirs = m_application->CreateUserCommand(kOther, {})->GetID();
    EXPECT_TRUE(m_application->RemoveUserInterface(kApp));
    EXPECT_EQ(itemNames(m_tools), "Subtheirs");
    EXPECT_EQ(itemNames(sub), "theirsBelow");
    EXPECT_EQ(commandNames(), "_THEIRS;");
    EXPECT_FALSE(m_application->FindUserCommand(mine));
    EXPECT_TRUE(m_application->FindUserCommand(theirs));
    EXPECT_FALSE(m_application->RemoveUserInterface(kApp));
    EXPECT_EQ(m_application->GetMenuItems(kxUIState_Document).size(), 1U);
}

TEST_F(UserInterfaceTest, removalOfAMenuItemAloneIsFoundToo) {
    insert(m_tools, 0, "a");
    EXPECT_TRUE(m_application->RemoveUserInterface(kApp));
    EXPECT_EQ(itemNames(m_tools), "");
}

TEST_F(UserInterfaceTest, aRemovedNameIsFreeAgainAndRemovedObjectsStayReadable) {
    const kxCommand_ptr command = makeCommand("_A");
    m_application->RemoveUserInterface(kApp);
    EXPECT_EQ(command->GetName(), kxString("_A"));
    EXPECT_EQ(command->GetRefCount(), 1);
    EXPECT_TRUE(makeCommand("_a"));
}

TEST_F(UserInterfaceTest, theHostHearsOfEachChange) {
    EXPECT_EQ(m_changes, 1) << "the menu of the fixture";
    makeCommand("_A");
    EXPECT_EQ(m_changes, 2);
    m_application->CreateUserCommand(kApp, {});
    EXPECT_EQ(m_changes, 3);
    insert(m_tools, 0, "a");
    EXPECT_EQ(m_changes, 4);
    m_application->RemoveUserInterface(kApp);
    EXPECT_EQ(m_changes, 5);
    m_application->RemoveUserInterface(kApp);
    EXPECT_EQ(m_changes, 5);
}

}  // namespace
