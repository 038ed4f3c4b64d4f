// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "UserInterface.h"

#include <algorithm>
#include <cwctype>
#include <string>

namespace {

/// Command names are told apart without regard to the case of ASCII letters.
std::wstring folded(const kxString& name) {
    std::wstring text(name.c_str(), name.length());
    for (wchar_t& character : text) {
        if (character >= L'a' && character <= L'z') {
            character = character - L'a' + L'A';
        }
    }
    return text;
}

/// The command's name in a macro such as "^C^C_NAME".
kxString withoutCancels(const kxString& macro) {
    std::wstring text(macro.c_str(), macro.length());
    while (text.compare(0, 2, L"^C") == 0) {
        text.erase(0, 2);
    }
    return {text.c_str(), text.size()};
}

template <class Items>
bool eraseOf(Items& items, const kxString& appID) {
    const auto kept = std::remove_if(items.begin(), items.end(),
                                     [&](const auto& item) { return item->appID() == appID; });
    const bool any = kept != items.end();
    items.erase(kept, items.end());
    return any;
}

}  // namespace

kxEventResult_e Command::RegisterEvent(kxCommandEvent_e id, void* owner, kxNotifyHook hook) {
    return id == kxCommand_ExecuteNotify_id ? m_events.add(id, owner, hook)
                                            : kxEventResult_UnknownEvent;
}

kxEventResult_e Command::UnRegisterEvent(kxCommandEvent_e id, void* owner) {
    return m_events.remove(id, owner);
}

std::vector<kxMenuItem_ptr> MenuItem::GetMenuItems() const {
    return {m_items.begin(), m_items.end()};
}

kxMenuItem_ptr MenuItem::InsertMenuItem(const kxString& appID, long position,
                                        const kxMenuItemData& data) {
    if (m_data.type != kxMenuItemType_Menu) {
        return nullptr;
    }
    const long count = static_cast<long>(m_items.size());
    const long index = std::min(std::max(position, 0L), count);
    const kxInterfacePtr<MenuItem> item(new MenuItem(appID, data, m_changed));
    m_items.insert(m_items.begin() + index, item);
    m_changed();
    return item;
}

bool MenuItem::removeItemsOf(const kxString& appID) {
    const auto kept = std::remove_if(m_items.begin(), m_items.end(),
                                     [&](const auto& item) { return item->m_appID == appID; });
    bool any = kept != m_items.end();
    m_items.erase(kept, m_items.end());
    for (const auto& item : m_items) {
        any = item->removeItemsOf(appID) || any;
    }
    return any;
}

kxCommand_ptr UserInterface::createCommand(const kxString& appID, const kxString& name,
                                           kxCreateCommandError_e* error) {
    *error = kxCreateCommandError_NoError;
    if (name.empty()) {
        *error = kxCreateCommandError_EmptyName;
    } else if (findCommand(name)) {
        *error = kxCreateCommandError_NameInUse;
    }
    if (*error != kxCreateCommandError_NoError) {
        return nullptr;
    }
    m_commands.emplace_back(new Command(appID, name));
    const kxCommand_ptr created = m_commands.back();
    m_changed();
    return created;
}

kxUserCommand_ptr UserInterface::createUserCommand(const kxString& appID,
                                                   const kxUserCommandData& data) {
    const kxString id("UC_" + std::to_string(++m_lastUserCommandNumber));
    m_userCommands.emplace_back(new UserCommand(appID, id, data));
    const kxUserCommand_ptr created = m_userCommands.back();
    m_changed();
    return created;
}

kxUserCommand_ptr UserInterface::findUserCommand(const kxString& id) const {
    const auto found = std::find_if(m_userCommands.begin(), m_userCommands.end(),
                                    [&](const auto& command) { return command->GetID() == id; });
    return found == m_userCommands.end() ? kxUserCommand_ptr() : kxUserCommand_ptr(*found);
}

kxMenuItem_ptr UserInterface::addMenu(kxUIState_e state, const kxString& id, const kxString& name) {
    const kxMenuItemData data{kxMenuItemType_Menu, id, name};
    m_menus.push_back({state, new MenuItem(kxString(), data, m_changed)});
    const kxMenuItem_ptr created = m_menus.back().item;
    m_changed();
    return created;
}

std::vector<kxMenuItem_ptr> UserInterface::menus(kxUIState_e state) const {
    std::vector<kxMenuItem_ptr> found;
    for (const Menu& menu : m_menus) {
        if (menu.state == state) {
            found.emplace_back(menu.item);
        }
    }
    return found;
}

std::vector<kxString> UserInterface::commandNames() const {
    std::vector<kxString> names;
    for (const auto& command : m_commands) {
        names.push_back(command->GetName());
    }
    return names;
}

kxInterfacePtr<Command> UserInterface::findCommand(const kxString& name) const {
    const std::wstring wanted = folded(name);
    const auto found = std::find_if(m_commands.begin(), m_commands.end(), [&](const auto& command) {
        return folded(command->GetName()) == wanted;
    });
    return found == m_commands.end() ? nullptr : *found;
}

bool UserInterface::run(const kxString& macro) const {
    const kxInterfacePtr<Command> command = findCommand(withoutCancels(macro));
    if (!command) {
        return false;
    }
    command->execute();
    return true;
}

bool UserInterface::removeAllOf(const kxString& appID) {
    bool any = eraseOf(m_commands, appID);
    any = eraseOf(m_userCommands, appID) || any;
    for (const Menu& menu : m_menus) {
        any = menu.item->removeItemsOf(appID) || any;
    }
    if (any) {
        m_changed();
    }
    return any;
}
