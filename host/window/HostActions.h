// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QAction>
#include <QHash>
#include <QObject>
#include <QString>

/// The actions of menus and toolbars. Each runs a command of the command line, by which it is
/// found; its object name is "action" and the command: "actionSELECTALL".
class HostActions : public QObject {
    Q_OBJECT

public:
    /// When actions may be triggered.
    struct State {
        bool hasDrawing = false;
        bool canUndo = false;
        bool canRedo = false;
        bool isPrompting = false;
        bool grid = true;
        bool axes = true;
        bool lightCanvas = false;
    };
    using Run = std::function<void(const QString& command)>;
    using IsAllowedInPrompt = std::function<bool(const QString& command)>;

    HostActions(const Run& run, IsAllowedInPrompt isAllowed, QObject* parent = nullptr);

    /// Null for a command without an action.
    QAction* of(const QString& command) const { return m_actions.value(command); }
    QList<QAction*> all() const { return m_actions.values(); }
    void update(const State& state);

private:
    IsAllowedInPrompt m_isAllowed;
    QHash<QString, QAction*> m_actions;
};
