// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <kx/host/kxHostApplication.h>

#include "EventTable.h"
#include "UserInterface.h"

/// The application's object model, without a screen of its own.
class Application final : public kxHostApplication_c {
public:
    explicit Application(kxHostCallbacks callbacks);

    kxEventResult_e RegisterEvent(kxApplicationEvent_e id, void* owner, kxNotifyHook hook) override;
    kxEventResult_e UnRegisterEvent(kxApplicationEvent_e id, void* owner) override;
    kxDocument_ptr GetActiveDocument() override { return m_active; }
    kxCommandMessage_ptr GetCommandMessage() override { return m_commandMessage; }
    void CreateCustomPropertyControl2(const kxString& title, kxCustomPropertyControlArea_e area,
                                      long flags, kxCustomPropertyControl_ptr* control) override;
    kxCommand_ptr CreateCommand(const kxString& appID, const kxString& name,
                                kxCreateCommandError_e* error) override;
    kxUserCommand_ptr CreateUserCommand(const kxString& appID,
                                        const kxUserCommandData& data) override;
    std::vector<kxMenuItem_ptr> GetMenuItems(kxUIState_e state) override;
    bool RemoveUserInterface(const kxString& appID) override;
    bool IsWebHelpEnabled() const override { return m_help.webHelp; }
    kxString GetWebLink() const override { return m_help.webLink; }
    long GetLanguage() const override { return m_help.language; }
    void OpenWebHelp(const kxString& address) override;
    kxSystemFiles_ptr GetSystemFiles() override;
    void OpenChmHelp(long topic, const kxString& path) override;

    kxHostDocument_ptr AddDocument(const kxString& name, bool fromFile) override;
    bool SetActiveDocument(kxHostDocument_c* document) override;
    bool CloseDocument(kxHostDocument_c* document) override;
    const std::vector<kxHostDocument_ptr>& GetDocuments() const override { return m_documents; }
    kxHostDocument_ptr GetActiveHostDocument() const override { return m_active; }
    void NotifyActiveDocumentChanged() override;
    bool RunCommand(const kxString& macro) override { return m_userInterface.run(macro); }
    std::vector<kxString> GetCommandNames() const override;
    kxUserCommand_ptr FindUserCommand(const kxString& id) const override;
    kxMenuItem_ptr AddMenu(kxUIState_e state, const kxString& id, const kxString& name) override;
    void SetHelp(const kxHelpSettings& settings) override { m_help = settings; }

    /// Prints to the host's command line, or nowhere.
    void printLine(const kxString& line) const;
    /// Asks the host for a selection in the active drawing; it becomes the previous set.
    bool promptForSelection(const kxSelectionRequest& request);

private:
    std::vector<kxHostDocument_ptr>::iterator find(const kxHostDocument_c* document);

    kxHostCallbacks m_callbacks;
    UserInterface m_userInterface;
    kxCommandMessage_ptr m_commandMessage;
    std::vector<kxHostDocument_ptr> m_documents;
    kxHostDocument_ptr m_active;
    kxHelpSettings m_help;
    EventTable<kxNotifyHook> m_events;
};
