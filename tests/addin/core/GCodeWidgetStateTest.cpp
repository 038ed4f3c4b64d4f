// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What the panel shows: at the start, and after the combos and headers were used.
#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>

#include "core/PanelResources.h"
#include "core/PanelTest.h"

namespace {

struct Shown {
    int page = 0;
    bool dwell = false;
    bool peck = false;
};

bool operator==(const Shown& a, const Shown& b) {
    return a.page == b.page && a.dwell == b.dwell && a.peck == b.peck;
}

void PrintTo(const Shown& shown, std::ostream* out) {
    *out << "page " << shown.page << (shown.dwell ? ", dwell" : "") << (shown.peck ? ", peck" : "");
}

class PanelState : public PanelTest {
protected:
    Shown shown() {
        EXPECT_EQ(edit("peckDepthEdit")->isHidden(), child<QLabel>("peckDepthButton")->isHidden());
        EXPECT_TRUE(child<QLabel>("dwellButton")->isHidden());
        return {child<QStackedWidget>("stackedWidget")->currentIndex(),
                !edit("dwellTimeEdit")->isHidden(), !edit("peckDepthEdit")->isHidden()};
    }
    void choose(int mode) { combo("comboBox")->setCurrentIndex(mode); }
    void chooseCycle(int cycle) { combo("drillcomboBox")->setCurrentIndex(cycle); }

    QTreeWidgetItem* category(int id) {
        return child<QTreeWidget>("GCodeTreeWidget")->topLevelItem(id);
    }
    QAbstractButton* header(int id) { return child<QButtonGroup>("categoryButton")->button(id); }
};

QImage pictureOf(const QAbstractButton& button) {
    return button.icon().pixmap(32, 32).toImage();
}

QImage pictureOf(const char* name) {
    return QIcon(iconPath(name)).pixmap(32, 32).toImage();
}

}  // namespace

TEST_F(PanelState, ToolPathAndG81AreChosenAtTheStartAndThePeckFieldIsNotHidden) {
    EXPECT_EQ(combo("comboBox")->currentIndex(), 0);
    EXPECT_EQ(combo("drillcomboBox")->currentIndex(), 0);
    EXPECT_EQ(shown(), (Shown{0, false, true}));
}

TEST_F(PanelState, DrillCycleForTheFirstTimeShowsThePeckFieldThoughG81IsChosen) {
    choose(1);
    EXPECT_EQ(shown(), (Shown{1, false, true}));
    EXPECT_TRUE(edit("peckDepthEdit")->isVisible());
    EXPECT_TRUE(child<QLabel>("peckDepthButton")->isVisible());
}

TEST_F(PanelState, ToolPathHidesThePeckFieldAndDrillCycleWithG81DoesNotShowItAgain) {
    choose(1);
    choose(0);
    EXPECT_EQ(shown(), (Shown{0, false, false}));
    choose(1);
    EXPECT_EQ(shown(), (Shown{1, false, false}));
}

TEST_F(PanelState, CyclesShowTheirOwnFields) {
    choose(1);
    chooseCycle(1);
    EXPECT_EQ(shown(), (Shown{1, true, false}));
    chooseCycle(2);
    EXPECT_EQ(shown(), (Shown{1, false, true}));
    chooseCycle(0);
    EXPECT_EQ(shown(), (Shown{1, false, false}));
}

TEST_F(PanelState, DrillCycleShowsThePeckFieldAtOnceWhenG83IsChosen) {
    choose(1);
    chooseCycle(2);
    choose(0);
    EXPECT_EQ(shown(), (Shown{0, false, false}));
    choose(1);
    EXPECT_EQ(shown(), (Shown{1, false, true}));
}

TEST_F(PanelState, DwellFieldStaysAsItIsWhenTheModeChanges) {
    choose(1);
    chooseCycle(1);
    choose(0);
    EXPECT_EQ(shown(), (Shown{0, true, false}));
    choose(1);
    EXPECT_EQ(shown(), (Shown{1, true, false}));
}

TEST_F(PanelState, UnknownCycleChangesNothingThatIsShown) {
    chooseCycle(1);
    panel().DrillCycleComboIndexChanged(3);
    EXPECT_EQ(shown(), (Shown{0, true, false}));
    panel().DrillCycleComboIndexChanged(-1);
    EXPECT_EQ(shown(), (Shown{0, true, false}));
}

TEST_F(PanelState, CombosAreUsedWithTheKeyboard) {
    QTest::keyClick(combo("comboBox"), Qt::Key_Down);
    EXPECT_EQ(shown().page, 1);
    QTest::keyClick(combo("drillcomboBox"), Qt::Key_End);
    EXPECT_EQ(shown(), (Shown{1, false, true}));
}

TEST_F(PanelState, EveryCategoryStartsExpandedWithTheExpandedIcon) {
    ASSERT_NE(pictureOf("expanded"), pictureOf("collapsed"));
    for (int id = 0; id < 7; ++id) {
        EXPECT_TRUE(category(id)->isExpanded()) << id;
        EXPECT_EQ(pictureOf(*header(id)), pictureOf("expanded")) << id;
    }
}

TEST_F(PanelState, ClickOnAHeaderCollapsesItsCategoryOnly) {
    for (int id = 0; id < 7; ++id) {
        QTest::mouseClick(header(id), Qt::LeftButton);
        EXPECT_FALSE(category(id)->isExpanded()) << id;
        EXPECT_EQ(pictureOf(*header(id)), pictureOf("collapsed")) << id;
        for (int other = id + 1; other < 7; ++other) {
            EXPECT_TRUE(category(other)->isExpanded()) << id << ' ' << other;
        }
    }
}

TEST_F(PanelState, SecondClickOnAHeaderExpandsItAgainWithTheExpandedIcon) {
    for (int id = 0; id < 7; ++id) {
        QTest::mouseClick(header(id), Qt::LeftButton);
        QTest::mouseClick(header(id), Qt::LeftButton);
        EXPECT_TRUE(category(id)->isExpanded()) << id;
        EXPECT_EQ(pictureOf(*header(id)), pictureOf("expanded")) << id;
    }
}

TEST_F(PanelState, UnknownHeaderIdChangesNothing) {
    panel().CategoryButtonPressed(-1);
    panel().CategoryButtonPressed(99);
    for (int id = 0; id < 7; ++id) {
        EXPECT_TRUE(category(id)->isExpanded()) << id;
    }
}

TEST_F(PanelState, CollapsingKeepsTheSettings) {
    put("feedRateXY", "300");
    QTest::mouseClick(header(5), Qt::LeftButton);
    QTest::mouseClick(header(5), Qt::LeftButton);
    EXPECT_EQ(edit("feedRateXY")->text().toStdString(), "300");
}
