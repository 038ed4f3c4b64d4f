// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckDock.h"

#include <algorithm>

#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTextBlock>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "PlainText.h"
#include "findings/Numbers.h"
#include "report/Verdict.h"
#include "window/CheckFields.h"
#include "window/CheckedProgram.h"
#include "window/WrappedRows.h"

namespace {

using gcode_check::Severity;

enum Column { kLine, kText };
constexpr std::size_t kLinesAround = 60;

QLabel* plainLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QStyle::StandardPixmap iconOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return QStyle::SP_MessageBoxCritical;
        case Severity::Warning:
            return QStyle::SP_MessageBoxWarning;
        case Severity::Note:
            break;
    }
    return QStyle::SP_MessageBoxInformation;
}

/// Icons stand beside the first line of a text.
class TopIcons : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->decorationAlignment = Qt::AlignLeft | Qt::AlignTop;
    }
};

/// What of a kind is not among the findings.
QStringList leftOutOf(const gcode_check::CheckResult& result) {
    QStringList lines;
    for (const gcode_check::FindingKind kind : gcode_check::allFindingKinds()) {
        const std::size_t count = result.leftOut[static_cast<std::size_t>(kind)];
        if (count > 0) {
            lines.append(CheckDock::tr("And %1 more of %2")
                             .arg(static_cast<qulonglong>(count))
                             .arg(QLatin1String(identifierOf(kind))));
        }
    }
    return lines;
}

/// What must be seen without reading the list.
QString summaryOf(const gcode_check::CheckResult& result) {
    const auto text = [](const std::string& line) { return QString::fromStdString(line); };
    // No line ends within it.
    const auto whole = [&](const std::string& time) {
        return text(time).replace(' ', QChar::Nbsp);
    };
    const auto length = [&](double value) { return text(gcode_check::numberText(value, 3)); };
    const gcode_check::Figures& figures = result.figures;
    const QString figuresText = CheckDock::tr("Cutting depth %1, cut length %2, time about %3")
                                    .arg(length(figures.cuttingDepth), length(figures.cutLength),
                                         whole(gcode_check::timeText(figures.seconds())));
    return text(verdictText(result)) + '\n' + text(coverageText(result)) + '\n' + figuresText;
}

}  // namespace

CheckDock::CheckDock(QWidget* parent)
    : QDockWidget(tr("Check Program"), parent),
      m_head(plainLabel("checkHead")),
      m_fields(new CheckFields),
      m_summary(plainLabel("checkSummary")),
      m_busy(new QWidget),
      m_bar(new QProgressBar),
      m_table(new QTreeWidget),
      m_page(new QLabel),
      m_lines(new QPlainTextEdit),
      m_again(new QPushButton(tr("Check &Again"))),
      m_report(new QPushButton(tr("&Report..."))) {
    setObjectName("checkDock");
    auto* content = new QWidget(this);
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(4, 4, 4, 4);
    rows->addWidget(createHead());
    rows->addWidget(createMiddle(), 1);
    rows->addLayout(createButtons());
    setWidget(content);
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &CheckDock::choose);
    // A second click at what is chosen shows it once more.
    connect(m_table, &QTreeWidget::itemClicked, this, &CheckDock::choose);
    connect(m_page, &QLabel::linkActivated, this, &CheckDock::pageAsked);
    m_head->setText(tr("No program is checked yet."));
    take({});
    m_again->setEnabled(false);
}

QWidget* CheckDock::createHead() {
    auto* head = new QWidget;
    auto* rows = new QVBoxLayout(head);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_head);
    rows->addWidget(m_fields);
    rows->addWidget(m_summary);
    rows->addWidget(createBusy());
    return head;
}

QWidget* CheckDock::createBusy() {
    m_busy->setObjectName("checkBusy");
    m_bar->setObjectName("checkProgress");
    m_bar->setRange(0, 100);
    auto* stop = new QPushButton(tr("Sto&p"));
    stop->setObjectName("checkStop");
    auto* row = new QHBoxLayout(m_busy);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_bar, 1);
    row->addWidget(stop);
    connect(stop, &QPushButton::clicked, this, &CheckDock::stopAsked);
    return m_busy;
}

QWidget* CheckDock::createMiddle() {
    m_table->setObjectName("findingsTable");
    m_table->setAccessibleName(tr("Findings"));
    m_table->setHeaderLabels({tr("Line"), tr("Finding")});
    m_table->setRootIsDecorated(false);
    wrapRows(m_table, kText);
    m_table->setItemDelegateForColumn(kLine, new TopIcons(m_table));
    m_table->header()->setSectionResizeMode(kLine, QHeaderView::ResizeToContents);
    m_table->header()->setSectionResizeMode(kText, QHeaderView::Stretch);
    m_page->setObjectName("findingPage");
    m_page->setTextFormat(Qt::RichText);
    m_page->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_lines->setObjectName("programLines");
    m_lines->setAccessibleName(tr("Program"));
    m_lines->setReadOnly(true);
    m_lines->setTabChangesFocus(true);
    m_lines->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_lines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_lines->setPlaceholderText(tr("A click at a finding shows its lines here"));
    auto* middle = new QSplitter(Qt::Vertical);
    middle->setChildrenCollapsible(false);
    middle->addWidget(m_table);
    auto* chosen = new QWidget;
    auto* rows = new QVBoxLayout(chosen);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(m_page);
    rows->addWidget(m_lines, 1);
    middle->addWidget(chosen);
    // Findings are read, of the program a few lines are enough.
    middle->setStretchFactor(0, 3);
    middle->setStretchFactor(1, 1);
    middle->setSizes({300, 100});
    return middle;
}

