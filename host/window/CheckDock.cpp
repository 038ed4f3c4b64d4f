// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckDock.h"

#include <algorithm>

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTextBlock>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "PlainText.h"
#include "findings/Numbers.h"
#include "report/Verdict.h"
#include "window/CheckedProgram.h"
#include "window/WrappedRows.h"

namespace {

using gcode_check::Severity;

enum Column { kLine, kText };
constexpr std::size_t kLinesAround = 60;
constexpr double kMostLength = 1e6;

QDoubleSpinBox* lengthBox(const char* name, double value, double least, int decimals) {
    auto* box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setDecimals(decimals);
    box->setRange(least, kMostLength);
    box->setSingleStep(least < 0 ? 1 : 0.01);
    box->setValue(value);
    return box;
}

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
    const auto length = [&](double value) { return text(gcode_check::numberText(value, 3)); };
    const gcode_check::Figures& figures = result.figures;
    const QString figuresText = CheckDock::tr("Cutting depth %1, cut length %2, time about %3")
                                    .arg(length(figures.cuttingDepth), length(figures.cutLength),
                                         text(gcode_check::timeText(figures.seconds())));
    return text(verdictText(result)) + '\n' + text(coverageText(result)) + '\n' + figuresText;
}

}  // namespace

CheckDock::CheckDock(QWidget* parent)
    : QDockWidget(tr("Check Program"), parent),
      m_head(plainLabel("checkHead")),
      m_summary(plainLabel("checkSummary")),
      m_table(new QTreeWidget),
      m_page(new QLabel),
      m_lines(new QPlainTextEdit),
      m_surface(lengthBox("checkSurface", 0, -kMostLength, 3)),
      m_tolerance(lengthBox("checkTolerance", gcode_check::CheckOptions().tolerance, 0.0001, 4)),
      m_isDepthMeant(new QCheckBox(tr("&Depth Z:"))),
      m_depth(lengthBox("checkDepth", -1, -kMostLength, 3)),
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
    showResult(nullptr, nullptr, QString());
}

QWidget* CheckDock::createHead() {
    auto* head = new QWidget;
    auto* rows = new QFormLayout(head);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addRow(m_head);
    rows->addRow(tr("&Surface Z:"), m_surface);
    rows->addRow(m_isDepthMeant, m_depth);
    rows->addRow(tr("&Tolerance:"), m_tolerance);
    rows->addRow(m_summary);
    m_surface->setToolTip(tr("Where the top of the material lies, in program coordinates"));
    m_tolerance->setToolTip(tr("How far from an object a cut may lie"));
    m_depth->setToolTip(tr("No cut may be deeper, and one must be as deep"));
    m_depth->setEnabled(false);
    m_isDepthMeant->setObjectName("checkIsDepthMeant");
    m_isDepthMeant->setToolTip(tr("Whether the depth is checked"));
    connect(m_isDepthMeant, &QCheckBox::toggled, m_depth, &QWidget::setEnabled);
    connect(m_isDepthMeant, &QCheckBox::toggled, this, &CheckDock::checkChanged);
    for (const QDoubleSpinBox* box : {m_surface, m_depth, m_tolerance}) {
        connect(box, &QDoubleSpinBox::editingFinished, this, &CheckDock::checkChanged);
    }
    return head;
}

QWidget* CheckDock::createMiddle() {
    m_table->setObjectName("findingsTable");
    m_table->setAccessibleName(tr("Findings"));
    m_table->setHeaderLabels({tr("Line"), tr("Finding")});
    m_table->setRootIsDecorated(false);
    wrapRows(m_table, kText);
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
    middle->setStretchFactor(0, 3);
    middle->setStretchFactor(1, 2);
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

void CheckDock::checkChanged() {
    const CheckValues now = values();
    const bool isSame = now.surface == m_checked.surface && now.depth == m_checked.depth &&
                        now.tolerance == m_checked.tolerance;
    if (m_result != nullptr && !isSame) {
        Q_EMIT againAsked();
    }
}

CheckValues CheckDock::values() const {
    CheckValues values{m_surface->value(), {}, m_tolerance->value()};
    if (m_isDepthMeant->isChecked()) {
        values.depth = m_depth->value();
    }
    return values;
}

void CheckDock::showResult(const CheckedProgram* program, const gcode_check::CheckResult* result,
                           const QString& heldAgainst) {
    m_program = program;
    m_result = result;
    m_again->setEnabled(result != nullptr);
    m_report->setEnabled(result != nullptr);
    m_lines->clear();
    m_page->clear();
    m_checked = values();
    if (result == nullptr) {
        m_head->setText(tr("No program is checked yet."));
        m_summary->clear();
    } else {
        m_head->setText(
            tr("%1, held against %2").arg(QFileInfo(program->file()).fileName(), heldAgainst));
        m_head->setToolTip(plainToolTip(program->file()));
        m_summary->setText(summaryOf(*result));
    }
    fillTable();
}

void CheckDock::fillTable() {
    const QSignalBlocker blocker(m_table);
    m_table->clear();
    if (m_result == nullptr) {
        return;
    }
    QList<QTreeWidgetItem*> items;
    for (const gcode_check::Finding& finding : m_result->findings) {
        const QString sentence = QString::fromStdString(finding.sentence);
        auto* item = new QTreeWidgetItem;
        item->setText(kLine, finding.line == 0 ? QString() : QString::number(finding.line));
        item->setIcon(kLine, style()->standardIcon(iconOf(finding.severity)));
        item->setTextAlignment(kLine, Qt::AlignRight | Qt::AlignTop);
        item->setTextAlignment(kText, Qt::AlignLeft | Qt::AlignTop);
        item->setText(kText, sentence);
        items.append(item);
    }
    for (const QString& line : leftOutOf(*m_result)) {
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
        const gcode_check::Finding& finding = m_result->findings[static_cast<std::size_t>(index)];
        showPageOf(finding.kind);
        const std::size_t line = finding.line;
        int row = 0;
        m_lines->setPlainText(
            m_program->excerpt(std::max<std::size_t>(line, 1), kLinesAround, &row));
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
    if (m_result != nullptr) {
        m_summary->setText(why);
    }
}
