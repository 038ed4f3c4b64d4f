// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckFields.h"

#include <algorithm>

#include <QAction>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

#include "findings/CheckOptions.h"
#include "interpreter/ToolText.h"

namespace {

constexpr double kMostLength = 1e6;
/// Room for a number as they are in programs.
constexpr int kLeastWidth = 80;

QDoubleSpinBox* lengthBox(const char* name, double value, double least, int decimals) {
    auto* box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setDecimals(decimals);
    box->setRange(least, kMostLength);
    box->setMinimumWidth(kLeastWidth);
    box->setSingleStep(least < 0 ? 1 : 0.01);
    box->setValue(value);
    return box;
}

bool isSame(const gcode_check::Tool& a, const gcode_check::Tool& b) {
    return a.number == b.number && a.diameterMm == b.diameterMm;
}

bool isSame(const CheckValues& a, const CheckValues& b) {
    const bool areTools =
        std::equal(a.tools.begin(), a.tools.end(), b.tools.begin(), b.tools.end(),
                   [](const auto& one, const auto& other) { return isSame(one, other); });
    return areTools && a.surface == b.surface && a.depth == b.depth && a.tolerance == b.tolerance;
}

}  // namespace

CheckFields::CheckFields(QWidget* parent)
    : QWidget(parent),
      m_surface(lengthBox("checkSurface", 0, -kMostLength, 3)),
      m_isDepthMeant(new QCheckBox(tr("&Depth Z:"))),
      m_depth(lengthBox("checkDepth", -1, -kMostLength, 3)),
      m_tolerance(lengthBox("checkTolerance", gcode_check::CheckOptions().tolerance, 0.0001, 4)),
      m_tools(new QLineEdit),
      m_toolsError(new QLabel),
      m_grid(new QGridLayout(this)) {
    m_surface->setToolTip(tr("Where the top of the material lies, in program coordinates"));
    m_tolerance->setToolTip(tr("How far from an object a cut may lie"));
    m_depth->setToolTip(tr("No cut may be deeper, and one must be as deep"));
    m_depth->setEnabled(false);
    m_isDepthMeant->setObjectName("checkIsDepthMeant");
    m_isDepthMeant->setToolTip(tr("Whether the depth is checked"));
    createTools();
    createGrid();
    connect(m_isDepthMeant, &QCheckBox::toggled, m_depth, &QWidget::setEnabled);
    connect(m_isDepthMeant, &QCheckBox::toggled, this, &CheckFields::judge);
    for (const QDoubleSpinBox* box : {m_surface, m_depth, m_tolerance}) {
        connect(box, &QDoubleSpinBox::editingFinished, this, &CheckFields::judge);
    }
    connect(m_tools, &QLineEdit::editingFinished, this, &CheckFields::judge);
    accept();
}

void CheckFields::createTools() {
    m_tools->setObjectName("checkTools");
    m_tools->setPlaceholderText(tr("3=6, 7=12"));
    m_tools->setMinimumWidth(kLeastWidth);
    m_tools->setToolTip(tr(
        "The diameters of tools for G41 and G42: 3=6, 7=12.5 is tool 3 with 6 mm and tool 7 with "
        "12.5 mm; inches are 3=0.25in"));
    m_toolsError->setObjectName("checkToolsError");
    m_toolsError->setTextFormat(Qt::PlainText);
    m_toolsError->setWordWrap(true);
    m_toolsError->hide();
    m_wrong = m_tools->addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning),
                                 QLineEdit::TrailingPosition);
    m_wrong->setVisible(false);
}

void CheckFields::createGrid() {
    const auto labelFor = [](const QString& text, QWidget* field) {
        auto* label = new QLabel(text);
        label->setBuddy(field);
        return label;
    };
    m_rows = {{labelFor(tr("&Surface Z:"), m_surface), m_surface},
              {m_isDepthMeant, m_depth},
              {labelFor(tr("&Tolerance:"), m_tolerance), m_tolerance},
              {labelFor(tr("Too&ls:"), m_tools), m_tools}};
    m_grid->setContentsMargins(0, 0, 0, 0);
    // The width is the dock's affair; see minimumSizeHint.
    m_grid->setSizeConstraint(QLayout::SetNoConstraint);
    arrange(1);
    m_leastWidth = m_grid->minimumSize().width();
    arrange(2);
    m_wideWidth = m_grid->minimumSize().width();
}

void CheckFields::arrange(int columns) {
    if (columns == m_columns) {
        return;
    }
    m_columns = columns;
    while (m_grid->count() > 0) {
        delete m_grid->takeAt(0);
    }
    for (int i = 0; i < static_cast<int>(m_rows.size()); ++i) {
        const auto& [label, field] = m_rows[static_cast<std::size_t>(i)];
        m_grid->addWidget(label, i / columns, i % columns * 2);
        m_grid->addWidget(field, i / columns, i % columns * 2 + 1);
    }
    m_grid->addWidget(m_toolsError, static_cast<int>(m_rows.size()), 0, 1, 2 * columns);
    m_grid->setColumnStretch(1, 1);
    m_grid->setColumnStretch(3, columns - 1);
}

QSize CheckFields::minimumSizeHint() const {
    return {m_leastWidth, m_grid->minimumSize().height()};
}

void CheckFields::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange(width() >= m_wideWidth ? 2 : 1);
}

CheckValues CheckFields::values() const {
    CheckValues values;
    values.surface = m_surface->value();
    values.tolerance = m_tolerance->value();
    if (m_isDepthMeant->isChecked()) {
        values.depth = m_depth->value();
    }
    values.tools = gcode_check::toolsIn(m_tools->text().toStdString()).tools;
    return values;
}

QString CheckFields::error() const {
    return QString::fromStdString(gcode_check::toolsIn(m_tools->text().toStdString()).error);
}

void CheckFields::focusError() {
    m_tools->setFocus();
    m_tools->selectAll();
}

void CheckFields::accept() {
    m_accepted = values();
}

void CheckFields::judge() {
    const QString fault = error();
    m_toolsError->setText(fault);
    m_toolsError->setVisible(!fault.isEmpty());
    m_wrong->setVisible(!fault.isEmpty());
    if (fault.isEmpty() && !isSame(values(), m_accepted)) {
        Q_EMIT entered();
    }
}
