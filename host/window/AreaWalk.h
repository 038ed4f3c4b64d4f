// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>

#include <QList>

class QWidget;

/// Moves the keyboard's focus from one area of the window to the next, each at the control that
/// had it last.
class AreaWalk {
public:
    using Areas = std::function<QList<QWidget*>()>;
    /// `areas`: in the order of the walk; those that are hidden are left out.
    explicit AreaWalk(Areas areas);

    void step(int by) const;

private:
    Areas m_areas;
};
