// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <kx/kxApplication.h>

/// Hands every call on to another application and notes those that make or remove something.
/// An automatic object holds one reference to itself, so that nobody deletes it.
class RecordingApplication final : public kxApplication_c {
public:
    explicit RecordingApplication(kxApplication_c* target) : m_target(target) { AddRef(); }

    std::vector<std::string> calls;
    bool hasSystemFiles = true;
    /// Makes the pane instead of the other application.
    std::function<kxCustomPropertyControl_ptr(const kxCustomPropertyControl_ptr&)> wrapPane;

    kxEventResult_e RegisterEvent(kxApplicationEvent_e id, void* owner,
                                  kxNotifyHook hook) override {
        calls.push_back("RegisterEvent " + std::to_string(id));
        return m_target->RegisterEvent(id, owner, hook);
    }
    kxEventResult_e UnRegisterEvent(kxApplicationEvent_e id, void* owner) override {
        calls.push_back("UnRegisterEvent " + std::to_string(id));
        return m_target->UnRegisterEvent(id, owner);
    }
    kxDocument_ptr GetActiveDocument() override { return m_target->GetActiveDocument(); }
    kxCommandMessage_ptr GetCommandMessage() override { return m_target->GetCommandMessage(); }
    void CreateCustomPropertyControl2(const kxString& title, kxCustomPropertyControlArea_e area,
                                      long flags, kxCustomPropertyControl_ptr* control) override {
        calls.emplace_back("CreateCustomPropertyControl2");
        m_target->CreateCustomPropertyControl2(title, area, flags, control);
        if (wrapPane) {
            *control = wrapPane(*control);
        }
    }
    kxCommand_ptr CreateCommand(const kxString& appID, const kxString& name,
                                kxCreateCommandError_e* error) override {
        calls.push_back("CreateCommand " + name.toUtf8());
        lastAppID = appID;
        return m_target->CreateCommand(appID, name, error);
    }
    kxUserCommand_ptr CreateUserCommand(const kxString& appID,
                                        const kxUserCommandData& data) override {
        calls.emplace_back("CreateUserCommand");
        return m_target->CreateUserCommand(appID, data);
    }
    std::vector<kxMenuItem_ptr> GetMenuItems(kxUIState_e state) override {
        return m_target->GetMenuItems(state);
    }
    bool RemoveUserInterface(const kxString& appID) override {
        calls.push_back("RemoveUserInterface " + appID.toUtf8());
        return m_target->RemoveUserInterface(appID);
    }
    bool IsWebHelpEnabled() const override { return m_target->IsWebHelpEnabled(); }
    kxString GetWebLink() const override { return m_target->GetWebLink(); }
    long GetLanguage() const override { return m_target->GetLanguage(); }
    void OpenWebHelp(const kxString& address) override { m_target->OpenWebHelp(address); }
    kxSystemFiles_ptr GetSystemFiles() override {
        return hasSystemFiles ? m_target->GetSystemFiles() : kxSystemFiles_ptr();
    }
    void OpenChmHelp(long topic, const kxString& path) override {
        m_target->OpenChmHelp(topic, path);
    }

    kxString lastAppID;

private:
    kxApplication_ptr m_target;
};
