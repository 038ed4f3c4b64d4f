// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/CheckWorker.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <thread>

#include <QFile>
#include <QTemporaryDir>

#include "Waiting.h"

namespace {

using gcode_check::ProgressListener;

class CheckWorkerTest : public testing::Test {
protected:
    CheckWorkerTest() {
        const QString path = m_folder.filePath("program.nc");
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("G21 G90\nM3 S1000\nG0 Z5\n");
        for (int i = 0; i < 2000; ++i) {
            file.write("G0 X1 Y1\nG1 Z-1 F100\nX9 F300\nG0 Z5\n");
        }
        file.write("M5\nM30\n");
        file.close();
        auto program = std::make_shared<CheckedProgram>();
        QString error;
        EXPECT_TRUE(program->load(path, &error)) << error.toStdString();
        m_program = program;
    }

    std::shared_ptr<const CheckTask> task(ProgressListener listener = nullptr) const {
        auto task = std::make_shared<CheckTask>();
        task->program = m_program;
        task->options.progress = std::move(listener);
        return task;
    }
    /// Notes what it is told.
    void listenTo(CheckWorker& worker) {
        QObject::connect(&worker, &CheckWorker::finished,
                         [this](const CheckWorker::Result& result) {
                             m_results.push_back(result);
                             m_toldIn = std::this_thread::get_id();
                         });
    }

    std::vector<CheckWorker::Result> m_results;
    std::thread::id m_toldIn;

private:
    QTemporaryDir m_folder;
    std::shared_ptr<const CheckedProgram> m_program;
};

TEST_F(CheckWorkerTest, ChecksInAThreadOfItsOwnAndTellsInOurs) {
    CheckWorker worker;
    listenTo(worker);
    std::atomic<std::thread::id> workedIn{};
    worker.start(task([&workedIn](double) {
        workedIn = std::this_thread::get_id();
        return true;
    }));
    EXPECT_TRUE(worker.isRunning());
    ASSERT_TRUE(waitUntil([this] { return !m_results.empty(); }));
    EXPECT_FALSE(worker.isRunning());
    ASSERT_NE(m_results[0], nullptr);
    EXPECT_EQ(m_results[0]->reading.lines, 8005U);
    EXPECT_EQ(m_toldIn, std::this_thread::get_id());
    EXPECT_NE(workedIn.load(), m_toldIn);
    EXPECT_NE(workedIn.load(), std::thread::id());
}

TEST_F(CheckWorkerTest, SaysHowFarItIs) {
    CheckWorker worker;
    listenTo(worker);
    EXPECT_EQ(worker.part(), 0);
    std::atomic<double> held = 0;
    std::atomic<bool> mayGo = false;
    worker.start(task([&](double part) {
        while (part > 0.5 && !mayGo) {
            held = part;
            std::this_thread::yield();
        }
        return true;
    }));
    EXPECT_TRUE(waitUntil([&held] { return held > 0; }));
    EXPECT_EQ(worker.part(), held);
    mayGo = true;
    EXPECT_TRUE(waitUntil([this] { return !m_results.empty(); }));
    EXPECT_EQ(worker.part(), 0);
}

TEST_F(CheckWorkerTest, TellsOfTheLastOneOnly) {
    CheckWorker worker;
    listenTo(worker);
    std::atomic<int> first = 0;
    std::atomic<int> last = 0;
    for (int i = 0; i < 200; ++i) {
        worker.start(task([&told = i < 199 ? first : last](double) {
            ++told;
            return true;
        }));
    }
    EXPECT_TRUE(waitUntil([&worker] { return !worker.isRunning(); }));
    letPass(20);
    EXPECT_EQ(m_results.size(), 1U);
    EXPECT_GT(last, 100);
    EXPECT_LT(first, 199 * 100) << "those before are not done to their ends";
}

TEST_F(CheckWorkerTest, OfWhatIsStoppedNothingIsTold) {
    CheckWorker worker;
    listenTo(worker);
    std::atomic<bool> hasBegun = false;
    std::atomic<bool> hasEnded = false;
    worker.start(task([&](double) {
        hasBegun = true;
        return true;
    }));
    ASSERT_TRUE(waitUntil([&hasBegun] { return hasBegun.load(); }));
    worker.stop();
    EXPECT_FALSE(worker.isRunning());
    // Checks come one after the other: when this one is done, the one before is.
    worker.start(task([&](double) {
        hasEnded = true;
        return true;
    }));
    EXPECT_TRUE(waitUntil([&worker] { return !worker.isRunning(); }));
    EXPECT_TRUE(hasEnded);
    EXPECT_EQ(m_results.size(), 1U);
}

TEST_F(CheckWorkerTest, CanGoAtAnyTime) {
    for (int i = 0; i < 100; ++i) {
        CheckWorker worker;
        listenTo(worker);
        std::atomic<int> told = 0;
        worker.start(task([&told](double) {
            ++told;
            return true;
        }));
        worker.discard(task());
        while (told < i && worker.isRunning() && m_results.empty()) {
            QCoreApplication::processEvents();
        }
    }
}

TEST_F(CheckWorkerTest, WithoutEnoughMemoryThereIsNoResult) {
    CheckWorker worker;
    listenTo(worker);
    worker.start(task([](double part) -> bool {
        if (part > 0.3) {
            throw std::bad_alloc();
        }
        return true;
    }));
    ASSERT_TRUE(waitUntil([this] { return !m_results.empty(); }));
    EXPECT_EQ(m_results[0], nullptr);
    worker.start(task());
    ASSERT_TRUE(waitUntil([this] { return m_results.size() == 2; }));
    EXPECT_NE(m_results[1], nullptr);
}

TEST_F(CheckWorkerTest, WhatIsDiscardedIsFreedByAnotherThread) {
    std::atomic<std::thread::id> freedIn{};
    {
        CheckWorker worker;
        worker.discard(std::shared_ptr<const int>(new int(1), [&freedIn](const int* value) {
            freedIn = std::this_thread::get_id();
            delete value;
        }));
    }
    EXPECT_NE(freedIn.load(), std::thread::id());
    EXPECT_NE(freedIn.load(), std::this_thread::get_id());
}

}  // namespace
