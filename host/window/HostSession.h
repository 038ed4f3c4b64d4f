// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <vector>

#include <QObject>
#include <QString>

#include <kx/host/kxAddinLoader.h>
#include <kx/host/kxHostApplication.h>

class AddinPanes;
class SelectionPrompt;
class WhenIdle;

/// The application's object model with the add-ins in it, joined to what is on the screen.
class HostSession : public QObject {
    Q_OBJECT

public:
    /// All outlive the session.
    struct Parts {
        AddinPanes* panes = nullptr;
        SelectionPrompt* prompt = nullptr;
        WhenIdle* idle = nullptr;
    };

    explicit HostSession(const Parts& parts, QObject* parent = nullptr);
    ~HostSession() override;

    kxHostApplication_c* application() const { return m_application.get(); }
    bool loadAddin(const QString& path, QString* error);
    std::size_t addinCount() const { return m_addins.size(); }
    /// The last one first.
    void unloadAddins();

Q_SIGNALS:
    void printed(const QString& line);
    /// Commands or menus changed; once for many changes, when the code that made them is done.
    void userInterfaceChanged();
    void webHelpAsked(const QString& address);
    void localHelpAsked(long topic);

private:
    kxHostCallbacks callbacks();
    void addPaneCallbacks(kxHostCallbacks* calls);
    bool askForSelection(kxHostDocument_c& document, const kxSelectionRequest& request,
                         std::vector<kxObject_ptr>* chosen);
    void tellUserInterfaceChanged();

    Parts m_parts;
    bool m_isTelling = false;
    kxHostApplication_ptr m_application;
    std::vector<std::unique_ptr<kxLoadedAddin>> m_addins;
};
