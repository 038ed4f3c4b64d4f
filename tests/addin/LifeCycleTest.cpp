// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The add-in's library comes and goes many times in one process.
#include <malloc.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QPixmapCache>
#include <QTest>

#include <kx/host/kxAddinLoader.h>

#include "RecordingApplication.h"
#include "TestHost.h"

using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// The heap is compared in parts of the runs.
constexpr int kParts = 9;
constexpr int kRunsPerUse = 10;
/// Less than the least that a forgotten widget, menu item or hook would take.
constexpr double kFlatBytes = 128;

/// How often the add-in comes and goes. Fewer where all is slower: KX_CONNECTIONS says so.
int connections() {
    bool isNumber = false;
    const int asked = qEnvironmentVariableIntValue("KX_CONNECTIONS", &isNumber);
    return isNumber ? asked : 1000;
}

/// What the process holds of the heap.
long heapInUse() {
    const auto info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

/// Sanitizers and valgrind keep books of their own, and report what is lost by themselves.
bool isHeapCounted() {
    constexpr long kSome = 100000;
    const long before = heapInUse();
    const std::vector<char> some(kSome, 'x');
    return some.back() == 'x' && heapInUse() - before >= kSome;
}

/// The least heap that a step leaves behind within each part of its runs: what is given back a
/// little later is not counted.
template <class Step>
std::vector<long> leastHeapOfParts(int runs, const Step& step) {
    std::vector<long> least;
    for (int part = 0; part < kParts; ++part) {
        long lowest = std::numeric_limits<long>::max();
        for (int run = 0; run < runs / kParts; ++run) {
            step(run);
            lowest = std::min(lowest, heapInUse());
        }
        least.push_back(lowest);
    }
    return least;
}

/// Bytes a run that were not given back between the first and the second half. The first part,
/// which warms up, is in neither.
double bytesKeptPerRun(const std::vector<long>& parts, int runs) {
    constexpr int kHalf = (kParts - 1) / 2;
    const auto middle = parts.begin() + 1 + kHalf;
    const long before = *std::min_element(parts.begin() + 1, middle);
    const long after = *std::min_element(middle, parts.end());
    const int runsOfAPart = runs / kParts;
    return static_cast<double>(after - before) / (kHalf * runsOfAPart);
}

class LifeCycle : public testing::Test {
protected:
    LifeCycle() {
        // The toolkit keeps pictures of icons under names that differ each time, up to 10 MB.
        QPixmapCache::setCacheLimit(0);
        for (int i = 0; i < 8; ++i) {
            m_hostItems.push_back("Item " + std::to_string(i));
        }
    }

    /// A short life of the add-in; `inUse` ends in the midst of a playback.
    void connectAndDisconnect(bool inUse) {
        RecordingApplication application(m_host.application());
        kxLoadedAddin addin;
        std::string error;
        ASSERT_TRUE(addin.Load(ADDIN_FILE, &application, &error)) << error;
        ASSERT_THAT(m_host.commandNames(), SizeIs(1));
        ASSERT_THAT(m_host.toolsLabels(), SizeIs(m_hostItems.size() + 2));
        const kxHostDocument_ptr drawing = m_host.open(short{1});
        if (inUse) {
            m_host.select({pointObject(at(3, 4)), lineObject(at(0, 0), at(5, 6))});
            click("generateGCodeBtn");
            click("simulatePushButton");
            QCoreApplication::processEvents();
        }
        addin.Unload();
        expectNothingIsLeft(application);
        m_host.application()->CloseDocument(drawing.get());
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_host.lines.clear();
        m_host.paneRequests.clear();
    }

private:
    void click(const char* name) const {
        auto* const button = m_host.pane()->findChild<QAbstractButton*>(QLatin1String(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }

    void expectNothingIsLeft(const RecordingApplication& application) const {
        const auto calls = [&](const char* name) {
            return std::count(application.calls.begin(), application.calls.end(), name);
        };
        ASSERT_EQ(calls("RegisterEvent 5"), 1);
        ASSERT_EQ(calls("UnRegisterEvent 5"), 1);
        ASSERT_THAT(m_host.commandNames(), IsEmpty());
        ASSERT_EQ(m_host.toolsLabels(), m_hostItems);
        ASSERT_THAT(m_host.panes(), IsEmpty());
        ASSERT_THAT(QApplication::allWidgets(), IsEmpty());
    }

    TestHost m_host;
    std::vector<std::string> m_hostItems;
};

}  // namespace

TEST_F(LifeCycle, ConnectingAndDisconnectingAThousandTimesKeepsNoMemory) {
    const int runs = connections();
    const std::vector<long> heap = leastHeapOfParts(runs, [this](int run) {
        if (!HasFatalFailure()) {
            connectAndDisconnect(run % kRunsPerUse == 0);
        }
    });
    if (isHeapCounted()) {
        const double kept = bytesKeptPerRun(heap, runs);
        RecordProperty("bytesKeptPerConnection", std::to_string(kept));
        EXPECT_LT(kept, kFlatBytes) << testing::PrintToString(heap);
    }
}

TEST(LifeCycleMeasure, SeesTheLossOfOneSmallObjectARun) {
    std::vector<std::vector<char>> lost;
    lost.reserve(1000);
    const auto heap = leastHeapOfParts(
        1000, [&](int) { lost.emplace_back(static_cast<std::size_t>(kFlatBytes)); });
    if (isHeapCounted()) {
        EXPECT_GE(bytesKeptPerRun(heap, 1000), kFlatBytes) << testing::PrintToString(heap);
    }
}

TEST(LifeCycleMeasure, SeesNoLossInWhatIsGivenBackSomeRunsLater) {
    std::vector<char> kept;
    const auto heap =
        leastHeapOfParts(1000, [&](int run) { kept.assign(run % 7 == 0 ? 0 : 100000, 'x'); });
    if (isHeapCounted()) {
        EXPECT_LT(bytesKeptPerRun(heap, 1000), kFlatBytes) << testing::PrintToString(heap);
    }
}
