// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "CheckProgress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cmath>
#include <optional>

#include "CommandRun.h"
#include "files/FileDescriptor.h"

namespace {

using std::chrono::milliseconds;

/// A pipe in place of a terminal, and a clock that a test sets.
class CheckProgressTest : public testing::Test {
protected:
    CheckProgressTest() {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
        m_read = kxfiles::FileDescriptor(ends[0]);
        m_write = kxfiles::FileDescriptor(ends[1]);
        begin();
    }

    void begin() {
        m_progress.emplace(m_write.handle(),
                           [this] { return std::chrono::steady_clock::time_point(m_now); });
    }
    void end() { m_progress.reset(); }
    void tellAt(int ms, double part) {
        m_now = milliseconds(ms);
        m_progress->tell(part);
    }
    std::string written() const {
        char text[1000];
        const ssize_t count = ::read(m_read.handle(), text, sizeof text);
        return {text, static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

private:
    kxfiles::FileDescriptor m_read;
    kxfiles::FileDescriptor m_write;
    milliseconds m_now{0};
    std::optional<CheckProgress> m_progress;
};

TEST_F(CheckProgressTest, IsSaidAfterASecondAndGoesAtTheEnd) {
    tellAt(0, 0);
    tellAt(999, 0.04);
    EXPECT_EQ(written(), "");
    tellAt(1000, 0.041);
    EXPECT_EQ(written(), "\rChecking:   4 %");
    tellAt(1010, 0.049);
    EXPECT_EQ(written(), "") << "nothing new";
    tellAt(1020, 0.999);
    EXPECT_EQ(written(), "\rChecking:  99 %");
    tellAt(1030, 1);
    EXPECT_EQ(written(), "\rChecking: 100 %");
    end();
    EXPECT_EQ(written(), "\r" + std::string(15, ' ') + "\r");
}

TEST_F(CheckProgressTest, OfAShortCheckNothingIsWritten) {
    for (int ms = 0; ms < 900; ++ms) {
        tellAt(ms, ms / 900.0);
    }
    end();
    EXPECT_EQ(written(), "");
}

/// Has a terminal as its standard error.
class TerminalProcess : public QProcess {
public:
    TerminalProcess() : m_terminal(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
        EXPECT_EQ(grantpt(m_terminal.handle()), 0);
        EXPECT_EQ(unlockpt(m_terminal.handle()), 0);
        m_inner = kxfiles::FileDescriptor(::open(ptsname(m_terminal.handle()), O_RDWR | O_NOCTTY));
    }
    /// What came to the terminal since the last time.
    QByteArray shown() const {
        char text[1000];
        const ssize_t count = ::read(m_terminal.handle(), text, sizeof text);
        return {text, static_cast<int>(std::max<ssize_t>(count, 0))};
    }

protected:
    void setupChildProcess() override { dup2(m_inner.handle(), STDERR_FILENO); }

private:
    kxfiles::FileDescriptor m_terminal;
    kxfiles::FileDescriptor m_inner;
};

/// A program in short lines round very many circles of a drawing takes very long to check.
class LongCheck : public testing::Test {
protected:
    LongCheck() {
        QByteArray circles;
        for (int i = 0; i < 3000; ++i) {
            circles += "0\nCIRCLE\n8\n0\n10\n0\n20\n0\n40\n" +
                       QByteArray::number(50 + 1e-6 * i, 'f', 6) + "\n";
        }
        m_drawing = m_work.write("circles.dxf", drawingOf(circles));
        QByteArray text = "G21 G90\nM3 S1000\nG0 Z5\nG0 X50 Y0\nG1 Z-1 F100\nF300\n";
        for (int i = 1; i <= 20000; ++i) {
            const double angle = 6.283185307179586 * i / 5000;
            text += "X" + QByteArray::number(50 * std::cos(angle), 'f', 4) + " Y" +
                    QByteArray::number(50 * std::sin(angle), 'f', 4) + "\n";
        }
        m_program = m_work.write("rounds.nc", text + "G0 Z5\nM5\nM30\n");
    }

    void start(QProcess& process, const QStringList& more = {}) const {
        process.start(KX_PROGRAM, QStringList{"check", m_program, "--drawing", m_drawing} + more);
        EXPECT_TRUE(process.waitForStarted());
    }
    static void kill(QProcess& process) {
        process.kill();
        process.waitForFinished();
    }
    /// Lets it run until the terminal shows such a text, at most half a minute.
    static QByteArray shownUntil(TerminalProcess& process, const QByteArray& part) {
        QByteArray all;
        QElapsedTimer timer;
        timer.start();
        while (!all.contains(part) && timer.elapsed() < 30000 &&
               process.state() == QProcess::Running) {
            process.waitForFinished(20);
            all += process.shown();
        }
        return all;
    }

    WorkFolder m_work;
    QString m_drawing;
    QString m_program;
};

TEST_F(LongCheck, OnATerminalItSaysHowFarItIs) {
    TerminalProcess process;
    start(process);
    const QByteArray shown = shownUntil(process, " %");
    EXPECT_TRUE(shown.contains("\rChecking: ")) << shown.constData();
    EXPECT_EQ(process.readAllStandardOutput(), "") << "the report is not there yet";
    kill(process);
}

TEST_F(LongCheck, InAPipeOrQuietItSaysNothingMeanwhile) {
    QProcess piped;
    TerminalProcess quiet;
    start(piped);
    start(quiet, {"--quiet"});
    EXPECT_FALSE(piped.waitForFinished(2500));
    EXPECT_FALSE(quiet.waitForFinished(100));
    EXPECT_FALSE(piped.readAllStandardError().contains("Checking"));
    EXPECT_EQ(piped.readAllStandardOutput(), "");
    EXPECT_EQ(quiet.shown(), "");
    kill(piped);
    kill(quiet);
}

TEST(ShortCheck, OnATerminalItSaysNothingButWhatItSaysAnyway) {
    const WorkFolder work;
    const QString program = work.write("a.nc", "G21 G90\nM3 S1000\nG0 Z5\nM5\nM30\n");
    TerminalProcess process;
    process.start(KX_PROGRAM, {"check", program});
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.shown(), "");
    EXPECT_EQ(process.readAllStandardOutput(), runProgram({"check", program}).output);
}

}  // namespace
