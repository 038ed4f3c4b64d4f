// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "commandline/SelectionPrompt.h"

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QtTest>

#include <kx/host/kxGeometryFactory.h>
#include <kx/host/kxHostApplication.h>
#include <kx/kxCommandMessage.h>

namespace {

using Objects = std::vector<kxObject_ptr>;

kxObject_ptr pointOn(const char* layer, double x) {
    return kxCreatePoint(kxString(layer), {x, 0, 0});
}

/// A host that answers prompts with the tested one, and a drawing with four points of which the
/// last lies on the layer "tools".
class SelectionPromptTest : public testing::Test {
protected:
    SelectionPromptTest() {
        kxHostCallbacks callbacks;
        callbacks.promptForSelection = [this](kxHostDocument_c& asked,
                                              const kxSelectionRequest& request, Objects* chosen) {
            const auto answer = prompt->run(&asked, request);
            if (answer) {
                *chosen = *answer;
            }
            return answer.has_value();
        };
        application = kxCreateHostApplication(callbacks);
        document = application->AddDocument(kxString("a"), false);
        application->SetActiveDocument(document.get());
        document->SetObjects(points);
    }
    ~SelectionPromptTest() override {
        // The prompt knows the application's drawing.
        prompt.reset();
    }

    /// Runs an action once the prompt's loop turns.
    void later(std::function<void()> action) { QTimer::singleShot(0, qApp, std::move(action)); }
    std::optional<Objects> run(bool single = false) {
        return prompt->run(document, {single, kxString("Select"), kxString()});
    }
    bool promptOfAddin() {
        bool result = false;
        application->GetCommandMessage()->PromptForSelection(false, kxString("Select"), kxString(),
                                                             &result);
        return result;
    }
    Objects previous() const { return document->GetSelection(kxSelectionSetType_Previous); }

    Objects points{pointOn("0", 0), pointOn("0", 1), pointOn("0", 2), pointOn("tools", 3)};
    std::unique_ptr<SelectionPrompt> prompt = std::make_unique<SelectionPrompt>();
    kxHostApplication_ptr application;
    kxHostDocument_ptr document;
};

TEST_F(SelectionPromptTest, ReturnsWhatWasChosenInTheOrderOfPicking) {
    later([&] {
        prompt->add({points[2]});
        prompt->add({points[0], points[1]});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[2], points[0], points[1]}));
    EXPECT_FALSE(prompt->isActive());
    EXPECT_TRUE(prompt->chosen().empty());
    EXPECT_FALSE(prompt->document());
}

TEST_F(SelectionPromptTest, WaitsUntilItIsEnded) {
    int turns = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, [&] {
        EXPECT_TRUE(prompt->isActive());
        EXPECT_EQ(prompt->document(), document);
        if (++turns == 5) {
            prompt->finish();
        }
    });
    ticking.start(1);
    EXPECT_TRUE(run().has_value());
    EXPECT_EQ(turns, 5);
}

TEST_F(SelectionPromptTest, AnObjectIsChosenOnce) {
    later([&] {
        prompt->add({points[1], points[1]});
        prompt->add({points[0], points[1]});
        EXPECT_EQ(prompt->chosen(), (Objects{points[1], points[0]}));
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[1], points[0]}));
}

TEST_F(SelectionPromptTest, RemovedObjectsAreNotReturnedAndComeLastWhenAddedAgain) {
    later([&] {
        prompt->add({points[0], points[1], points[2]});
        prompt->remove({points[0], points[3]});
        prompt->add({points[0]});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[1], points[2], points[0]}));
}

TEST_F(SelectionPromptTest, CancelledReturnsNothing) {
    later([&] {
        prompt->add({points[0]});
        prompt->cancel();
    });
    EXPECT_FALSE(run().has_value());
    EXPECT_TRUE(prompt->chosen().empty());
}

TEST_F(SelectionPromptTest, FinishedWithNothingChosenReturnsAnEmptyList) {
    later([&] { prompt->finish(); });
    EXPECT_EQ(run(), Objects{});
}

