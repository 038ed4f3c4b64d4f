// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostSession.h"

#include <optional>
#include <utility>

#include <QTimer>

#include "KxText.h"
#include "commandline/SelectionPrompt.h"
#include "window/AddinPanes.h"
#include "window/WhenIdle.h"

HostSession::HostSession(const Parts& parts, QObject* parent)
    : QObject(parent), m_parts(parts), m_application(kxCreateHostApplication(callbacks())) {}

HostSession::~HostSession() {
    unloadAddins();
}

bool HostSession::loadAddin(const QString& path, QString* error) {
    auto addin = std::make_unique<kxLoadedAddin>();
    std::string cause;
    if (!addin->Load(path.toStdString(), m_application.get(), &cause)) {
        *error = QString::fromStdString(cause);
        return false;
    }
    m_addins.push_back(std::move(addin));
    return true;
}

void HostSession::unloadAddins() {
    while (!m_addins.empty()) {
        m_addins.pop_back();
    }
}

kxHostCallbacks HostSession::callbacks() {
    kxHostCallbacks calls;
    addPaneCallbacks(&calls);
    calls.printLine = [this](const kxString& line) { Q_EMIT printed(toQString(line)); };
    calls.promptForSelection = [this](kxHostDocument_c& document, const kxSelectionRequest& request,
                                      std::vector<kxObject_ptr>* chosen) {
        return askForSelection(document, request, chosen);
    };
    calls.userInterfaceChanged = [this] { tellUserInterfaceChanged(); };
    calls.openWebHelp = [this](const kxString& address) {
        Q_EMIT webHelpAsked(toQString(address));
    };
    calls.openLocalHelp = [this](long topic, const kxString&) { Q_EMIT localHelpAsked(topic); };
    return calls;
}

void HostSession::addPaneCallbacks(kxHostCallbacks* calls) {
    AddinPanes* panes = m_parts.panes;
    calls->createPane = [panes](const kxPaneRequest& request) { return panes->create(request); };
    calls->setPaneVisible = [panes](kxWindowHandle pane, bool visible) {
        panes->setVisible(pane, visible);
    };
    calls->isPaneVisible = [panes](kxWindowHandle pane) { return panes->isVisible(pane); };
    calls->destroyPane = [panes](kxWindowHandle pane) { panes->destroy(pane); };
}

bool HostSession::askForSelection(kxHostDocument_c& document, const kxSelectionRequest& request,
                                  std::vector<kxObject_ptr>* chosen) {
    if (m_parts.prompt->isActive()) {
        return false;
    }
    const WhenIdle::Busy busy(m_parts.idle);
    std::optional<std::vector<kxObject_ptr>> answer =
        m_parts.prompt->run(kxHostDocument_ptr(&document), request);
    if (answer) {
        *chosen = std::move(*answer);
    }
    return answer.has_value();
}

void HostSession::tellUserInterfaceChanged() {
    if (std::exchange(m_isTelling, true)) {
        return;
    }
    QTimer::singleShot(0, this, [this] {
        m_isTelling = false;
        Q_EMIT userInterfaceChanged();
    });
}
