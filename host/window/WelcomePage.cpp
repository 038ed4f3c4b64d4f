// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/WelcomePage.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "PlainText.h"
#include "window/RecentFiles.h"
#include "window/ShownName.h"

namespace {

constexpr int kWidth = 420;
constexpr int kListHeight = 190;

QLabel* label(const QString& text, double scale, QWidget* parent) {
    auto* created = new QLabel(text, parent);
    QFont font = created->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    created->setFont(font);
    created->setWordWrap(true);
    return created;
}

}  // namespace

WelcomePage::WelcomePage(RecentFiles* recent, QWidget* parent)
    : QWidget(parent), m_recent(recent), m_recentBox(new QWidget(this)), m_list(new QListWidget) {
    auto* column = new QWidget(this);
    column->setFixedWidth(kWidth);
    auto* rows = new QVBoxLayout(column);
    rows->addWidget(label(tr("No drawing is open"), 1.6, column));
    rows->addWidget(label(tr("Open a DXF drawing, or drop one here."), 1.0, column));
    auto* open = new QPushButton(QIcon(":/kxhost/icons/open.svg"), tr("Open Drawing..."), column);
    open->setObjectName("welcomeOpen");
    rows->addSpacing(8);
    rows->addWidget(open, 0, Qt::AlignLeft);
    rows->addSpacing(16);
    rows->addWidget(m_recentBox);
    auto* recentRows = new QVBoxLayout(m_recentBox);
    recentRows->setContentsMargins(0, 0, 0, 0);
    recentRows->addWidget(label(tr("Recent drawings"), 1.0, m_recentBox));
    m_list->setObjectName("welcomeRecent");
    m_list->setFixedHeight(kListHeight);
    recentRows->addWidget(m_list);
    auto* all = new QVBoxLayout(this);
    all->addStretch();
    all->addWidget(column, 0, Qt::AlignHCenter);
    all->addStretch();
    connect(open, &QPushButton::clicked, this, &WelcomePage::openAsked);
    connect(m_list, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        Q_EMIT fileChosen(item->data(Qt::UserRole).toString());
    });
    connect(recent, &RecentFiles::changed, this, &WelcomePage::refresh);
    refresh();
}

void WelcomePage::refresh() {
    m_list->clear();
    for (const QString& path : m_recent->files()) {
        auto* item = new QListWidgetItem(shownName(QFileInfo(path).fileName()), m_list);
        item->setData(Qt::UserRole, path);
        item->setToolTip(plainToolTip(QDir::toNativeSeparators(path)));
    }
    m_recentBox->setVisible(m_list->count() != 0);
}
