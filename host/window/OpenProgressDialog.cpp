// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/OpenProgressDialog.h"

#include <cmath>

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "PlainText.h"
#include "window/ShownName.h"

namespace {

constexpr int kWidth = 380;

}  // namespace

OpenProgressDialog::OpenProgressDialog(const QString& path, QWidget* parent)
    : QDialog(parent), m_bar(new QProgressBar) {
    setObjectName(QStringLiteral("openProgress"));
    setWindowTitle(tr("Opening drawing"));
    setWindowModality(Qt::ApplicationModal);
    setFixedWidth(kWidth);
    const QString name = shownName(QFileInfo(path).fileName());
    auto* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(fontMetrics().elidedText(tr("Reading %1").arg(name), Qt::ElideMiddle,
                                            kWidth - 2 * fontMetrics().height()));
    label->setToolTip(plainToolTip(path));
    m_bar->setRange(0, 100);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_bar);
    layout->addWidget(buttons);
}

void OpenProgressDialog::setFraction(double fraction) {
    m_bar->setValue(static_cast<int>(std::floor(fraction * 100)));
}
