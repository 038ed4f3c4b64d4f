// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
// The comparison can fail: every baseline is another picture than every other one.
#include "PictureComparison.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

QImage black() {
    QImage image(100, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

QStringList baselineNames() {
    QStringList names = QDir(KX_BASELINES).entryList({"*.png"}, QDir::Files);
    return names.replaceInStrings(".png", "");
}

}  // namespace

TEST(PictureComparison, APictureIsLikeItself) {
    EXPECT_TRUE(areAlike(differenceOf(black(), black(), 0), {0, 0}));
}

TEST(PictureComparison, APixelCountsFromOneStepBeyondTheTolerance) {
    QImage other = black();
    other.setPixel(3, 4, qRgb(0, 16, 0));
    EXPECT_EQ(differenceOf(other, black(), 16).differentPixels, 0);
    other.setPixel(3, 4, qRgb(0, 0, 17));
    const PictureDifference difference = differenceOf(other, black(), 16);
    EXPECT_EQ(difference.differentPixels, 1);
    EXPECT_DOUBLE_EQ(difference.partOfPixels, 0.0001);
    EXPECT_EQ(difference.marked.pixel(3, 4), qRgb(255, 0, 0));
}

TEST(PictureComparison, MorePixelsThanAllowedAreADifference) {
    QImage other = black();
    for (int x = 0; x < 3; ++x) {
        other.setPixel(x, 0, qRgb(255, 255, 255));
    }
    EXPECT_TRUE(areAlike(differenceOf(other, black(), 16), {16, 0.0003}));
    other.setPixel(3, 0, qRgb(255, 255, 255));
    EXPECT_FALSE(areAlike(differenceOf(other, black(), 16), {16, 0.0003}));
}

TEST(PictureComparison, AnotherSizeOrNoBaselineIsADifference) {
    EXPECT_FALSE(areAlike(differenceOf(black(), black().copy(0, 0, 100, 99), 16), {}));
    EXPECT_FALSE(areAlike(differenceOf(black(), QImage(), 16), {}));
}

TEST(PictureComparison, EveryBaselineDiffersFromEveryOtherOne) {
    const QStringList names = baselineNames();
    ASSERT_GE(names.size(), 10);
    for (int i = 0; i < names.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            const PictureDifference difference =
                differenceOf(baselineOf(names[i]), baselineOf(names[j]), 16);
            EXPECT_FALSE(areAlike(difference, {}))
                << names[i].toStdString() << " and " << names[j].toStdString();
        }
    }
}

TEST(PictureComparison, AFailureNamesTheFilesItWrote) {
    if (qEnvironmentVariableIsSet("KX_WRITE_BASELINES")) {
        GTEST_SKIP() << "baselines are being written";
    }
    const QImage wrong = baselineOf("axes-only");
    ASSERT_FALSE(wrong.isNull());
    const testing::AssertionResult result = isLikeBaseline(wrong, "workpiece");
    EXPECT_FALSE(result);
    const QDir folder(KX_ACTUAL_PICTURES);
    for (const char* name : {"workpiece-actual.png", "workpiece-difference.png"}) {
        const QString path = folder.filePath(name);
        EXPECT_NE(std::string(result.message()).find(path.toStdString()), std::string::npos);
        EXPECT_FALSE(QImage(path).isNull()) << path.toStdString();
        EXPECT_TRUE(QFile::remove(path)) << "not to be taken for a real failure";
    }
}
