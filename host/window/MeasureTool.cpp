// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/MeasureTool.h"

#include <cmath>
#include <utility>

#include "view/DrawingView.h"
#include "window/DrawingTab.h"
#include "window/ObjectText.h"

namespace {

constexpr double kDegreesPerRadian = 180.0 / 3.14159265358979323846;

}  // namespace

MeasureTool::MeasureTool(Say say, QObject* parent) : QObject(parent), m_say(std::move(say)) {}

void MeasureTool::attach(DrawingTab* tab) {
    connect(tab->view(), &DrawingView::pointGiven, this, [this, tab](const QPointF& point) {
        if (tab == m_tab) {
            take(point);
        }
    });
}

void MeasureTool::start(DrawingTab* tab) {
    m_tab = tab;
    m_points.clear();
    m_say(tr("Give two points in the drawing (Esc cancels)."));
    tab->view()->startPoints(2);
    tab->view()->setFocus();
}

void MeasureTool::take(const QPointF& point) {
    m_points.push_back(point);
    if (m_points.size() == 1) {
        m_say(tr("From %1, %2").arg(numberText(point.x()), numberText(point.y())));
        return;
    }
    m_say(tr("To %1, %2").arg(numberText(point.x()), numberText(point.y())));
    m_say(resultText(m_points[0], m_points[1]));
    m_points.clear();
}

QString MeasureTool::resultText(const QPointF& first, const QPointF& second) {
    const double dx = second.x() - first.x();
    const double dy = second.y() - first.y();
    return tr("Distance %1, dX %2, dY %3, angle %4 degrees")
        .arg(numberText(std::hypot(dx, dy)), numberText(dx), numberText(dy),
             numberText(std::atan2(dy, dx) * kDegreesPerRadian));
}
