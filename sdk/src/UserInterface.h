// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include <kx/kxApplication.h>

#include "EventTable.h"

/// A command with its listeners.
class Command final : public kxCommand_c {
public:
    Command(const kxString& appID, const kxString& name) : m_appID(appID), m_name(name) {}
    kxString GetName() const override { return m_name; }
    kxEventResult_e RegisterEvent(kxCommandEvent_e id, void* owner, kxNotifyHook hook) override;
    kxEventResult_e UnRegisterEvent(kxCommandEvent_e id, void* owner) override;
    const kxString& appID() const { return m_appID; }
    bool execute() const { return m_events.send(kxCommand_ExecuteNotify_id); }

private:
    kxString m_appID;
    kxString m_name;
    EventTable<kxNotifyHook> m_events;
};

class UserCommand final : public kxUserCommand_c {
public:
    UserCommand(const kxString& appID, const kxString& id, const kxUserCommandData& data)
        : m_appID(appID), m_id(id), m_data(data) {}
    kxString GetID() const override { return m_id; }
    kxUserCommandData GetData() const override { return m_data; }
    const kxString& appID() const { return m_appID; }

private:
    kxString m_appID;
    kxString m_id;
    kxUserCommandData m_data;
};

/// A menu or menu item. `changed` is called after an insertion.
class MenuItem final : public kxMenuItem_c {
public:
    using Changed = std::function<void()>;
    MenuItem(const kxString& appID, const kxMenuItemData& data, Changed changed)
        : m_appID(appID), m_data(data), m_changed(std::move(changed)) {}
    kxString GetID() const override { return m_data.id; }
    kxString get_Name() const override { return m_data.name; }
    kxMenuItemType_e GetType() const override { return m_data.type; }
    std::vector<kxMenuItem_ptr> GetMenuItems() const override;
    kxMenuItem_ptr InsertMenuItem(const kxString& appID, long position,
                                  const kxMenuItemData& data) override;
    /// Removes an add-in's items from this menu and the ones below; true when there were any.
    bool removeItemsOf(const kxString& appID);

private:
    kxString m_appID;
    kxMenuItemData m_data;
    Changed m_changed;
    std::vector<kxInterfacePtr<MenuItem>> m_items;
};

/// The commands, user commands and menus of the application.
class UserInterface {
public:
    /// `changed` is called after each change of any of them.
    explicit UserInterface(std::function<void()> changed) : m_changed(std::move(changed)) {}

    kxCommand_ptr createCommand(const kxString& appID, const kxString& name,
                                kxCreateCommandError_e* error);
    kxUserCommand_ptr createUserCommand(const kxString& appID, const kxUserCommandData& data);
    kxUserCommand_ptr findUserCommand(const kxString& id) const;
    kxMenuItem_ptr addMenu(kxUIState_e state, const kxString& id, const kxString& name);
    std::vector<kxMenuItem_ptr> menus(kxUIState_e state) const;
    std::vector<kxString> commandNames() const;
    /// Runs a command by name or macro; false when there is none.
    bool run(const kxString& macro) const;
    bool removeAllOf(const kxString& appID);

private:
    struct Menu {
        kxUIState_e state;
        kxInterfacePtr<MenuItem> item;
    };

    kxInterfacePtr<Command> findCommand(const kxString& name) const;

    std::function<void()> m_changed;
    std::vector<kxInterfacePtr<Command>> m_commands;
    std::vector<kxInterfacePtr<UserCommand>> m_userCommands;
    std::vector<Menu> m_menus;
    long m_lastUserCommandNumber = 0;
};
