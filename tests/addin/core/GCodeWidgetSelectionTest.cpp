// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// How "Generate" finds what is selected, and the order it is taken in.
#include <QTextEdit>

#include "core/PanelTest.h"

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class GenerateSelection : public PanelTest {
protected:
    GenerateSelection() { usePlainSettings(); }

    std::vector<double> sortedX() {
        std::vector<double> all;
        for (const GCode::Entity& entity : panel().GetSortedEntityList()) {
            all.push_back(entity.firstPoint.m_x);
        }
        return all;
    }
};

const char* const kPointProgram =
    "PRE\nG90\nG0 X0Y0\nG01 Z5 F100\nG0 Z10\nG0 X3 Y4 \nG0 Z5\nG01 Z-1 F100\nPOST\n";
const char* const kEmptyProgram = "PRE\nG90\nG0 X0Y0\nPOST\n";

}  // namespace

TEST_F(GenerateSelection, CountIsPrintedWithATrailingBlankAndNothingIsAsked) {
    host.select({pointObject(at(3, 4))});
    EXPECT_EQ(generate(), kPointProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 1 "));
    EXPECT_THAT(host.prompts, IsEmpty());
}

TEST_F(GenerateSelection, CountHasNoDigitGrouping) {
    std::vector<kxObject_ptr> many;
    for (int i = 0; i < 1234; ++i) {
        many.push_back(noteObject());
    }
    host.select(many);
    generate();
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 1234 "));
}

TEST_F(GenerateSelection, NothingSelectedPromptsAndTakesWhatTheUserPicked) {
    const kxObject_ptr point = pointObject(at(3, 4));
    host.add({point});
    host.answer = [&](kxHostDocument_c& /*drawing*/, std::vector<kxObject_ptr>* chosen) {
        *chosen = {point};
        return true;
    };
    EXPECT_EQ(generate(), kPointProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 1 "));
    ASSERT_THAT(host.prompts, SizeIs(1));
    EXPECT_FALSE(host.prompts[0].single);
    EXPECT_EQ(host.prompts[0].prompt, kxString("Select one or more entities"));
    EXPECT_EQ(host.prompts[0].keyword, kxString());
}

TEST_F(GenerateSelection, CancelledPromptTakesThePreviousSet) {
    host.setPrevious({pointObject(at(3, 4))});
    EXPECT_EQ(generate(), kPointProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 1 "));
}

TEST_F(GenerateSelection, CancelledPromptWithoutAPreviousSetWritesTheFrameOnly) {
    EXPECT_EQ(generate(), kEmptyProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 0 "));
    EXPECT_THAT(host.prompts, SizeIs(1));
}

TEST_F(GenerateSelection, CurrentSetIsTakenAgainAfterAPrompt) {
    host.setPrevious({pointObject(at(9, 9))});
    generate();
    host.lines.clear();
    host.select({pointObject(at(3, 4))});
    EXPECT_EQ(generate(), kPointProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 1 "));
}

TEST_F(GenerateSelection, FilterIsClearedBeforeThePrompt) {
    const auto filter = panel().GetKXSelectionManager()->GetSelectionFilter();
    filter->AddType(kxCircleType);
    ASSERT_FALSE(filter->Accepts(kxLineType));
    bool accepts = false;
    host.answer = [&](kxHostDocument_c& /*drawing*/, std::vector<kxObject_ptr>* /*chosen*/) {
        accepts = filter->Accepts(kxLineType);
        return false;
    };
    generate();
    EXPECT_TRUE(accepts);
}

TEST_F(GenerateSelection, FilterIsClearedWithoutAPromptToo) {
    const auto filter = panel().GetKXSelectionManager()->GetSelectionFilter();
    filter->AddType(kxCircleType);
    host.select({pointObject(at(3, 4))});
    generate();
    EXPECT_TRUE(filter->Accepts(kxLineType));
}

TEST_F(GenerateSelection, WithoutADrawingTheFrameIsWritten) {
    host.application()->CloseDocument(host.application()->GetActiveHostDocument().get());
    ASSERT_FALSE(panel().GetKXSelectionManager());
    EXPECT_EQ(generate(), kEmptyProgram);
    EXPECT_THAT(host.lines, ElementsAre("Selected objects: 0 ", "Selected objects: 0 "));
}

TEST_F(GenerateSelection, DrawingThatClosesDuringThePromptEndsInTheFrame) {
    host.answer = [this](kxHostDocument_c& drawing, std::vector<kxObject_ptr>* /*chosen*/) {
        host.application()->CloseDocument(&drawing);
        return false;
    };
    EXPECT_EQ(generate(), kEmptyProgram);
}

TEST_F(GenerateSelection, GenerateDoesNothingWhileAPromptIsOpen) {
    const kxObject_ptr object = pointObject(at(3, 4));
    host.add({object});
    host.answer = [&](kxHostDocument_c& /*drawing*/, std::vector<kxObject_ptr>* chosen) {
        click("generateGCodeBtn");
        chosen->push_back(object);
        return true;
    };
    const std::string once = generate();
    EXPECT_THAT(once, testing::HasSubstr("G0 X3 Y4 \n"));
    EXPECT_EQ(once.find("POST"), once.rfind("POST"));
    EXPECT_EQ(programCount(), 1U);
    EXPECT_EQ(host.prompts.size(), 1U);
    EXPECT_EQ(generate(), once);
}

TEST_F(GenerateSelection, HostThatClosesThePanelDuringThePromptEndsGenerating) {
    auto* panelOfItsOwn = new GCodeWidget(host.application(), nullptr);
    host.answer = [&](kxHostDocument_c& /*drawing*/, std::vector<kxObject_ptr>* /*chosen*/) {
        delete panelOfItsOwn;
        return false;
    };
    panelOfItsOwn->GenerateGCode();
    EXPECT_THAT(host.lines, testing::ElementsAre("Selected objects: 0 "));
}

TEST_F(GenerateSelection, ManagerIsThatOfTheActiveDrawing) {
    const auto first = panel().GetKXSelectionManager();
    ASSERT_TRUE(first);
    host.open();
    EXPECT_NE(panel().GetKXSelectionManager(), first);
}

TEST_F(GenerateSelection, EveryObjectIsListedInTheOrderOfSelection) {
    host.select({noteObject(), lineObject(at(1, 2, 3), at(4, 5, 6)), circleObject(at(7, 8), 2)});
    const auto entities = panel().GetListOfEntities();
    ASSERT_THAT(entities, SizeIs(3));
    EXPECT_EQ(entities[0].type, kxSimpleNoteType);
    EXPECT_EQ(entities[1].type, kxLineType);
    EXPECT_EQ(entities[1].secondPoint.m_z, 6);
    EXPECT_EQ(entities[2].type, kxCircleType);
    EXPECT_EQ(entities[2].firstPoint.m_y, 8);
}

TEST_F(GenerateSelection, OfTwoEquallyNearLinesTheLaterGoesFirst) {
    host.select({lineObject(at(5, 0), at(9, 0)), lineObject(at(0, 5), at(0, 9))});
    EXPECT_THAT(sortedX(), ElementsAre(0, 5));
}

TEST_F(GenerateSelection, OfTwoEquallyNearPointsTheEarlierGoesFirst) {
    host.select({pointObject(at(5, 0)), pointObject(at(0, 5))});
    EXPECT_THAT(sortedX(), ElementsAre(5, 0));
}

TEST_F(GenerateSelection, DistanceIsEuclideanInThreeDimensions) {
    EXPECT_THAT(panel().GetDistance({1, 2, 3}, {3, 5, 9}), DoubleEq(7));
}

TEST_F(GenerateSelection, RoundedDifferenceHasADeadBandOfAHundredth) {
    EXPECT_EQ(panel().DeltaFunction(5.0, 4.995), 0);
    EXPECT_NEAR(panel().DeltaFunction(5.0, 4.98), 0.0199, 1e-12);
    EXPECT_DOUBLE_EQ(panel().DeltaFunction(3.00004, 0), 3.0001);
}
