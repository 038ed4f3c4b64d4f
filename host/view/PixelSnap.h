// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QPointF>

/// Moves the middle of a line along an axis to where its width covers whole pixels.
class PixelSnap {
public:
    /// `shift`: where the pixels of the device begin; `width`: in device pixels.
    PixelSnap(const QPointF& shift, double width);

    double x(double at) const { return snapped(at, m_shift.x()); }
    double y(double at) const { return snapped(at, m_shift.y()); }

private:
    double snapped(double at, double shift) const;

    QPointF m_shift;
    bool m_odd;
};