QLayout* CheckDock::createButtons() {
    auto* choose = new QPushButton(tr("&Program..."));
    choose->setObjectName("checkChoose");
    m_again->setObjectName("checkAgain");
    m_report->setObjectName("checkReport");
    auto* row = new QHBoxLayout;
    row->addWidget(choose);
    row->addWidget(m_again);
    row->addWidget(m_report);
    connect(choose, &QPushButton::clicked, this, &CheckDock::chooseAsked);
    connect(m_again, &QPushButton::clicked, this, &CheckDock::againAsked);
    connect(m_report, &QPushButton::clicked, this, &CheckDock::reportAsked);
    return row;
}

void CheckDock::showChecking(const QString& path, const QString& heldAgainst) {
    tellProgram(path, tr("%1, held against %2").arg(QFileInfo(path).fileName(), heldAgainst));
    take({});
    m_summary->setText(tr("Checking..."));
    m_busy->show();
}

void CheckDock::setPart(double part) {
    m_bar->setValue(static_cast<int>(part * m_bar->maximum()));
}

void CheckDock::showResult(const CheckedResult& checked, const QString& heldAgainst) {
    const QString path = checked.program->file();
    tellProgram(path, tr("%1, held against %2").arg(QFileInfo(path).fileName(), heldAgainst));
    take(checked);
    m_summary->setText(summaryOf(*checked.result));
}

void CheckDock::showNothing(const QString& path, const QString& why) {
    tellProgram(path, QFileInfo(path).fileName());
    take({});
    m_summary->setText(why);
}

void CheckDock::tellProgram(const QString& path, const QString& text) {
    m_head->setText(text);
    m_head->setToolTip(plainToolTip(path));
}

void CheckDock::take(const CheckedResult& checked) {
    m_checked = checked;
    m_busy->hide();
    m_bar->setValue(0);
    m_again->setEnabled(true);
    m_report->setEnabled(checked.result != nullptr);
    m_lines->clear();
    m_page->clear();
    m_summary->clear();
    fillTable();
}

void CheckDock::fillTable() {
    const QSignalBlocker blocker(m_table);
    m_table->clear();
    if (m_checked.result == nullptr) {
        return;
    }
    QList<QTreeWidgetItem*> items;
    for (const gcode_check::Finding& finding : m_checked.result->findings) {
        const QString sentence = QString::fromStdString(finding.sentence);
        auto* item = new QTreeWidgetItem;
        item->setText(kLine, finding.line == 0 ? QString() : QString::number(finding.line));
        item->setIcon(kLine, style()->standardIcon(iconOf(finding.severity)));
        item->setTextAlignment(kLine, Qt::AlignRight | Qt::AlignTop);
        item->setTextAlignment(kText, Qt::AlignLeft | Qt::AlignTop);
        item->setText(kText, sentence);
        items.append(item);
    }
    for (const QString& line : leftOutOf(*m_checked.result)) {
        auto* item = new QTreeWidgetItem({QString(), line});
        item->setFlags(Qt::ItemIsEnabled);
        items.append(item);
    }
    m_table->addTopLevelItems(items);
}

void CheckDock::choose() {
    const QList<QTreeWidgetItem*> chosen = m_table->selectedItems();
    const int index = chosen.isEmpty() ? -1 : m_table->indexOfTopLevelItem(chosen.first());
    if (index >= 0) {
        const gcode_check::Finding& finding =
            m_checked.result->findings[static_cast<std::size_t>(index)];
        showPageOf(finding.kind);
        const std::size_t line = finding.line;
        int row = 0;
        m_lines->setPlainText(
            m_checked.program->excerpt(std::max<std::size_t>(line, 1), kLinesAround, &row));
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(m_lines->document()->findBlockByNumber(row));
        mark.format.setBackground(m_lines->palette().highlight());
        mark.format.setForeground(m_lines->palette().highlightedText());
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        m_lines->setTextCursor(mark.cursor);
        m_lines->centerCursor();
        m_lines->setExtraSelections(line == 0 ? QList<QTextEdit::ExtraSelection>()
                                              : QList<QTextEdit::ExtraSelection>{mark});
    }
    Q_EMIT findingChosen(index);
}

void CheckDock::showPageOf(gcode_check::FindingKind kind) {
    const QString name = QLatin1String(identifierOf(kind));
    m_page->setText(
        tr("<b>%1</b>: <a href=\"findings/%1.md\">why, and what mends it</a>").arg(name));
}

void CheckDock::tellOutdated(const QString& why) {
    if (m_checked.result != nullptr) {
        m_summary->setText(why);
    }
}