TEST_F(SelectionPromptTest, ASingleObjectFinishesAtOnce) {
    later([&] { prompt->add({points[2], points[1]}); });
    EXPECT_EQ(run(true), (Objects{points[2]}));
}

TEST_F(SelectionPromptTest, AnObjectThatCannotBeSelectedDoesNotFinishASingleOne) {
    later([&] {
        prompt->add({pointOn("0", 9), kxObject_ptr()});
        EXPECT_TRUE(prompt->chosen().empty());
        prompt->add({points[1]});
    });
    EXPECT_EQ(run(true), (Objects{points[1]}));
}

TEST_F(SelectionPromptTest, ObjectsThatLeftTheDrawingAreNotReturned) {
    later([&] {
        prompt->add({points[0], points[1], points[2]});
        document->SetObjects({points[2], points[0]});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[0], points[2]}));
}

TEST_F(SelectionPromptTest, ObjectsOnALayerThatWasHiddenAreNotReturned) {
    later([&] {
        prompt->add({points[3], points[0]});
        document->SetLayers({{kxString("tools"), false}});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[0]}));
}

TEST_F(SelectionPromptTest, ClosingTheDrawingCancels) {
    later([&] {
        prompt->add({points[0]});
        EXPECT_TRUE(application->CloseDocument(document.get()));
    });
    EXPECT_FALSE(run().has_value());
    EXPECT_FALSE(prompt->isActive());
}

TEST_F(SelectionPromptTest, ClosingTheDrawingCancelsWhatWasJustFinished) {
    later([&] {
        prompt->add({points[0]});
        prompt->finish();
        application->CloseDocument(document.get());
    });
    EXPECT_FALSE(run().has_value());
}

TEST_F(SelectionPromptTest, ClosingAnotherDrawingDoesNotCancel) {
    const kxHostDocument_ptr other = application->AddDocument(kxString("b"), false);
    later([&] {
        application->CloseDocument(other.get());
        prompt->add({points[0]});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[0]}));
}

TEST_F(SelectionPromptTest, AfterItTheDrawingDoesNotKnowIt) {
    later([&] { prompt->finish(); });
    run();
    EXPECT_EQ(document->UnRegisterEvent(kxDocument_DestroyNotify_id, prompt.get()),
              kxEventResult_NotRegistered);
}

TEST_F(SelectionPromptTest, QuittingTheApplicationCancels) {
    std::optional<Objects> result = Objects{};
    bool returned = false;
    later([&] {
        later([&] { QCoreApplication::quit(); });
        result = run();
        returned = true;
    });
    QApplication::exec();
    EXPECT_TRUE(returned);
    EXPECT_FALSE(result.has_value());
}

TEST_F(SelectionPromptTest, TheEndOfTheApplicationCancels) {
    later([&] { QMetaObject::invokeMethod(qApp, "aboutToQuit"); });
    // Would wait for ever if it did not listen.
    QTimer::singleShot(20000, prompt.get(), [&] {
        ADD_FAILURE();
        prompt->finish();
    });
    EXPECT_FALSE(run().has_value());
}

TEST_F(SelectionPromptTest, ASecondOneReturnsNothingAtOnceAndTheFirstGoesOn) {
    later([&] {
        prompt->add({points[0]});
        EXPECT_FALSE(run().has_value());
        EXPECT_TRUE(prompt->isActive());
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[0]}));
}

TEST_F(SelectionPromptTest, WithoutADrawingThereIsNoPrompt) {
    EXPECT_FALSE(prompt->run({}, {}).has_value());
}

TEST_F(SelectionPromptTest, IsDestroyedInItsOwnLoop) {
    later([&] {
        prompt->add({points[0]});
        prompt.reset();
    });
    const SelectionPrompt* const address = prompt.get();
    EXPECT_FALSE(run().has_value());
    EXPECT_EQ(document->UnRegisterEvent(kxDocument_DestroyNotify_id,
                                        const_cast<SelectionPrompt*>(address)),
              kxEventResult_NotRegistered);
}

