// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QWidget>

class QListWidget;
class RecentFiles;

/// What stands in the middle while no drawing is open. Object names: "welcomeOpen",
/// "welcomeRecent".
class WelcomePage : public QWidget {
    Q_OBJECT

public:
    explicit WelcomePage(RecentFiles* recent, QWidget* parent = nullptr);

Q_SIGNALS:
    void openAsked();
    void fileChosen(const QString& path);

private:
    void refresh();

    RecentFiles* m_recent;
    QWidget* m_recentBox;
    QListWidget* m_list;
};
