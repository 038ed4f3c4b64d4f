// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/CommandLine.h"

#include <algorithm>

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QVBoxLayout>

#include "PlainText.h"
#include "commandline/CommandLog.h"
#include "commandline/CompletionPopup.h"

namespace {

constexpr int kSpacing = 2;
constexpr int kMinInputChars = 12;

const QRegularExpression& lineBreak() {
    static const QRegularExpression kLineBreak(QStringLiteral("[\\r\\n\\x{2028}\\x{2029}]"));
    return kLineBreak;
}

bool isPlain(const QKeyEvent& event) {
    return (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
}

/// Keys that mean something here and must not be taken by a shortcut of the window.
bool isOwnKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return isPlain(event);
        default:
            return false;
    }
}

QString withoutControls(const QString& text) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](QChar character) { return character.category() != QChar::Other_Control; });
    return kept;
}

}  // namespace

CommandLine::CommandLine(QWidget* parent)
    : QWidget(parent),
      m_log(new CommandLog(kMaxLogLines, this)),
      m_prompt(new QLabel(this)),
      m_input(new QLineEdit(this)),
      m_popup(new CompletionPopup(m_input)) {
    m_log->setObjectName(QStringLiteral("commandLog"));
    m_prompt->setObjectName(QStringLiteral("commandPrompt"));
    m_input->setObjectName(QStringLiteral("commandInput"));
    m_popup->setObjectName(QStringLiteral("commandCompletions"));
    m_log->setAccessibleName(tr("Messages"));
    m_input->setAccessibleName(tr("Command line"));
    lay();
    setPrompt(idlePrompt());
    m_log->installEventFilter(this);
    m_input->installEventFilter(this);
    connect(m_input, &QLineEdit::textEdited, this, &CommandLine::takeTyped);
    connect(m_popup, &CompletionPopup::picked, this, [this](const QString& name) {
        m_popup->hide();
        m_input->setText(name);
        m_input->setFocus();
    });
    setFocusProxy(m_input);
}

void CommandLine::lay() {
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_log->setFont(font);
    m_input->setFont(font);
    m_prompt->setTextFormat(Qt::PlainText);
    // A long prompt is cut off rather than making the window wider.
    m_prompt->setMinimumWidth(1);
    m_input->setMinimumWidth(m_input->fontMetrics().averageCharWidth() * kMinInputChars);
    auto* row = new QHBoxLayout;
    row->setSpacing(3 * kSpacing);
    row->addWidget(m_prompt);
    row->addWidget(m_input, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    column->setSpacing(kSpacing);
    column->addWidget(m_log, 1);
    column->addLayout(row);
    setTabOrder(m_log, m_input);
}

void CommandLine::print(const QString& line) {
    m_log->append(line, false);
}

void CommandLine::printError(const QString& line) {
    m_log->append(line, true);
}

QString CommandLine::text() const {
    return m_log->toPlainText();
}

void CommandLine::setPrompt(const QString& prompt) {
    m_prompt->setText(prompt.simplified());
    m_prompt->setToolTip(plainToolTip(prompt.simplified()));
    m_input->setAccessibleDescription(prompt.simplified());
}

QString CommandLine::prompt() const {
    return m_prompt->text();
}

QString CommandLine::idlePrompt() {
    return tr("Command:");
}

void CommandLine::setCompletions(const QStringList& names) {
    m_completion.setNames(names);
}

void CommandLine::typeHere(const QString& text) {
    m_input->setFocus();
    m_input->end(false);
    m_input->insert(withoutControls(text));
    takeTyped(m_input->text());
}

bool CommandLine::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isKey || (watched != m_input && watched != m_log)) {
        return QWidget::eventFilter(watched, event);
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyPress) {
        return watched == m_input ? handleInputKey(key) : handleLogKey(key);
    }
    if (watched == m_input && isOwnKey(key)) {
        event->accept();
        return true;
    }
    return false;
}

