// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// How the panel is built: its categories, controls and their wiring.
#include <tuple>

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDoubleValidator>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTextEdit>
#include <QVBoxLayout>

#include "core/GCodeWidget.h"
#include "core/PanelControls.h"
#include "core/PanelResources.h"
#include "core/QtCategoryButton.h"
#include "openglplotter/OGLWindow.h"
#include "ui_GCode.h"

namespace {

constexpr int kHeaderHeight = 28;
constexpr int kHeaderIconSize = 18;
constexpr int kButtonSize = 28;
constexpr int kAppendWidth = 80;
constexpr int kCommentHeight = 30;
constexpr int kTextHeight = 50;
constexpr int kCheckBoxHeight = 20;
constexpr int kStackHeight = 170;
constexpr int kTextPointSize = 10;
constexpr int kHeightDecimals = 2;

constexpr char kFrameStyle[] = "margin-bottom: 2px;";
constexpr char kTextFrameStyle[] = "QFrame{margin-bottom: 2px;}";
constexpr char kCommentStyle[] = "background-color: rgb(255, 255, 255);";
constexpr char kTextStyle[] = "QTextEdit{background-color: rgb(255, 255, 255);}";
constexpr char kButtonStyle[] = "QPushButton{border: 1px solid rgb(205,201,201);}";
// Beside a rule plain declarations must stand in one as well; alone they are read as this one.
constexpr char kButtonFrameStyle[] =
    "* {margin-bottom: 2px;}QPushButton:hover{background:qlineargradient(x1:0,y1:0,x2:0,y2:1,"
    "stop:0.0 rgb(223,229,255),stop:0.5 rgb(223,229,255),stop:0.55 rgb(223,229,255),"
    "stop:1.0 rgb(223,229,255));}";
constexpr char kCheckBoxStyle[] =
    "QCheckBox::indicator {subcontrol-position: left top;} QCheckBox::indicator::checked {image: "
    "url(:/gcodeaddin/Resource/CheckBox_Mac_32x-32.svg);}";

/// A page of the stack with its grid: icons in a column of their own, so that the fields stay in
/// line when a row has none.
QGridLayout* addPage(QStackedWidget* stack) {
    auto* page = new QWidget(stack);
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(2);
    grid->setColumnMinimumWidth(0, 30);
    grid->setAlignment(Qt::AlignTop);
    stack->addWidget(page);
    return grid;
}

/// Typed numbers are read with a decimal point wherever the program runs, and a comma makes them
/// unreadable, so none is let through as a group separator.
QLocale pointLocale() {
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    return locale;
}

void limitHeight(QLineEdit* edit, QObject* owner) {
    auto* validator = new QDoubleValidator(-999, 1, kHeightDecimals, owner);
    validator->setLocale(pointLocale());
    edit->setValidator(validator);
}

void limitFeed(QLineEdit* edit, QObject* owner) {
    auto* validator = new QIntValidator(1, 10000000, owner);
    validator->setLocale(pointLocale());
    edit->setValidator(validator);
}

}  // namespace

void GCodeWidget::CreateUI() {
    // Without it buttons draw their icons for a plain screen and blow them up on a finer one.
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    m_gcodeWidget->GCodeTreeWidget->setStyleSheet(QString::fromLatin1(
        "QTreeWidget {padding: 5px;} QTreeWidget::item {padding-right: 17px;}"));
    categoryButton = new QButtonGroup(this);
    categoryButton->setObjectName(QString::fromLatin1("categoryButton"));
    createCommentsCategory();
    createPathCategory();
    createPreambleCategory();
    createPostscriptCategory();
    createUnitCategory();
    createFeedCategory();
    createViewCategory();
    showFocused(m_gcodeWidget->GCodeTreeWidget);
}

