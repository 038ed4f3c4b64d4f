// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/HostStatusBar.h"

#include <algorithm>
#include <cmath>

#include <QLabel>
#include <QMenu>
#include <QToolButton>

namespace {

constexpr int kMaximumDecimals = 8;
constexpr int kCoordinatesWidth = 190;

}  // namespace

HostStatusBar::HostStatusBar(QWidget* parent)
    : QStatusBar(parent),
      m_hint(new QLabel(this)),
      m_selection(new QLabel(this)),
      m_unit(new QToolButton(this)),
      m_coordinates(new QLabel(this)) {
    m_hint->setObjectName("statusHint");
    m_selection->setObjectName("statusSelection");
    m_unit->setObjectName("statusUnit");
    m_coordinates->setObjectName("statusCoordinates");
    m_coordinates->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_coordinates->setMinimumWidth(kCoordinatesWidth);
    // What a prompt says may hold names of a drawing.
    m_hint->setTextFormat(Qt::PlainText);
    m_selection->setTextFormat(Qt::PlainText);
    m_unit->setToolTip(tr("The drawing's unit"));
    m_unit->setPopupMode(QToolButton::InstantPopup);
    m_unit->setAutoRaise(true);
    // Room for the arrow, which some styles draw over the text.
    m_unit->setStyleSheet(
        "QToolButton { padding-right: 14px; }"
        "QToolButton::menu-indicator { subcontrol-position: right center; }");
    auto* menu = new QMenu(m_unit);
    connect(menu->addAction(tr("Millimetres (&mm)")), &QAction::triggered, this,
            [this] { Q_EMIT unitChosen(1); });
    connect(menu->addAction(tr("Inches (&inch)")), &QAction::triggered, this,
            [this] { Q_EMIT unitChosen(0); });
    m_unit->setMenu(menu);
    addWidget(m_hint, 1);
    addPermanentWidget(m_selection);
    addPermanentWidget(m_unit);
    addPermanentWidget(m_coordinates);
    setUnit(QString());
}

void HostStatusBar::setHint(const QString& hint) {
    m_hint->setText(hint);
}

void HostStatusBar::setSelection(const QString& text) {
    m_selection->setText(text);
}

void HostStatusBar::setUnit(const QString& name) {
    m_unit->setText(name);
    m_unit->setVisible(!name.isEmpty());
}

void HostStatusBar::setCursor(const QPointF& world, double scale) {
    m_coordinates->setText(coordinateText(world, scale));
}

void HostStatusBar::clearCursor() {
    m_coordinates->clear();
}

QString HostStatusBar::coordinateText(const QPointF& world, double scale) {
    const int decimals =
        std::clamp(static_cast<int>(std::ceil(std::log10(scale))) + 1, 0, kMaximumDecimals);
    return QString::number(world.x(), 'f', decimals) + ", " +
           QString::number(world.y(), 'f', decimals);
}
