// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "Application.h"

#include <algorithm>

#include "Document.h"
#include "Pane.h"

namespace {

class CommandMessage final : public kxCommandMessage_c {
public:
    explicit CommandMessage(Application& application) : m_application(application) {}
    void PrintLine(const kxString& line) override { m_application.printLine(line); }
    void PromptForSelection(bool single, const kxString& prompt, const kxString& keyword,
                            bool* result) override {
        *result = m_application.promptForSelection({single, prompt, keyword});
    }

private:
    Application& m_application;
};

class SystemFiles final : public kxSystemFiles_c {
public:
    explicit SystemFiles(const kxString& helpFile) : m_helpFile(helpFile) {}
    kxString get_HelpFile() const override { return m_helpFile; }

private:
    kxString m_helpFile;
};

}  // namespace

Application::Application(kxHostCallbacks callbacks)
    : m_callbacks(std::move(callbacks)),
      m_userInterface([this] {
          if (m_callbacks.userInterfaceChanged) {
              m_callbacks.userInterfaceChanged();
          }
      }),
      m_commandMessage(new CommandMessage(*this)) {}

kxEventResult_e Application::RegisterEvent(kxApplicationEvent_e id, void* owner,
                                           kxNotifyHook hook) {
    switch (id) {
        case kxApplication_FileNewNotify_id:
        case kxApplication_FileOpenPostNotify_id:
        case kxApplication_ActiveDocumentChangedNotify_id:
            return m_events.add(id, owner, hook);
    }
    return kxEventResult_UnknownEvent;
}

kxEventResult_e Application::UnRegisterEvent(kxApplicationEvent_e id, void* owner) {
    return m_events.remove(id, owner);
}

void Application::CreateCustomPropertyControl2(const kxString& title,
                                               kxCustomPropertyControlArea_e area, long flags,
                                               kxCustomPropertyControl_ptr* control) {
    const kxPaneRequest request{title, area, flags};
    const bool hasScreen = static_cast<bool>(m_callbacks.createPane);
    const kxWindowHandle window = hasScreen ? m_callbacks.createPane(request) : 0;
    const bool failed = hasScreen && window == 0;
    *control = failed ? kxCustomPropertyControl_ptr() : new Pane(window, m_callbacks);
}

kxCommand_ptr Application::CreateCommand(const kxString& appID, const kxString& name,
                                         kxCreateCommandError_e* error) {
    return m_userInterface.createCommand(appID, name, error);
}

kxUserCommand_ptr Application::CreateUserCommand(const kxString& appID,
                                                 const kxUserCommandData& data) {
    return m_userInterface.createUserCommand(appID, data);
}

std::vector<kxMenuItem_ptr> Application::GetMenuItems(kxUIState_e state) {
    return m_userInterface.menus(state);
}

bool Application::RemoveUserInterface(const kxString& appID) {
    return m_userInterface.removeAllOf(appID);
}

void Application::OpenWebHelp(const kxString& address) {
    if (m_callbacks.openWebHelp) {
        m_callbacks.openWebHelp(address);
    }
}

kxSystemFiles_ptr Application::GetSystemFiles() {
    return new SystemFiles(m_help.helpFile);
}

void Application::OpenChmHelp(long topic, const kxString& path) {
    if (m_callbacks.openLocalHelp) {
        m_callbacks.openLocalHelp(topic, path);
    }
}

kxHostDocument_ptr Application::AddDocument(const kxString& name, bool fromFile) {
    const kxHostDocument_ptr document(new Document(name));
    m_documents.push_back(document);
    m_events.send(fromFile ? kxApplication_FileOpenPostNotify_id : kxApplication_FileNewNotify_id);
    return document;
}

std::vector<kxHostDocument_ptr>::iterator Application::find(const kxHostDocument_c* document) {
    return std::find_if(m_documents.begin(), m_documents.end(),
                        [&](const auto& open) { return open.get() == document; });
}

bool Application::SetActiveDocument(kxHostDocument_c* document) {
    if (find(document) == m_documents.end()) {
        return false;
    }
    if (m_active.get() != document) {
        m_active = document;
        NotifyActiveDocumentChanged();
    }
    return true;
}

bool Application::CloseDocument(kxHostDocument_c* document) {
    if (find(document) == m_documents.end()) {
        return false;
    }
    const kxHostDocument_ptr closing(document);
    if (!static_cast<Document*>(document)->sendDestroy()) {
        return false;
    }
    // Looked for once more: a hook may have closed other drawings.
    const auto place = m_documents.erase(find(document));
    if (m_active == closing) {
        const bool noneAfter = place == m_documents.end();
        const bool noneLeft = m_documents.empty();
        m_active = noneLeft ? nullptr : (noneAfter ? m_documents.back() : *place);
        NotifyActiveDocumentChanged();
    }
    return true;
}

void Application::NotifyActiveDocumentChanged() {
    m_events.send(kxApplication_ActiveDocumentChangedNotify_id);
}

std::vector<kxString> Application::GetCommandNames() const {
    return m_userInterface.commandNames();
}

kxUserCommand_ptr Application::FindUserCommand(const kxString& id) const {
    return m_userInterface.findUserCommand(id);
}

kxMenuItem_ptr Application::AddMenu(kxUIState_e state, const kxString& id, const kxString& name) {
    return m_userInterface.addMenu(state, id, name);
}

void Application::printLine(const kxString& line) const {
    if (m_callbacks.printLine) {
        m_callbacks.printLine(line);
    }
}

bool Application::promptForSelection(const kxSelectionRequest& request) {
    const kxHostDocument_ptr document = m_active;
    std::vector<kxObject_ptr> chosen;
    if (!document || !m_callbacks.promptForSelection ||
        !m_callbacks.promptForSelection(*document, request, &chosen)) {
        return false;
    }
    document->SetSelection(kxSelectionSetType_Previous, chosen);
    return true;
}

kxHostApplication_ptr kxCreateHostApplication(kxHostCallbacks callbacks) {
    return new Application(std::move(callbacks));
}
