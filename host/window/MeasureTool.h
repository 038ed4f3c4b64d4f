// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <vector>

#include <QObject>
#include <QPointF>
#include <QString>

class DrawingTab;

/// Measures between two points that the user gives in a drawing.
class MeasureTool : public QObject {
    Q_OBJECT

public:
    using Say = std::function<void(const QString&)>;
    explicit MeasureTool(Say say, QObject* parent = nullptr);

    void attach(DrawingTab* tab);
    void start(DrawingTab* tab);
    /// "Distance 5, dX 3, dY 4, angle 53.13010235 degrees".
    static QString resultText(const QPointF& first, const QPointF& second);

private:
    void take(const QPointF& point);

    Say m_say;
    DrawingTab* m_tab = nullptr;
    std::vector<QPointF> m_points;
};
