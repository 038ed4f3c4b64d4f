// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QWidget>

class FindBar;
class ManualBrowser;
class QToolBar;

/// The manual, as HTML pages of the program, with Back, Forward, Contents and Find. Pages outside
/// of the manual's folder are not shown; web links go to the browser.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    explicit HelpWindow(const QString& folder, QWidget* parent = nullptr);

    /// Shows a page of the folder, such as "panel.html", and comes to the front. A page that is not
    /// there is said in the window.
    void showPage(const QString& page);

    /// The manual's folder: beside the program's sources, or where it is installed; empty without.
    static QString manualFolder();
    /// The page for a topic number that an add-in asks for; the contents for an unknown one.
    static QString pageOfTopic(long topic);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addNavigation(QToolBar* bar);
    void addKeys();
    void goTo(const QString& page);
    void takeTitle();

    QString m_folder;
    ManualBrowser* m_browser = nullptr;
    FindBar* m_findBar = nullptr;
};
