// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// Every control of the panel: its text, look and size.
#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHoverEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTextEdit>
#include <QTranslator>
#include <QTreeWidget>

#include "core/PanelResources.h"
#include "core/PanelTest.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

const char* const kComboStyle =
    "background-color: rgb(255, 255, 255);selection-background-color: rgb(52,140,196); "
    "padding-left: 5px;padding-bottom: 3px;padding-top: 3px;";
const char* const kHoverStyle =
    "QPushButton:hover{background:qlineargradient(x1:0,y1:0,x2:0,y2:1,stop:0.0 "
    "rgb(223,229,255),stop:0.5 rgb(223,229,255),stop:0.55 rgb(223,229,255),stop:1.0 "
    "rgb(223,229,255));}";
const char* const kWhite = "background-color: rgb(255, 255, 255);";
const char* const kWhiteTextEdit = "QTextEdit{background-color: rgb(255, 255, 255);}";

class PanelLayout : public PanelTest {
protected:
    QTreeWidget* tree() { return child<QTreeWidget>("GCodeTreeWidget"); }
    QAbstractButton* header(int id) { return child<QButtonGroup>("categoryButton")->button(id); }
    QFrame* frame(int id) {
        QTreeWidgetItem* content = tree()->topLevelItem(id)->child(0);
        return qobject_cast<QFrame*>(tree()->itemWidget(content, 0));
    }
    std::string styleOf(const char* name) {
        return child<QWidget>(name)->styleSheet().toStdString();
    }
    std::string frameStyle(int id) { return frame(id)->styleSheet().toStdString(); }
    bool isIn(const char* name, int id) { return frame(id)->isAncestorOf(child<QWidget>(name)); }
};

std::vector<std::string> itemsOf(const QComboBox& combo) {
    std::vector<std::string> items;
    for (int i = 0; i < combo.count(); ++i) {
        items.push_back(combo.itemText(i).toStdString());
    }
    return items;
}

QImage pictureOf(const QString& path) {
    return QIcon(path).pixmap(32, 32).toImage();
}

const QPoint kInside(3, 10);

