// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "TestHost.h"

#include <algorithm>

TestHost::TestHost(Panes panes) : m_application(kxCreateHostApplication(callbacks(panes))) {
    application()->AddMenu(kxUIState_Document, kxString("ID_MnFile"), kxString("File"));
    const kxMenuItem_ptr tools =
        application()->AddMenu(kxUIState_Document, kxString("ID_MnTools"), kxString("Tools"));
    for (int i = 0; i < 8; ++i) {
        const std::string number = std::to_string(i);
        tools->InsertMenuItem(
            kxString(), i,
            {kxMenuItemType_UserCommand, kxString("HOST_" + number), kxString("Item " + number)});
    }
}

TestHost::~TestHost() = default;

kxHostCallbacks TestHost::callbacks(Panes panes) {
    kxHostCallbacks callbacks;
    callbacks.printLine = [this](const kxString& line) { lines.push_back(line.toUtf8()); };
    callbacks.promptForSelection = [this](kxHostDocument_c& document,
                                          const kxSelectionRequest& request,
                                          std::vector<kxObject_ptr>* chosen) {
        prompts.push_back(request);
        return answer && answer(document, chosen);
    };
    callbacks.openWebHelp = [this](const kxString& page) { webHelp.push_back(page.toUtf8()); };
    callbacks.openLocalHelp = [this](long topic, const kxString& path) {
        localHelp.emplace_back(topic, path.toUtf8());
    };
    if (panes != Panes::withoutWindow) {
        addPaneCallbacks(&callbacks, panes);
    }
    return callbacks;
}

void TestHost::addPaneCallbacks(kxHostCallbacks* callbacks, Panes panes) {
    callbacks->createPane = [this, panes](const kxPaneRequest& request) {
        paneRequests.push_back(request);
        if (panes == Panes::refused) {
            return kxWindowHandle{0};
        }
        m_panes.push_back(std::make_unique<QWidget>());
        m_panes.back()->resize(400, 900);
        return static_cast<kxWindowHandle>(m_panes.back()->winId());
    };
    callbacks->setPaneVisible = [this](kxWindowHandle window, bool visible) {
        if (QWidget* pane = paneOf(window)) {
            pane->setVisible(visible);
        }
    };
    callbacks->isPaneVisible = [this](kxWindowHandle window) {
        const QWidget* pane = paneOf(window);
        return pane != nullptr && pane->isVisible();
    };
    callbacks->destroyPane = [this](kxWindowHandle window) {
        const QWidget* pane = paneOf(window);
        const auto gone = std::find_if(m_panes.begin(), m_panes.end(),
                                       [&](const auto& each) { return each.get() == pane; });
        if (gone != m_panes.end()) {
            m_panes.erase(gone);
            ++destroyedPanes;
        }
    };
}

QWidget* TestHost::paneOf(kxWindowHandle window) const {
    const auto found = std::find_if(m_panes.begin(), m_panes.end(), [&](const auto& each) {
        return static_cast<kxWindowHandle>(each->winId()) == window;
    });
    return found == m_panes.end() ? nullptr : found->get();
}

kxHostDocument_ptr TestHost::open(std::optional<short> unit) {
    const kxHostDocument_ptr document =
        application()->AddDocument(kxString("Drawing"), /*fromFile=*/false);
    if (unit) {
        document->SetCommandOptionInt16(kxCommandOptionInt16_SetUntTyp, *unit);
    }
    application()->SetActiveDocument(document.get());
    return document;
}

void TestHost::add(const std::vector<kxObject_ptr>& objects) {
    const kxHostDocument_ptr document = application()->GetActiveHostDocument();
    std::vector<kxObject_ptr> all = document->GetObjects();
    all.insert(all.end(), objects.begin(), objects.end());
    document->SetObjects(std::move(all));
}

void TestHost::select(const std::vector<kxObject_ptr>& objects) {
    add(objects);
    application()->GetActiveHostDocument()->SetSelection(kxSelectionSetType_Current, objects);
}

void TestHost::setPrevious(const std::vector<kxObject_ptr>& objects) {
    add(objects);
    application()->GetActiveHostDocument()->SetSelection(kxSelectionSetType_Previous, objects);
}

kxMenuItem_ptr TestHost::toolsMenu() const {
    return application()->GetMenuItems(kxUIState_Document).at(1);
}

std::vector<std::string> TestHost::toolsLabels() const {
    std::vector<std::string> labels;
    for (const kxMenuItem_ptr& item : toolsMenu()->GetMenuItems()) {
        const bool isSeparator = item->GetType() == kxMenuItemType_Separator;
        labels.push_back(isSeparator ? "-" : item->get_Name().toUtf8());
    }
    return labels;
}

std::vector<std::string> TestHost::commandNames() const {
    std::vector<std::string> names;
    for (const kxString& name : application()->GetCommandNames()) {
        names.push_back(name.toUtf8());
    }
    return names;
}

std::vector<QWidget*> TestHost::panes() const {
    std::vector<QWidget*> all;
    for (const auto& pane : m_panes) {
        all.push_back(pane.get());
    }
    return all;
}

QWidget* TestHost::pane() const {
    return m_panes.size() == 1 ? m_panes.front().get() : nullptr;
}