bool CommandLine::handleInputKey(const QKeyEvent& event) {
    if (!isOwnKey(event)) {
        return false;
    }
    switch (event.key()) {
        case Qt::Key_Up:
            walkUp();
            return true;
        case Qt::Key_Down:
            walkDown();
            return true;
        case Qt::Key_Tab:
            return complete(1);
        case Qt::Key_Backtab:
            return complete(-1);
        case Qt::Key_PageUp:
            m_log->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
            return true;
        case Qt::Key_PageDown:
            m_log->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
            return true;
        case Qt::Key_Escape:
            escape();
            return true;
        default:
            enter();
            return true;
    }
}

/// The log is there to be read: what is typed while it has the focus is meant for the field.
bool CommandLine::handleLogKey(const QKeyEvent& event) {
    if (!isPlain(event)) {
        return false;
    }
    if (event.key() == Qt::Key_Escape) {
        m_input->setFocus();
        escape();
        return true;
    }
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        m_input->setFocus();
        enter();
        return true;
    }
    const QString typed = withoutControls(event.text());
    if (typed.isEmpty()) {
        return false;
    }
    typeHere(typed);
    return true;
}

void CommandLine::enter() {
    const QString chosen = m_popup->highlighted();
    m_popup->hide();
    if (!chosen.isEmpty() && chosen != m_input->text()) {
        m_input->setText(chosen);
        return;
    }
    const QString line = m_input->text();
    m_input->clear();
    report(line);
}

void CommandLine::report(const QString& line) {
    const QString trimmed = line.trimmed();
    m_history.add(trimmed);
    if (!trimmed.isEmpty()) {
        print(prompt() + QLatin1Char(' ') + trimmed);
    }
    // Last of all: the command may take this widget with it.
    Q_EMIT entered(trimmed);
}

void CommandLine::reportAll(const QStringList& lines) {
    const QPointer<CommandLine> self(this);
    for (const QString& line : lines) {
        if (self && !line.trimmed().isEmpty()) {
            report(line);
        }
    }
}

void CommandLine::takeTyped(const QString& text) {
    if (!text.contains(lineBreak())) {
        const QStringList matches = m_completion.matches(text);
        const bool nothingToSay =
            matches.size() == 1 && matches.first().compare(text, Qt::CaseInsensitive) == 0;
        m_popup->offer(nothingToSay ? QStringList() : matches);
        return;
    }
    // Several lines were pasted. Run after the field is done with its event, as they may wait.
    m_popup->hide();
    m_input->clear();
    const QStringList lines = text.split(lineBreak());
    QMetaObject::invokeMethod(
        this, [this, lines] { reportAll(lines); }, Qt::QueuedConnection);
}

/// From what was typed to the history, inside of the completions towards what was typed.
void CommandLine::walkUp() {
    if (!m_popup->highlighted().isEmpty()) {
        m_popup->step(-1);
        return;
    }
    m_popup->hide();
    m_input->setText(m_history.older(m_input->text()));
}

void CommandLine::walkDown() {
    if (m_popup->isVisible()) {
        m_popup->step(1);
        return;
    }
    m_input->setText(m_history.newer(m_input->text()));
}

/// False, so that the focus moves on, when there is nothing to complete.
bool CommandLine::complete(int step) {
    const QString chosen = m_popup->highlighted();
    const QString typed = m_input->text();
    const QStringList walked = m_completion.walked(typed);
    if (typed.isEmpty() || (step < 0 && walked.isEmpty())) {
        return false;
    }
    if (!chosen.isEmpty() && walked.isEmpty()) {
        m_popup->hide();
        m_input->setText(chosen);
        return true;
    }
    const QString completed = m_completion.next(typed, step);
    m_input->setText(completed);
    const QStringList now = m_completion.walked(completed);
    const QStringList offered = now.isEmpty() ? m_completion.matches(completed) : now;
    m_popup->offer(offered.size() > 1 ? offered : QStringList(), now.indexOf(completed));
    return true;
}

void CommandLine::escape() {
    if (m_popup->isVisible()) {
        m_popup->hide();
    } else if (!m_input->text().isEmpty()) {
        m_input->clear();
    } else {
        Q_EMIT cancelled();
    }
}