/// Does what the window system does when the pointer comes over a button. The pointer itself can't
/// be moved on every platform.
void hover(QPushButton* button) {
    button->setAttribute(Qt::WA_UnderMouse, true);
    QHoverEvent enter(QEvent::HoverEnter, kInside, QPointF(-1, -1));
    QApplication::sendEvent(button, &enter);
    QMouseEvent move(QEvent::MouseMove, kInside, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(button, &move);
}

struct IconButton {
    const char* name;
    const char* toolTip;
    const char* icon;
};

constexpr IconButton kIconButtons[] = {
    {"generateGCodeBtn", "Generate", ":/gcodeaddin/Resource/Generate_32x-32.svg"},
    {"selectFileBtn", "Select file", ":/gcodeaddin/Resource/Open_32x-32.svg"},
    {"saveBtn", "Save", ":/gcodeaddin/Resource/Save_32x-32.svg"},
    {"HelpPushButton", "Help", ":/gcodeaddin/Resource/help_32x-32.svg"}};

struct Field {
    int page;
    const char* edit;
    const char* label;
    const char* icon;
    const char* placeholder;
};

constexpr Field kFields[] = {
    {0, "zSafeHeightEdit", "zSafeHeightButton", "Z_SafeHeight", "Z Safe Height"},
    {0, "zRetractEdit", "zRetractionButton", "Z_Retraction", "Z Retraction"},
    {0, "feedRateZ", "feedRateZButton", "Z_FeedRate", "FeedRate Z"},
    {0, "feedRateXY", "feedRateXYButton", "XY_FeedRate", "FeedRate XY"},
    {0, "depthOfCut", "depthOfCutButton", "DepthOfCut", "Depth of Cut"},
    {1, "drillFeedRate", "drillFeedRateButton", "Z_FeedRate", "Drill Feed Rate"},
    {1, "drillDepth", "depthButton", "DepthOfCut", "Depth"},
    {1, "retractHeight", "retractHeightButton", "Z_Retraction", "Retract Height"},
    {1, "dwellTimeEdit", "dwellButton", nullptr, "Dwell"},
    {1, "peckDepthEdit", "peckDepthButton", "DepthOfCut", "Peck Depth"}};

/// Translates every text to the text in brackets.
class Brackets : public QTranslator {
public:
    Brackets() { QCoreApplication::installTranslator(this); }
    QString translate(const char* context, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override {
        return qstrcmp(context, "GCodeWidget") == 0 ? QString("[%1]").arg(text) : QString();
    }
    bool isEmpty() const override { return false; }
};

class TranslatedPanel : private Brackets, public PanelTest {};

}  // namespace

TEST_F(PanelLayout, FormHasItsNamedParts) {
    ASSERT_NE(panel().findChild<QGridLayout*>("gridLayout"), nullptr);
    EXPECT_EQ(panel().layout(), panel().findChild<QGridLayout*>("gridLayout"));
    auto* outer = child<QFrame>("GCodeFrame");
    EXPECT_EQ(outer->parentWidget(), &panel());
    EXPECT_EQ(outer->size(), panel().size());
    EXPECT_EQ(outer->layout()->objectName(), QString("gridLayout_2"));
    EXPECT_EQ(tree()->parentWidget(), outer);
    EXPECT_NE(tree()->headerItem(), nullptr);
}

TEST_F(PanelLayout, StyleSheetIsThatOfTheResourceOnPanelAndTree) {
    EXPECT_EQ(static_cast<QWidget&>(panel()).styleSheet(), panelStyleSheet());
    EXPECT_EQ(tree()->styleSheet(), panelStyleSheet());
}

TEST_F(PanelLayout, CategoriesHaveTheirTextsInOrder) {
    ASSERT_EQ(tree()->topLevelItemCount(), 7);
    ASSERT_EQ(child<QButtonGroup>("categoryButton")->buttons().size(), 7);
    const char* const titles[] = {
        "Comments", "Path and drill cycle",     "Preamble",   "Postscript",
        "Units",    "Retraction and feed rate", "View Window"};
    for (int id = 0; id < 7; ++id) {
        EXPECT_EQ(header(id)->text().toStdString(), titles[id]);
        EXPECT_EQ(tree()->itemWidget(tree()->topLevelItem(id), 0), header(id));
        EXPECT_EQ(child<QButtonGroup>("categoryButton")->id(header(id)), id);
    }
}

TEST_F(PanelLayout, HeadersAreBoldTurnedRoundAndOfAFixedHeight) {
    for (int id = 0; id < 7; ++id) {
        EXPECT_TRUE(header(id)->inherits("QtCategoryButton"));
        EXPECT_TRUE(header(id)->font().bold());
        EXPECT_EQ(header(id)->font().weight(), 75);
        EXPECT_EQ(header(id)->layoutDirection(), Qt::RightToLeft);
        EXPECT_EQ(header(id)->minimumHeight(), 28);
        EXPECT_EQ(header(id)->maximumHeight(), 28);
        EXPECT_EQ(header(id)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        EXPECT_EQ(header(id)->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        EXPECT_EQ(header(id)->iconSize(), QSize(18, 18));
    }
}

TEST_F(PanelLayout, HeadersArePaleBlueWithAGreyBorderBelowAMarginOfSix) {
    for (int id = 0; id < 7; ++id) {
        const QImage picture = header(id)->grab().toImage();
        const int middle = picture.width() / 2;
        EXPECT_EQ(picture.pixelColor(middle, 6), QColor(130, 135, 144)) << id;
        EXPECT_EQ(picture.pixelColor(middle, 7), QColor(223, 229, 255)) << id;
        EXPECT_EQ(picture.pixelColor(middle, 26), QColor(223, 229, 255)) << id;
        EXPECT_EQ(picture.pixelColor(middle, 27), QColor(130, 135, 144)) << id;
    }
}

TEST_F(PanelLayout, EachCategoryHasOneChildThatCannotBeSelected) {
    for (int id = 0; id < 7; ++id) {
        const QTreeWidgetItem* item = tree()->topLevelItem(id);
        ASSERT_EQ(item->childCount(), 1);
        EXPECT_FALSE(item->child(0)->flags() & Qt::ItemIsSelectable);
        ASSERT_NE(frame(id), nullptr);
        EXPECT_EQ(frame(id)->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        EXPECT_EQ(frame(id)->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    }
}

TEST_F(PanelLayout, FramesHaveTheirStyles) {
    for (const int id : {0, 4, 5, 6}) {
        EXPECT_EQ(frameStyle(id), "margin-bottom: 2px;");
    }
    EXPECT_THAT(frameStyle(1), HasSubstr("margin-bottom: 2px;"));
    EXPECT_THAT(frameStyle(1), HasSubstr(kHoverStyle));
    EXPECT_EQ(frameStyle(2), "QFrame{margin-bottom: 2px;}");
    EXPECT_EQ(frameStyle(3), "QFrame{margin-bottom: 2px;}");
}

TEST_F(PanelLayout, CommentBoxIsAtMost30HighAndWhite) {
    EXPECT_TRUE(isIn("m_CommentTextEdit", 0));
    EXPECT_EQ(textBox("m_CommentTextEdit")->maximumHeight(), 30);
    EXPECT_EQ(styleOf("m_CommentTextEdit"), kWhite);
    EXPECT_EQ(textOf("m_CommentTextEdit"), "");
}

TEST_F(PanelLayout, ModeComboOffersToolPathAndDrillCycle) {
    EXPECT_TRUE(isIn("comboBox", 1));
    EXPECT_THAT(itemsOf(*combo("comboBox")), ElementsAre("2D Toolpath", "Drill Cycle"));
    EXPECT_EQ(combo("comboBox")->toolTip(), QString("G-code type"));
    EXPECT_EQ(combo("comboBox")->maximumHeight(), 30);
    EXPECT_EQ(styleOf("comboBox"), kComboStyle);
}

TEST_F(PanelLayout, IconButtonsHaveTheirToolTipIconSizeAndBorder) {
    for (const IconButton& expected : kIconButtons) {
        const QPushButton* found = button(expected.name);
        EXPECT_TRUE(isIn(expected.name, 1));
        EXPECT_EQ(found->toolTip(), QString(expected.toolTip));
        EXPECT_EQ(found->text(), QString());
        EXPECT_EQ(found->icon().pixmap(32, 32).toImage(), pictureOf(expected.icon))
            << expected.name;
        EXPECT_EQ(found->minimumSize(), QSize(28, 28)) << expected.name;
        EXPECT_EQ(found->maximumSize(), QSize(28, 28)) << expected.name;
        EXPECT_EQ(styleOf(expected.name), "QPushButton{border: 1px solid rgb(205,201,201);}");
    }
}

TEST_F(PanelLayout, AppendButtonHasATextInsteadOfAnIcon) {
    const QPushButton* append = button("appendPushButton");
    EXPECT_TRUE(isIn("appendPushButton", 1));
    EXPECT_EQ(append->text(), QString("Append"));
    EXPECT_EQ(append->toolTip(), QString("Append"));
    EXPECT_EQ(append->minimumSize(), QSize(80, 28));
    EXPECT_EQ(append->maximumSize(), QSize(80, 28));
    EXPECT_EQ(styleOf("appendPushButton"), "QPushButton{border: 1px solid rgb(205,201,201);}");
}

TEST_F(PanelLayout, ButtonsStandInTheirOrderFromLeftToRight) {
    int last = -1;
    for (const char* name :
         {"generateGCodeBtn", "selectFileBtn", "saveBtn", "HelpPushButton", "appendPushButton"}) {
        EXPECT_GT(button(name)->x(), last) << name;
        last = button(name)->x();
    }
}

TEST_F(PanelLayout, ButtonUnderThePointerTurnsPaleBlue) {
    const QColor hovered(223, 229, 255);
    for (const char* name : {"generateGCodeBtn", "appendPushButton"}) {
        QPushButton* found = button(name);
        EXPECT_NE(found->grab().toImage().pixelColor(kInside), hovered) << name;
        hover(found);
        EXPECT_EQ(found->grab().toImage().pixelColor(kInside), hovered) << name;
    }
}

TEST_F(PanelLayout, PreambleBoxHasItsLookFontAndText) {
    const QTextEdit* box = textBox("textEdit");
    EXPECT_TRUE(isIn("textEdit", 2));
    EXPECT_EQ(box->maximumHeight(), 50);
    EXPECT_EQ(styleOf("textEdit"), kWhiteTextEdit);
    EXPECT_EQ(box->font().family(), QString("MS Shell Dlg 2"));
    EXPECT_EQ(box->font().pointSize(), 10);
    EXPECT_EQ(textOf("textEdit"),
              "M3     ; Start spindle clockwise (looking from above down)\nS6000  ; Spindle RPM\n"
              "G4 P60 ; wait for 60 seconds\nS12000 ;\nG4 P60 ;\nG21    ; Units in mm");
}

TEST_F(PanelLayout, LineNumberBoxHasItsLookAndALabel) {
    const auto* box = child<QCheckBox>("lineNumberCheckBox");
    EXPECT_TRUE(isIn("lineNumberCheckBox", 2));
    EXPECT_TRUE(isIn("lineNumberLabel", 2));
    EXPECT_FALSE(box->isChecked());
    EXPECT_EQ(box->text(), QString());
    EXPECT_EQ(box->maximumHeight(), 20);
    EXPECT_EQ(styleOf("lineNumberCheckBox"),
              "QCheckBox::indicator {subcontrol-position: left top;} "
              "QCheckBox::indicator::checked {image: "
              "url(:/gcodeaddin/Resource/CheckBox_Mac_32x-32.svg);}");
    EXPECT_EQ(child<QLabel>("lineNumberLabel")->text(), QString("Show line numbers"));
}

TEST_F(PanelLayout, PostscriptBoxHasItsLookFontAndText) {
    const QTextEdit* box = textBox("postambleTextEdit");
    EXPECT_TRUE(isIn("postambleTextEdit", 3));
    EXPECT_EQ(box->maximumHeight(), 50);
    EXPECT_EQ(styleOf("postambleTextEdit"), kWhiteTextEdit);
    EXPECT_EQ(box->font().family(), QString("MS Shell Dlg 2"));
    EXPECT_EQ(box->font().pointSize(), 10);
    EXPECT_EQ(textOf("postambleTextEdit"), "G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program");
}

TEST_F(PanelLayout, UnitControlsHaveTheirTextsAndOrder) {
    for (const char* name : {"mmRadioButton", "inchRadioButton", "unitComboBox"}) {
        EXPECT_TRUE(isIn(name, 4)) << name;
    }
    EXPECT_EQ(child<QRadioButton>("mmRadioButton")->text(), QString("mm"));
    EXPECT_EQ(child<QRadioButton>("inchRadioButton")->text(), QString("inch"));
    EXPECT_TRUE(child<QRadioButton>("mmRadioButton")->isChecked());
    EXPECT_THAT(itemsOf(*combo("unitComboBox")), ElementsAre("Relative", "Absolute"));
    EXPECT_EQ(combo("unitComboBox")->currentIndex(), 0);
    EXPECT_EQ(combo("unitComboBox")->maximumHeight(), 30);
    EXPECT_EQ(styleOf("unitComboBox"), kComboStyle);
}

TEST_F(PanelLayout, FeedCategoryHasTwoPagesAtMost170High) {
    const auto* stack = child<QStackedWidget>("stackedWidget");
    EXPECT_TRUE(isIn("stackedWidget", 5));
    EXPECT_EQ(stack->count(), 2);
    EXPECT_EQ(stack->currentIndex(), 0);
    EXPECT_EQ(stack->maximumHeight(), 170);
}

TEST_F(PanelLayout, DrillComboOffersThreeCycles) {
    EXPECT_TRUE(
        child<QStackedWidget>("stackedWidget")->widget(1)->isAncestorOf(combo("drillcomboBox")));
    EXPECT_THAT(
        itemsOf(*combo("drillcomboBox")),
        ElementsAre("G81 (Drill cycle)", "G82 (Drill cycle with dwell)", "G83 (Peck drill cycle)"));
    EXPECT_EQ(combo("drillcomboBox")->maximumHeight(), 30);
    EXPECT_EQ(styleOf("drillcomboBox"), kComboStyle);
}

TEST_F(PanelLayout, FieldsHaveTheirPageLabelAndPlaceholderAndAreEmpty) {
    for (const Field& field : kFields) {
        const QWidget* page = child<QStackedWidget>("stackedWidget")->widget(field.page);
        const auto* label = child<QLabel>(field.label);
        EXPECT_TRUE(page->isAncestorOf(edit(field.edit))) << field.edit;
        EXPECT_TRUE(page->isAncestorOf(label)) << field.label;
        EXPECT_EQ(label->minimumSize(), QSize(30, 30)) << field.label;
        EXPECT_EQ(label->maximumSize(), QSize(30, 30)) << field.label;
        EXPECT_EQ(edit(field.edit)->placeholderText(), QString(field.placeholder));
        EXPECT_EQ(edit(field.edit)->text(), QString()) << field.edit;
        EXPECT_EQ(styleOf(field.edit), kWhite) << field.edit;
    }
}

TEST_F(PanelLayout, FieldLabelsHoldThePictureOfTheirFile) {
    for (const Field& field : kFields) {
        const QPixmap held = child<QLabel>(field.label)->pixmap(Qt::ReturnByValue);
        EXPECT_EQ(held.isNull(), field.icon == nullptr) << field.label;
        if (held.isNull() || field.icon == nullptr) {
            continue;
        }
        const QImage image = held.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const QImage expected = QIcon(iconPath(field.icon)).pixmap(image.size()).toImage();
        EXPECT_EQ(image, expected.convertToFormat(image.format())) << field.label;
    }
}

TEST_F(PanelLayout, FieldsStandBelowEachOtherInTheirOrder) {
    for (const int page : {0, 1}) {
        combo("comboBox")->setCurrentIndex(page);
        edit("dwellTimeEdit")->show();
        edit("peckDepthEdit")->show();
        QApplication::processEvents();
        int last = page == 0 ? -1 : combo("drillcomboBox")->y();
        for (const Field& field : kFields) {
            if (field.page == page) {
                EXPECT_GT(edit(field.edit)->y(), last) << field.edit;
                last = edit(field.edit)->y();
            }
        }
    }
}

TEST_F(PanelLayout, ActionsAreSlotsAndTheProgramIsASignal) {
    const QMetaObject* meta = panel().metaObject();
    EXPECT_GE(meta->indexOfSignal("GCodeGenFinish(QString)"), 0);
    EXPECT_GE(meta->indexOfSignal("Simulate(int)"), 0);
    for (const char* slot :
         {"GenerateGCode()", "SaveGCode()", "AppendFile()", "SelectFilePreview()", "OpenHelp()",
          "ClearPreviousPreview()", "SimulateButtonClicked()", "SetDrawingUnit()",
          "MainComboIndexChanged(int)", "DrillCycleComboIndexChanged(int)",
          "CategoryButtonPressed(int)"}) {
        EXPECT_GE(meta->indexOfSlot(slot), 0) << slot;
    }
}

TEST_F(TranslatedPanel, TextsOfThePanelAndItsMessagesAreTranslated) {
    EXPECT_EQ(child<QButtonGroup>("categoryButton")->button(0)->text(), QString("[Comments]"));
    EXPECT_EQ(button("saveBtn")->toolTip(), QString("[Save]"));
    EXPECT_EQ(edit("feedRateXY")->placeholderText(), QString("[FeedRate XY]"));
    EXPECT_EQ(textOf("postambleTextEdit"), "[G0 Z50;\nSafe height G0 X0 Y0;\nM30; Rewind program]");
    generate();
    EXPECT_THAT(host.lines, ElementsAre("[Selected objects: 0 ]", "[Selected objects: 0 ]"));
    EXPECT_EQ(host.prompts.at(0).prompt, kxString("[Select one or more entities]"));
}