void GCodeWidget::startUIGroup(QTreeWidgetItem* item, QtCategoryButton* button,
                               const QRect& geometry) {
    QFont font = button->font();
    font.setBold(true);
    font.setWeight(QFont::Bold);
    button->setFont(font);
    // The arrow stands at the right end of the header.
    button->setLayoutDirection(Qt::RightToLeft);
    button->setGeometry(geometry);
    button->setIcon(QIcon(iconPath(QString::fromLatin1("expanded"))));
    // The style sheet names this size by a property that no widget has.
    button->setIconSize(QSize(kHeaderIconSize, kHeaderIconSize));
    button->setFixedHeight(kHeaderHeight);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    button->setAutoFillBackground(true);
    m_gcodeWidget->GCodeTreeWidget->addTopLevelItem(item);
    m_gcodeWidget->GCodeTreeWidget->setItemWidget(item, 0, button);
    item->setExpanded(true);
}

void GCodeWidget::finishUIGroup(QTreeWidgetItem* item, QFrame* frame) {
    auto* child = new QTreeWidgetItem;
    child->setFlags(child->flags() & ~Qt::ItemIsSelectable);
    item->addChild(child);
    m_gcodeWidget->GCodeTreeWidget->setItemWidget(child, 0, frame);
    frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QFrame* GCodeWidget::openCategory(const QString& title, QTreeWidgetItem*& item,
                                  QtCategoryButton*& button) {
    QTreeWidget* tree = m_gcodeWidget->GCodeTreeWidget;
    item = new QTreeWidgetItem;
    button = new QtCategoryButton(title, tree, item);
    categoryButton->addButton(button, categoryGroup.size());
    categoryGroup.append(item);
    startUIGroup(item, button, QRect(0, 0, tree->width(), kHeaderHeight));
    auto* frame = new QFrame(tree);
    frame->setStyleSheet(QLatin1String(kFrameStyle));
    return frame;
}

void GCodeWidget::createCommentsCategory() {
    QFrame* frame = openCategory(tr("Comments"), m_CommentsCategaory, m_CommentsCategaoryButton);
    m_CommentTextEdit =
        createTextBox(QString::fromLatin1("m_CommentTextEdit"), kCommentHeight, frame);
    m_CommentTextEdit->setStyleSheet(QLatin1String(kCommentStyle));
    (new QVBoxLayout(frame))->addWidget(m_CommentTextEdit);
    finishUIGroup(m_CommentsCategaory, frame);
}

void GCodeWidget::createPathCategory() {
    QFrame* frame = openCategory(tr("Path and drill cycle"), m_PathAndDrillCycleCategaory,
                                 m_PathAndDrillCycleCategaoryButton);
    frame->setStyleSheet(QLatin1String(kButtonFrameStyle));
    auto* rows = new QVBoxLayout(frame);
    comboBox = createComboBox(QString::fromLatin1("comboBox"),
                              {tr("2D Toolpath"), tr("Drill Cycle")}, frame);
    comboBox->setToolTip(tr("G-code type"));
    rows->addWidget(comboBox);
    auto* buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    const auto addButton = [&](const char* name, const QString& toolTip, const char* icon) {
        QPushButton* button =
            createIconButton(QLatin1String(name), toolTip, QLatin1String(icon), frame);
        button->setFixedSize(kButtonSize, kButtonSize);
        button->setStyleSheet(QLatin1String(kButtonStyle));
        buttons->addWidget(button);
        return button;
    };
    generateGCodeBtn = addButton("generateGCodeBtn", tr("Generate"), "Generate");
    selectFileBtn = addButton("selectFileBtn", tr("Select file"), "Open");
    saveBtn = addButton("saveBtn", tr("Save"), "Save");
    HelpPushButton = addButton("HelpPushButton", tr("Help"), "help");
    appendPushButton = new QPushButton(tr("Append"), frame);
    appendPushButton->setObjectName(QString::fromLatin1("appendPushButton"));
    appendPushButton->setToolTip(tr("Append"));
    appendPushButton->setFixedSize(kAppendWidth, kButtonSize);
    appendPushButton->setStyleSheet(QLatin1String(kButtonStyle));
    buttons->addWidget(appendPushButton);
    buttons->addStretch();
    finishUIGroup(m_PathAndDrillCycleCategaory, frame);
}

void GCodeWidget::createPreambleCategory() {
    QFrame* frame = openCategory(tr("Preamble"), m_PreambleCategaory, m_PreambleCategaoryButton);
    frame->setStyleSheet(QLatin1String(kTextFrameStyle));
    auto* rows = new QVBoxLayout(frame);
    textEdit = createTextBox(QString::fromLatin1("textEdit"), kTextHeight, frame);
    textEdit->setStyleSheet(QLatin1String(kTextStyle));
    rows->addWidget(textEdit);
    auto* numbering = new QHBoxLayout;
    rows->addLayout(numbering);
    lineNumberCheckBox = new QCheckBox(frame);
    lineNumberCheckBox->setObjectName(QString::fromLatin1("lineNumberCheckBox"));
    lineNumberCheckBox->setMaximumHeight(kCheckBoxHeight);
    lineNumberCheckBox->setStyleSheet(QLatin1String(kCheckBoxStyle));
    lineNumberLabel = new QLabel(tr("Show line numbers"), frame);
    lineNumberLabel->setObjectName(QString::fromLatin1("lineNumberLabel"));
    lineNumberCheckBox->setAccessibleName(lineNumberLabel->text());
    numbering->addWidget(lineNumberCheckBox);
    numbering->addWidget(lineNumberLabel, 1);
    finishUIGroup(m_PreambleCategaory, frame);
}

void GCodeWidget::createPostscriptCategory() {
    QFrame* frame =
        openCategory(tr("Postscript"), m_PostscriptCategaory, m_PostscriptCategaoryButton);
    frame->setStyleSheet(QLatin1String(kTextFrameStyle));
    postambleTextEdit = createTextBox(QString::fromLatin1("postambleTextEdit"), kTextHeight, frame);
    postambleTextEdit->setStyleSheet(QLatin1String(kTextStyle));
    (new QVBoxLayout(frame))->addWidget(postambleTextEdit);
    finishUIGroup(m_PostscriptCategaory, frame);
}

void GCodeWidget::createUnitCategory() {
    QFrame* frame = openCategory(tr("Units"), m_UnitCategaory, m_UnitCategaoryButton);
    auto* rows = new QVBoxLayout(frame);
    auto* radios = new QHBoxLayout;
    rows->addLayout(radios);
    mmRadioButton = new QRadioButton(tr("mm"), frame);
    mmRadioButton->setObjectName(QString::fromLatin1("mmRadioButton"));
    inchRadioButton = new QRadioButton(tr("inch"), frame);
    inchRadioButton->setObjectName(QString::fromLatin1("inchRadioButton"));
    radios->addWidget(mmRadioButton);
    radios->addWidget(inchRadioButton);
    radios->addStretch();
    unitComboBox = createComboBox(QString::fromLatin1("unitComboBox"),
                                  {tr("Relative"), tr("Absolute")}, frame);
    rows->addWidget(unitComboBox);
    finishUIGroup(m_UnitCategaory, frame);
}

void GCodeWidget::createFeedCategory() {
    QFrame* frame = openCategory(tr("Retraction and feed rate"), m_RetractionAndFeedRateCategaory,
                                 m_RetractionAndFeedRateCategaoryButton);
    stackedWidget = new QStackedWidget(frame);
    stackedWidget->setObjectName(QString::fromLatin1("stackedWidget"));
    stackedWidget->setMaximumHeight(kStackHeight);
    (new QVBoxLayout(frame))->addWidget(stackedWidget);
    createToolPathPage();
    createDrillPage();
    finishUIGroup(m_RetractionAndFeedRateCategaory, frame);
}

void GCodeWidget::createToolPathPage() {
    QGridLayout* grid = addPage(stackedWidget);
    std::tie(zSafeHeightButton, zSafeHeightEdit) = addFieldRow(
        {"zSafeHeightButton", "zSafeHeightEdit", "Z_SafeHeight", tr("Z Safe Height")}, grid);
    std::tie(zRetractionButton, zRetractEdit) = addFieldRow(
        {"zRetractionButton", "zRetractEdit", "Z_Retraction", tr("Z Retraction")}, grid);
    std::tie(feedRateZButton, feedRateZ) =
        addFieldRow({"feedRateZButton", "feedRateZ", "Z_FeedRate", tr("FeedRate Z")}, grid);
    std::tie(feedRateXYButton, feedRateXY) =
        addFieldRow({"feedRateXYButton", "feedRateXY", "XY_FeedRate", tr("FeedRate XY")}, grid);
    std::tie(depthOfCutButton, depthOfCut) =
        addFieldRow({"depthOfCutButton", "depthOfCut", "DepthOfCut", tr("Depth of Cut")}, grid);
}

void GCodeWidget::createDrillPage() {
    QGridLayout* grid = addPage(stackedWidget);
    drillcomboBox = createComboBox(
        QString::fromLatin1("drillcomboBox"),
        {tr("G81 (Drill cycle)"), tr("G82 (Drill cycle with dwell)"), tr("G83 (Peck drill cycle)")},
        grid->parentWidget());
    grid->addWidget(drillcomboBox, 0, 0, 1, 2);
    std::tie(drillFeedRateButton, drillFeedRate) = addFieldRow(
        {"drillFeedRateButton", "drillFeedRate", "Z_FeedRate", tr("Drill Feed Rate")}, grid);
    std::tie(depthButton, drillDepth) =
        addFieldRow({"depthButton", "drillDepth", "DepthOfCut", tr("Depth")}, grid);
    std::tie(retractHeightButton, retractHeight) = addFieldRow(
        {"retractHeightButton", "retractHeight", "Z_Retraction", tr("Retract Height")}, grid);
    std::tie(dwellButton, dwellTimeEdit) =
        addFieldRow({"dwellButton", "dwellTimeEdit", nullptr, tr("Dwell")}, grid);
    std::tie(peckDepthButton, peckDepthEdit) =
        addFieldRow({"peckDepthButton", "peckDepthEdit", "DepthOfCut", tr("Peck Depth")}, grid);
}

void GCodeWidget::setDefaultTexts() {
    const QFont font(QString::fromLatin1("MS Shell Dlg 2"), kTextPointSize);
    postambleTextEdit->setFont(font);
    textEdit->setFont(font);
    textEdit->setPlainText(
        tr("M3     ; Start spindle clockwise (looking from above down)\n"
           "S6000  ; Spindle RPM\nG4 P60 ; wait for 60 seconds\nS12000 ;\nG4 P60 ;\n"
           "G21    ; Units in mm"));
    postambleTextEdit->setPlainText(tr("G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program"));
}

void GCodeWidget::setValidators() {
    for (QLineEdit* height :
         {zSafeHeightEdit, zRetractEdit, depthOfCut, drillDepth, retractHeight}) {
        limitHeight(height, depthOfCut);
    }
    for (QLineEdit* feed : {feedRateZ, feedRateXY, drillFeedRate}) {
        limitFeed(feed, depthOfCut);
    }
}

void GCodeWidget::connectControls() {
    const auto indexChanged = qOverload<int>(&QComboBox::currentIndexChanged);
    connect(comboBox, indexChanged, this, &GCodeWidget::MainComboIndexChanged);
    connect(drillcomboBox, indexChanged, this, &GCodeWidget::DrillCycleComboIndexChanged);
    connect(generateGCodeBtn, &QPushButton::clicked, this, &GCodeWidget::GenerateGCode);
    connect(saveBtn, &QPushButton::clicked, this, &GCodeWidget::SaveGCode);
    connect(selectFileBtn, &QPushButton::clicked, this, &GCodeWidget::SelectFilePreview);
    connect(HelpPushButton, &QPushButton::clicked, this, &GCodeWidget::OpenHelp);
    connect(mmRadioButton, &QRadioButton::clicked, this, &GCodeWidget::SetDrawingUnit);
    connect(inchRadioButton, &QRadioButton::clicked, this, &GCodeWidget::SetDrawingUnit);
    connect(categoryButton, &QButtonGroup::idClicked, this, &GCodeWidget::CategoryButtonPressed);
    connect(appendPushButton, &QPushButton::clicked, this, &GCodeWidget::AppendFile);
    connectView();
}

void GCodeWidget::CategoryButtonPressed(int id) {
    QTreeWidgetItem* item = categoryGroup.value(id);
    if (item == nullptr) {
        return;
    }
    item->setExpanded(!item->isExpanded());
    const auto icon =
        item->isExpanded() ? QString::fromLatin1("expanded") : QString::fromLatin1("collapsed");
    categoryButton->button(id)->setIcon(QIcon(iconPath(icon)));
    // One tick of the playback, as its timer gives.
    w->update();
}
