// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <vector>

#include <QObject>
#include <QPointer>

#include <kx/host/kxHostCallbacks.h>

class QDockWidget;
class QMainWindow;

/// The panes of add-ins as docks of the window: 370 wide on the right, each with a scroll area, so
/// that all of a pane is reached at any height. Window handles stay the same when a dock floats.
class AddinPanes : public QObject {
    Q_OBJECT

public:
    static constexpr int kPaneWidth = 370;

    explicit AddinPanes(QMainWindow* window);

    /// Makes a pane, hidden. It comes back where it was when the window's state was restored
    /// before; its dock has the object name "pane " and the title.
    kxWindowHandle create(const kxPaneRequest& request);
    /// Shows a pane, in front of others, or hides it.
    void setVisible(kxWindowHandle pane, bool visible);
    /// Whether neither the user nor an add-in hid the pane; it may lie behind another tab.
    bool isVisible(kxWindowHandle pane) const;
    void destroy(kxWindowHandle pane);
    std::vector<QDockWidget*> docks() const;

Q_SIGNALS:
    /// A pane was made or destroyed.
    void changed();

private:
    struct Pane {
        kxWindowHandle handle = 0;
        QPointer<QDockWidget> dock;
    };

    QDockWidget* dockOf(kxWindowHandle pane) const;
    QString freeName(const QString& title) const;

    QMainWindow* m_window;
    std::vector<Pane> m_panes;
};
