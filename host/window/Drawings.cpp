// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/Drawings.h"

#include <optional>

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QTabWidget>

#include "KxText.h"
#include "PlainText.h"
#include "drawing/DxfReader.h"
#include "window/DrawingTab.h"
#include "window/HostSession.h"
#include "window/MessageBar.h"
#include "window/ObjectText.h"
#include "window/ReadWithProgress.h"
#include "window/RecentFiles.h"
#include "window/SelectionKeeper.h"
#include "window/ShownName.h"
#include "window/WhenIdle.h"

namespace {

/// One name for one file, whatever way leads to it.
QString wholePath(const QString& path) {
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

QString nameOf(const QString& path) {
    return shownName(QFileInfo(path).fileName());
}

/// The cause, for the user.
QString causeOf(const kxdrawing::ReadResult& result, const QString& file) {
    const QString cause = QString::fromStdString(result.error.toText());
    // So the toolkit hands on what it can't read in a name; no file has that name then.
    const bool isBroken = file.contains(QChar(QChar::ReplacementCharacter));
    return isBroken ? Drawings::tr("%1 (files are opened by names that are UTF-8 text)").arg(cause)
                    : cause;
}

}  // namespace

Drawings::Drawings(const Parts& parts, QObject* parent) : QObject(parent), m_parts(parts) {
    connect(m_parts.tabs, &QTabWidget::currentChanged, this, &Drawings::followTab);
    connect(m_parts.tabs, &QTabWidget::tabCloseRequested, this,
            [this](int index) { close(qobject_cast<DrawingTab*>(m_parts.tabs->widget(index))); });
    connect(&m_watch, &FileWatch::changed, this, &Drawings::offerReload);
}

DrawingTab* Drawings::current() const {
    return qobject_cast<DrawingTab*>(m_parts.tabs->currentWidget());
}

QList<DrawingTab*> Drawings::all() const {
    QList<DrawingTab*> tabs;
    for (int index = 0; index < m_parts.tabs->count(); ++index) {
        tabs.append(qobject_cast<DrawingTab*>(m_parts.tabs->widget(index)));
    }
    return tabs;
}

DrawingTab* Drawings::find(const QString& path) const {
    const QString wanted = wholePath(path);
    for (DrawingTab* tab : all()) {
        if (tab->path() == wanted) {
            return tab;
        }
    }
    return nullptr;
}

void Drawings::open(const QStringList& paths) {
    m_parts.idle->run([this, paths] { openAll(paths); });
}

void Drawings::openAll(const QStringList& paths) {
    QStringList causes;
    for (const QString& path : paths) {
        QString error;
        switch (openNow(path, &error)) {
            case Opening::Opened:
                tellOpened(*current(), tr("%1: %2"));
                break;
            case Opening::WasOpen:
                Q_EMIT said(tr("%1 is open already.").arg(nameOf(path)));
                break;
            case Opening::Cancelled:
                Q_EMIT said(tr("%1 was not opened: cancelled.").arg(nameOf(path)));
                break;
            case Opening::Failed:
                causes.append(error);
                break;
        }
    }
    if (!causes.isEmpty()) {
        Q_EMIT failed(causes);
    }
}

Drawings::Opening Drawings::openNow(const QString& path, QString* error) {
    if (DrawingTab* open = find(path)) {
        m_parts.tabs->setCurrentWidget(open);
        return Opening::WasOpen;
    }
    const QString file = wholePath(path);
    std::optional<kxdrawing::ReadResult> result;
    // Before it is read: what is written meanwhile is a change.
    m_watch.add(file);
    {
        const WhenIdle::Busy busy(m_parts.idle);
        result = readWithProgress(file, m_parts.tabs->window());
    }
    if (!result || !result->drawing) {
        m_watch.remove(file);
        if (!QFileInfo::exists(file)) {
            m_parts.recent->remove(file);
        }
        *error = result ? causeOf(*result, file) : QString();
        return result ? Opening::Failed : Opening::Cancelled;
    }
    auto* tab = new DrawingTab(m_parts.session->application()->AddDocument(toKxString(file), true),
                               file, m_parts.tabs);
    tab->take(*result->drawing);
    addTab(tab);
    return Opening::Opened;
}

void Drawings::addTab(DrawingTab* tab) {
    m_parts.selection->attach(tab);
    connect(tab, &DrawingTab::unitChanged, this, [this, tab] { tellUnit(tab); });
    m_parts.recent->add(tab->path());
    Q_EMIT added(tab);
    // A mnemonic in a tab would take a key from the menus.
    const int index = m_parts.tabs->addTab(tab, QString(tab->name()).replace("&", "&&"));
    m_parts.tabs->setTabToolTip(index, plainToolTip(QDir::toNativeSeparators(tab->path())));
    m_parts.tabs->setCurrentIndex(index);
    tab->setFocus();
}

void Drawings::tellUnit(DrawingTab* tab) {
    const kxHostDocument_ptr active = m_parts.session->application()->GetActiveHostDocument();
    if (active == tab->document() && !m_isReloading) {
        m_parts.session->application()->NotifyActiveDocumentChanged();
    }
}

void Drawings::tellOpened(const DrawingTab& tab, const QString& verb) {
    const kxHostDocument_c& document = *tab.document();
    const long objects = static_cast<long>(document.GetObjects().size());
    const long layers = static_cast<long>(document.GetLayers().size());
    const QString what = tr("%1 on %2, %3")
                             .arg(plural(objects, tr("object"), tr("objects")),
                                  plural(layers, tr("layer"), tr("layers")), tab.unitName());
    Q_EMIT said(verb.arg(tab.name(), what));
    const long leftOut = tab.report().totals().leftOut;
    if (leftOut != 0) {
        Q_EMIT said(tr("%1 left out: REPORT tells why").arg(leftOut));
    }
}

void Drawings::reload(DrawingTab* tab) {
    const QPointer<DrawingTab> wanted(tab);
    m_parts.idle->run([this, wanted] {
        if (wanted) {
            reloadNow(wanted);
        }
    });
}

void Drawings::reloadNow(DrawingTab* tab) {
    std::optional<kxdrawing::ReadResult> result;
    {
        const WhenIdle::Busy busy(m_parts.idle);
        m_watch.accept(tab->path());
        result = readWithProgress(tab->path(), m_parts.tabs->window());
    }
    if (!result) {
        Q_EMIT said(tr("%1 was not read again: cancelled.").arg(tab->name()));
    } else if (!result->drawing) {
        Q_EMIT failed({QString::fromStdString(result->error.toText())});
    } else {
        const short unit = tab->unit();
        m_isReloading = true;
        tab->take(*result->drawing);
        m_isReloading = false;
        tab->messageBar()->hide();
        tellOpened(*tab, tr("%1 read again: %2"));
        if (unit != tab->unit()) {
            tellUnit(tab);
        }
    }
}

void Drawings::offerReload(const QString& path) {
    const QPointer<DrawingTab> tab(find(path));
    if (!tab) {
        return;
    }
    tab->messageBar()->ask(tr("%1 has changed on disk.").arg(tab->name()), tr("Reload"),
                           [this, tab] { reload(tab); });
}

void Drawings::close(DrawingTab* tab) {
    const QPointer<DrawingTab> wanted(tab);
    m_parts.idle->run([this, wanted] {
        if (wanted) {
            closeNow(wanted);
        }
    });
}

void Drawings::closeNow(DrawingTab* tab) {
    m_watch.remove(tab->path());
    m_parts.session->application()->CloseDocument(tab->document().get());
    m_parts.tabs->removeTab(m_parts.tabs->indexOf(tab));
    // A key or a button of the drawing itself may have closed it.
    tab->deleteLater();
}

void Drawings::closeAll() {
    for (DrawingTab* tab : all()) {
        close(tab);
    }
}

void Drawings::walk(int step) {
    const int count = m_parts.tabs->count();
    if (count != 0) {
        m_parts.tabs->setCurrentIndex((m_parts.tabs->currentIndex() + step + count) % count);
    }
}

void Drawings::followTab() {
    Q_EMIT currentChanged(current());
    m_parts.idle->run([this] { activateCurrent(); });
}

void Drawings::activateCurrent() {
    if (DrawingTab* tab = current()) {
        m_parts.session->application()->SetActiveDocument(tab->document().get());
    }
}
