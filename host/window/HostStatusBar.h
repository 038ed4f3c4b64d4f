// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPointF>
#include <QStatusBar>

class QLabel;
class QToolButton;

/// The status bar: hint, selection, unit and cursor. Object names: "statusHint",
/// "statusSelection", "statusUnit", "statusCoordinates".
class HostStatusBar : public QStatusBar {
    Q_OBJECT

public:
    explicit HostStatusBar(QWidget* parent = nullptr);

    void setHint(const QString& hint);
    void setSelection(const QString& text);
    /// The unit's name; empty without a drawing.
    void setUnit(const QString& name);
    /// `scale` is in pixels per drawing unit: so many decimals are shown as pixels tell apart.
    void setCursor(const QPointF& world, double scale);
    void clearCursor();

    static QString coordinateText(const QPointF& world, double scale);

Q_SIGNALS:
    /// 0 inches, 1 millimetres.
    void unitChosen(short unit);

private:
    QLabel* m_hint;
    QLabel* m_selection;
    QToolButton* m_unit;
    QLabel* m_coordinates;
};
