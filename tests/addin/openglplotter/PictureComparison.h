// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QString>

/// What two pictures may differ in and still count as the same: lines of one pixel that another
/// version of the renderer puts beside where they were, and colours it rounds otherwise.
struct PictureTolerance {
    int perChannel = 16;
    double partOfPixels = 0.0003;  // 21 pixels of 270 x 270
};

struct PictureDifference {
    bool sameSize = false;
    long differentPixels = 0;
    double partOfPixels = 0;
    QImage marked;  // the baseline in grey, the pixels that differ in red
};

PictureDifference differenceOf(const QImage& actual, const QImage& baseline, int perChannel);

bool areAlike(const PictureDifference& difference, const PictureTolerance& tolerance);

/// Compares with the baseline `name`.png. A failure leaves the picture and its difference in the
/// build folder and names them. With KX_WRITE_BASELINES in the environment the baseline is written
/// instead.
testing::AssertionResult isLikeBaseline(const QImage& actual, const QString& name,
                                        const PictureTolerance& tolerance = {});

/// Null when there is none.
QImage baselineOf(const QString& name);
