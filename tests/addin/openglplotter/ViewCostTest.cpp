// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// What a load, a frame and a tick of the playback ask of memory and of OpenGL.
#include <QTest>
#include <optional>
#include <string>
#include <vector>

#include "CountedGl.h"
#include "CountedMemory.h"
#include "MillingProgram.h"
#include "ViewTest.h"

namespace {

constexpr std::size_t kLines = 200'000;
/// Those of a path of more than a million vertices.
constexpr std::size_t kManyLines = 700'000;

/// A view whose frames leave out what belongs to the window system.
class View : public OGLWindow {
public:
    View() : OGLWindow(nullptr) {
        resize(270, 270);
        show();
        static_cast<void>(QTest::qWaitForWindowExposed(this));
        QCoreApplication::processEvents();
    }
    void updateGL() override {
        {
            const UncountedMemory windowSystem;
            makeCurrent();
        }
        paintGL();
    }
};

class ViewCost : public testing::Test {
protected:
    void load(std::size_t lines) {
        window.ShowGCode(QString::fromStdString(millingProgram(lines)));
    }
    void use() { window.makeCurrent(); }

    View window;
    OGLWindowState state{window};
};

/// The most, and what stays, of the bytes that a load needs for each vertex.
struct LoadCost {
    double peak = 0;
    double shown = 0;
};

LoadCost costOfLoad(View* window, const OGLWindowState& state, const QString& program) {
    const CountedMemory memory;
    window->ShowGCode(program);
    const auto vertices = static_cast<double>(state.pathSize());
    return {static_cast<double>(memory.peak()) / vertices,
            static_cast<double>(memory.held()) / vertices};
}

}  // namespace

TEST(CountedMemory, CountsWhatIsAskedForAndGivenBack) {
    const CountedMemory memory;
    std::vector<char> kept(100'000);
    { const std::vector<char> dropped(1'000'000); }
    const UncountedMemory notCounted;
    std::vector<char> another(1'000'000);
    EXPECT_EQ(memory.requests(), 2);
    EXPECT_NEAR(static_cast<double>(memory.held()), 100'000, 5000);
    EXPECT_NEAR(static_cast<double>(memory.peak()), 1'100'000, 10'000);
    EXPECT_EQ(kept[0] + another[0], 0);
}

TEST_F(ViewCost, ALoadNeedsAtMost60BytesAVertexAndKeepsAtMost20) {
    const QString program = QString::fromStdString(millingProgram(kLines));
    std::optional<CountedGl> gl;
    if (window.isValid()) {
        use();
        gl.emplace();
    }
    const LoadCost first = costOfLoad(&window, state, program);
    EXPECT_LE(first.peak, 60);
    EXPECT_LE(first.shown, 20);
    EXPECT_GE(first.shown, sizeof(Point3d));
    ASSERT_GT(state.pathSize(), static_cast<long>(kLines));
    // The path before is given back first.
    const LoadCost second = costOfLoad(&window, state, program);
    EXPECT_LE(second.peak, 60 - static_cast<double>(sizeof(Point3d)));
    EXPECT_LE(second.shown, 1);
    RecordProperty("peak", std::to_string(first.peak));
    RecordProperty("shown", std::to_string(first.shown));
}

TEST_F(ViewCost, ALoadSendsEachVertexAndColourOnce) {
    SKIP_WITHOUT_DRAWING();
    use();
    const CountedGl gl;
    load(1000);
    EXPECT_EQ(gl.counts().bytesUploaded,
              state.vectorSize * static_cast<long>(sizeof(Point3d) + sizeof(Color)));
}

TEST_F(ViewCost, AFrameBindsNoBufferDrawsThriceWithAMatrixEachAndNeedsNoMemory) {
    SKIP_WITHOUT_DRAWING();
    use();
    const CountedGl gl;
    load(kManyLines);
    ASSERT_GT(state.pathSize(), 1'000'000);
    const GlCounts before = gl.counts();
    const CountedMemory memory;
    state.paintGL();
    EXPECT_EQ(memory.requests(), 0);
    const GlCounts& counts = gl.counts();
    EXPECT_EQ(counts.bufferBindings, before.bufferBindings);
    EXPECT_EQ(counts.attributes, before.attributes);
    EXPECT_EQ(counts.uploads, before.uploads);
    EXPECT_EQ(counts.draws, before.draws + 3);
    EXPECT_EQ(counts.matrices, before.matrices + 3);
    EXPECT_EQ(counts.verticesDrawn, before.verticesDrawn + state.vectorSize);
    EXPECT_GT(before.bufferBindings, 0) << "those of the load";
    EXPECT_EQ(before.draws, 3) << "the load's frame";
}

TEST_F(ViewCost, TicksWithinASegmentNeedNoMemory) {
    std::optional<CountedGl> gl;
    if (window.isValid()) {
        use();
        gl.emplace();
    }
    load(kManyLines);
    window.Simulate(1);
    window.update();
    const int drawsBefore = gl ? gl->counts().draws : 0;
    const CountedMemory memory;
    for (int i = 0; i < 49; ++i) {
        window.update();
    }
    EXPECT_EQ(state.translateAnimate, 50);
    EXPECT_EQ(memory.requests(), 0);
    if (gl) {
        EXPECT_EQ(gl->counts().draws, drawsBefore + 49 * 3);
    }
}

TEST_F(ViewCost, ATickThatStartsASegmentNeedsWhatTheTimerNeedsToStartAgain) {
    std::optional<CountedGl> gl;
    if (window.isValid()) {
        use();
        gl.emplace();
    }
    load(kManyLines);
    window.Simulate(1);
    const auto requestsOf = [](const auto& act) {
        const CountedMemory memory;
        act();
        return memory.requests();
    };
    state.timer->start(10);
    const long timer = requestsOf([this] { state.timer->start(10); });
    for (int segment = 0; segment < 20; ++segment) {
        while (state.translateAnimate < static_cast<int>(state.steps.size())) {
            window.update();
        }
        EXPECT_EQ(requestsOf([this] { window.update(); }), timer) << segment;
        EXPECT_EQ(state.verticesIndex, segment + 1);
    }
}
