// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QDockWidget>
#include <QPointer>

class DrawingTab;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The layers of the drawing in front, with check boxes for those that are shown.
/// Object names: "layersTable", "layersAllOn", "layersAllOff".
class LayersDock : public QDockWidget {
    Q_OBJECT

public:
    explicit LayersDock(QWidget* parent = nullptr);

    void setTab(DrawingTab* tab);

private:
    void refresh();
    void setLayer(int row, bool visible);
    void setAll(bool visible);

    QPointer<DrawingTab> m_tab;
    QTreeWidget* m_table;
    QPushButton* m_allOn;
    QPushButton* m_allOff;
    bool m_isFilling = false;
};
