// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QScrollArea>

/// Shows a pane at least as wide as it must be, also beside the scroll bar; what does not fit in
/// height is scrolled. There is no horizontal scroll bar.
class PaneScrollArea : public QScrollArea {
    Q_OBJECT

public:
    PaneScrollArea(QWidget* pane, int paneWidth);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    int neededWidth() const;
    bool isViewportLost() const;
    void bringViewportBack();

    int m_paneWidth;
};
