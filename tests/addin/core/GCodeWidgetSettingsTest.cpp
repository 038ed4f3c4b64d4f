// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The drawing's unit in the preamble, and what the fields let through.
#include <QComboBox>
#include <QDoubleValidator>
#include <QIntValidator>
#include <QLineEdit>
#include <QLocale>
#include <QRadioButton>
#include <QTextEdit>

#include "core/PanelTest.h"

namespace {

const char* const kHeightFields[] = {"zSafeHeightEdit", "zRetractEdit", "depthOfCut", "drillDepth",
                                     "retractHeight"};
const char* const kFeedFields[] = {"feedRateZ", "feedRateXY", "drillFeedRate"};

/// Makes numbers of the process's default locale have a decimal comma, as long as it lives.
class CommaDefault {
public:
    CommaDefault() { QLocale::setDefault(QLocale(QLocale::German)); }
    ~CommaDefault() { QLocale::setDefault(QLocale::c()); }
    CommaDefault(const CommaDefault&) = delete;
    CommaDefault& operator=(const CommaDefault&) = delete;
};

class DrawingUnit : public PanelTest {
protected:
    bool isMm() { return child<QRadioButton>("mmRadioButton")->isChecked(); }
    bool isInch() { return child<QRadioButton>("inchRadioButton")->isChecked(); }
    std::string lastPreambleLine() {
        return textOf("textEdit").substr(textOf("textEdit").rfind('\n') + 1);
    }
};

class CommaLocalePanel : private CommaDefault, public PanelTest {};

}  // namespace

TEST_F(DrawingUnit, StartsAsMillimetres) {
    EXPECT_TRUE(isMm());
    EXPECT_FALSE(isInch());
    EXPECT_EQ(lastPreambleLine(), "G21    ; Units in mm");
}

TEST_F(DrawingUnit, InchesRewriteTheLastDefaultLineAndMillimetresRestoreIt) {
    const std::string before = textOf("textEdit");
    click("inchRadioButton");
    EXPECT_TRUE(isInch());
    EXPECT_EQ(lastPreambleLine(), "G20    ; Units in inch");
    click("mmRadioButton");
    EXPECT_TRUE(isMm());
    EXPECT_EQ(textOf("textEdit"), before);
}

TEST_F(DrawingUnit, ReplacementsReachInsideWords) {
    textBox("textEdit")->setPlainText("; Comment\nG210 xG21y");
    click("inchRadioButton");
    EXPECT_EQ(textOf("textEdit"), "; Coinchent\nG200 xG20y");
    click("mmRadioButton");
    EXPECT_EQ(textOf("textEdit"), "; Comment\nG210 xG21y");
}

TEST_F(DrawingUnit, ReplacementsAreCaseSensitive) {
    textBox("textEdit")->setPlainText("g21 MM Mm INCH");
    click("inchRadioButton");
    EXPECT_EQ(textOf("textEdit"), "g21 MM Mm INCH");
}

TEST_F(DrawingUnit, EveryPlaceIsReplaced) {
    textBox("textEdit")->setPlainText("G21 mmmm G21\ninch");
    click("inchRadioButton");
    EXPECT_EQ(textOf("textEdit"), "G20 inchinch G20\ninch");
}

TEST_F(DrawingUnit, PostscriptAndCommentAreLeftAlone) {
    textBox("postambleTextEdit")->setPlainText("G21 mm");
    textBox("m_CommentTextEdit")->setPlainText("G21 mm");
    click("inchRadioButton");
    EXPECT_EQ(textOf("postambleTextEdit"), "G21 mm");
    EXPECT_EQ(textOf("m_CommentTextEdit"), "G21 mm");
}

TEST_F(DrawingUnit, ZeroFromTheHostMeansInches) {
    panel().SetActiveDrawingUnit(0);
    EXPECT_TRUE(isInch());
    EXPECT_FALSE(isMm());
    EXPECT_EQ(lastPreambleLine(), "G20    ; Units in inch");
}

