// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandCompletion.h"

namespace {

QString withoutUnderscore(const QString& name) {
    return name.startsWith(QLatin1Char('_')) ? name.mid(1) : name;
}

QString sharedBeginning(const QStringList& names) {
    QString shared = names.value(0);
    for (const QString& name : names) {
        while (!name.startsWith(shared, Qt::CaseInsensitive)) {
            shared.chop(1);
        }
    }
    return shared;
}

}  // namespace

void CommandCompletion::setNames(const QStringList& names) {
    m_names = names;
    m_walked.clear();
}

QStringList CommandCompletion::matches(const QString& typed) const {
    const QString wanted = withoutUnderscore(typed);
    QStringList found;
    if (typed.isEmpty()) {
        return found;
    }
    for (const QString& name : m_names) {
        if (withoutUnderscore(name).startsWith(wanted, Qt::CaseInsensitive)) {
            found.push_back(name);
        }
    }
    return found;
}

QString CommandCompletion::next(const QString& typed, int step) {
    if (!isWalking(typed)) {
        m_walked = matches(typed);
        if (m_walked.isEmpty()) {
            return typed;
        }
        const QString shared = sharedBeginning(m_walked);
        if (shared.size() > withoutUnderscore(typed).size() && shared != typed) {
            m_walked.clear();
            return shared;
        }
        m_position = m_walked.indexOf(typed);
        if (m_position < 0 && step < 0) {
            m_position = 0;
        }
    }
    const int count = m_walked.size();
    m_position = (m_position + step + count) % count;
    return m_walked.at(m_position);
}

QStringList CommandCompletion::walked(const QString& text) const {
    return isWalking(text) ? m_walked : QStringList();
}

bool CommandCompletion::isWalking(const QString& text) const {
    return m_position >= 0 && m_position < m_walked.size() && m_walked.at(m_position) == text;
}
