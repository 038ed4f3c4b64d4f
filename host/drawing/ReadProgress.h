// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <functional>
#include <utility>

namespace kxdrawing {

/// Is told what part of a reading is done, 0 to 1; false stops the reading.
using ProgressReport = std::function<bool(double fraction)>;

/// Tells now and then how far a reading is, and keeps in mind that it was stopped.
class ReadProgress {
public:
    /// What part of the time the file takes; the rest goes into making its objects.
    static constexpr double kFileShare = 0.8;

    explicit ReadProgress(ProgressReport report) : m_report(std::move(report)) {}

    /// Counts a record or an object. False once the reading is stopped. `fraction` is called
    /// for every thousandth only.
    template <typename Fraction>
    bool step(const Fraction& fraction) {
        if (m_report && ++m_steps == kStepsPerReport) {
            m_steps = 0;
            report(fraction());
        }
        return !m_stopped;
    }
    /// Tells right away, for what takes long within one record.
    void report(double fraction) {
        m_fraction = fraction;
        m_stopped = m_stopped || (m_report && !m_report(fraction));
    }
    /// Tells once more what was told last: a step that takes long asks whether it should go on.
    void repeat() { report(m_fraction); }
    bool isStopped() const { return m_stopped; }

private:
    static constexpr int kStepsPerReport = 1000;

    ProgressReport m_report;
    int m_steps = 0;
    double m_fraction = 0;
    bool m_stopped = false;
};

}  // namespace kxdrawing