TEST_F(SelectionPromptTest, MayBeEndedByWhoHearsThatItStarted) {
    QObject::connect(prompt.get(), &SelectionPrompt::started, [&] {
        prompt->add({points[1]});
        prompt->finish();
    });
    EXPECT_EQ(run(), (Objects{points[1]}));
}

TEST_F(SelectionPromptTest, MayBeDestroyedByWhoHearsOfAChange) {
    QObject::connect(prompt.get(), &SelectionPrompt::chosenChanged, qApp, [&] { prompt.reset(); });
    later([&] { prompt->add({points[1]}); });
    EXPECT_FALSE(run(true).has_value());
}

TEST_F(SelectionPromptTest, ReturnsItsResultAlsoWhenDestroyedAtItsEnd) {
    QObject::connect(prompt.get(), &SelectionPrompt::ended, qApp, [&] { prompt.reset(); });
    later([&] { prompt->add({points[1]}); });
    EXPECT_EQ(run(true), (Objects{points[1]}));
}

TEST_F(SelectionPromptTest, TellsItsStartItsChangesAndItsEnd) {
    QStringList said;
    QObject::connect(prompt.get(), &SelectionPrompt::started, [&](const auto& request) {
        said.push_back("started " + QString::fromStdString(request.prompt.toUtf8()));
    });
    QObject::connect(prompt.get(), &SelectionPrompt::chosenChanged,
                     [&] { said.push_back(QString::number(prompt->chosen().size())); });
    QObject::connect(prompt.get(), &SelectionPrompt::ended, [&] {
        EXPECT_FALSE(prompt->isActive());
        said.push_back("ended");
    });
    later([&] {
        prompt->add({points[0], points[1]});
        prompt->add({points[0]});
        prompt->remove({points[2]});
        prompt->remove({points[0]});
        prompt->finish();
        prompt->add({points[2]});
        prompt->remove({points[1]});
    });
    EXPECT_EQ(run(), (Objects{points[1]}));
    EXPECT_EQ(said, QStringList({"started Select", "2", "1", "ended"}));
}

TEST_F(SelectionPromptTest, WhileNoneWaitsNothingIsChosen) {
    prompt->add({points[0]});
    prompt->remove({points[0]});
    prompt->finish();
    prompt->cancel();
    EXPECT_TRUE(prompt->chosen().empty());
    later([&] { prompt->finish(); });
    EXPECT_EQ(run(), Objects{});
}

TEST_F(SelectionPromptTest, CanRunAgain) {
    for (std::size_t index = 0; index < 3; ++index) {
        later([&] { prompt->add({points[index]}); });
        EXPECT_EQ(run(true), (Objects{points[index]}));
    }
}

TEST_F(SelectionPromptTest, TheChosenBecomeThePreviousSet) {
    later([&] {
        prompt->add({points[2], points[1]});
        prompt->finish();
    });
    EXPECT_TRUE(promptOfAddin());
    EXPECT_EQ(previous(), (Objects{points[2], points[1]}));
    EXPECT_TRUE(document->GetSelection(kxSelectionSetType_Current).empty());
}

TEST_F(SelectionPromptTest, CancellingKeepsThePreviousSet) {
    document->SetSelection(kxSelectionSetType_Previous, {points[0]});
    later([&] {
        prompt->add({points[2]});
        prompt->cancel();
    });
    EXPECT_FALSE(promptOfAddin());
    EXPECT_EQ(previous(), (Objects{points[0]}));
}

TEST_F(SelectionPromptTest, AcceptingNothingEmptiesThePreviousSet) {
    document->SetSelection(kxSelectionSetType_Previous, {points[0]});
    later([&] { prompt->finish(); });
    EXPECT_TRUE(promptOfAddin());
    EXPECT_EQ(previous(), Objects{});
}

}  // namespace