TEST_F(DrawingUnit, AnyOtherValueFromTheHostMeansMillimetres) {
    for (const long value : {1L, 2L, -1L, 32767L}) {
        panel().SetActiveDrawingUnit(0);
        panel().SetActiveDrawingUnit(value);
        EXPECT_TRUE(isMm()) << value;
        EXPECT_FALSE(isInch()) << value;
        EXPECT_EQ(lastPreambleLine(), "G21    ; Units in mm") << value;
    }
}

TEST_F(DrawingUnit, HostsUnitSendsTheButtonsClickedSignal) {
    const QSignalSpy inch(child<QRadioButton>("inchRadioButton"), &QRadioButton::clicked);
    const QSignalSpy mm(child<QRadioButton>("mmRadioButton"), &QRadioButton::clicked);
    panel().SetActiveDrawingUnit(0);
    EXPECT_EQ(inch.count(), 1);
    EXPECT_EQ(mm.count(), 0);
    panel().SetActiveDrawingUnit(1);
    EXPECT_EQ(inch.count(), 1);
    EXPECT_EQ(mm.count(), 1);
}

TEST_F(PanelTest, HeightFieldsTakeTwoDecimalsFromMinus999To1) {
    for (const char* name : kHeightFields) {
        const auto* validator = qobject_cast<const QDoubleValidator*>(edit(name)->validator());
        ASSERT_NE(validator, nullptr) << name;
        EXPECT_EQ(validator->bottom(), -999) << name;
        EXPECT_EQ(validator->top(), 1) << name;
        EXPECT_EQ(validator->decimals(), 2) << name;
    }
}

TEST_F(PanelTest, FeedFieldsTakeWholeNumbersFromOneToTenMillion) {
    for (const char* name : kFeedFields) {
        const auto* validator = qobject_cast<const QIntValidator*>(edit(name)->validator());
        ASSERT_NE(validator, nullptr) << name;
        EXPECT_EQ(validator->bottom(), 1) << name;
        EXPECT_EQ(validator->top(), 10000000) << name;
    }
}

TEST_F(PanelTest, DwellAndPeckFieldsTakeAnything) {
    EXPECT_EQ(edit("dwellTimeEdit")->validator(), nullptr);
    EXPECT_EQ(edit("peckDepthEdit")->validator(), nullptr);
}

TEST_F(PanelTest, AllValidatorsBelongToTheDepthOfCutField) {
    EXPECT_EQ(edit("depthOfCut")->findChildren<QDoubleValidator*>().size(), 5);
    EXPECT_EQ(edit("depthOfCut")->findChildren<QIntValidator*>().size(), 3);
    for (const char* name : kHeightFields) {
        EXPECT_TRUE(edit("depthOfCut")
                        ->children()
                        .contains(const_cast<QValidator*>(edit(name)->validator())))
            << name;
    }
}

TEST_F(PanelTest, HeightFieldsDropTypedLettersAndAThirdDecimal) {
    for (const char* name : kHeightFields) {
        type(name, "x-1z2.345");
        EXPECT_EQ(edit(name)->text().toStdString(), "-12.34") << name;
    }
}

TEST_F(PanelTest, FeedFieldsDropASignAndAPoint) {
    for (const char* name : kFeedFields) {
        type(name, "-2.50");
        EXPECT_EQ(edit(name)->text().toStdString(), "250") << name;
    }
}

TEST_F(CommaLocalePanel, HeightFieldsTakeAPointAndDropACommaAllTheSame) {
    for (const char* name : kHeightFields) {
        type(name, "-1.5");
        EXPECT_EQ(edit(name)->text().toStdString(), "-1.5") << name;
        EXPECT_TRUE(edit(name)->hasAcceptableInput()) << name;
        type(name, "1.5");
        EXPECT_EQ(edit(name)->text().toStdString(), "1.5") << name;
        type(name, "1,5");
        EXPECT_EQ(edit(name)->text().toStdString(), "15") << name;
    }
}

TEST_F(CommaLocalePanel, GenerationReadsAndWritesPoints) {
    usePlainSettings();
    put("feedRateXY", "2.5");
    host.select({lineObject(at(0, 0), at(1234.5, 0.25))});
    EXPECT_EQ(generate(), "PRE\nG90\nG0 X0Y0\nG01 X1234.5 Y0.25 F2.5\nPOST\n");
}
