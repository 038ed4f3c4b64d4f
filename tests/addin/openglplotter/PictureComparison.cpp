// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "PictureComparison.h"

#include <QDir>
#include <algorithm>
#include <cstdlib>

namespace {

QString pathIn(const char* folder, const QString& fileName) {
    return QDir(QString::fromUtf8(folder)).filePath(fileName);
}

int channelDifference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b))});
}

testing::AssertionResult writeBaseline(const QImage& actual, const QString& name) {
    QDir().mkpath(QString::fromUtf8(KX_BASELINES));
    const QString path = pathIn(KX_BASELINES, name + ".png");
    if (!actual.save(path)) {
        return testing::AssertionFailure() << "cannot write " << path.toStdString();
    }
    return testing::AssertionSuccess() << "wrote " << path.toStdString();
}

testing::AssertionResult failureWithFiles(const QImage& actual, const QString& name,
                                          const PictureDifference& difference) {
    QDir().mkpath(QString::fromUtf8(KX_ACTUAL_PICTURES));
    const QString actualPath = pathIn(KX_ACTUAL_PICTURES, name + "-actual.png");
    const QString markedPath = pathIn(KX_ACTUAL_PICTURES, name + "-difference.png");
    const bool saved = actual.save(actualPath) &&
                       (difference.marked.isNull() || difference.marked.save(markedPath));
    return testing::AssertionFailure()
           << name.toStdString() << ": "
           << (difference.sameSize ? "" : "no baseline of the same size, ")
           << difference.differentPixels << " pixels differ (" << 100 * difference.partOfPixels
           << " %); " << (saved ? "see " : "could not write ") << actualPath.toStdString()
           << " and " << markedPath.toStdString();
}

}  // namespace

QImage baselineOf(const QString& name) {
    const QImage image(pathIn(KX_BASELINES, name + ".png"));
    return image.isNull() ? image : image.convertToFormat(QImage::Format_RGB32);
}

PictureDifference differenceOf(const QImage& actual, const QImage& baseline, int perChannel) {
    PictureDifference difference;
    difference.sameSize = !baseline.isNull() && actual.size() == baseline.size();
    if (!difference.sameSize) {
        difference.partOfPixels = 1;
        return difference;
    }
    difference.marked =
        baseline.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (channelDifference(actual.pixel(x, y), baseline.pixel(x, y)) > perChannel) {
                ++difference.differentPixels;
                difference.marked.setPixel(x, y, qRgb(255, 0, 0));
            }
        }
    }
    const auto pixels = static_cast<double>(actual.width()) * actual.height();
    difference.partOfPixels = static_cast<double>(difference.differentPixels) / pixels;
    return difference;
}

bool areAlike(const PictureDifference& difference, const PictureTolerance& tolerance) {
    return difference.sameSize && difference.partOfPixels <= tolerance.partOfPixels;
}

testing::AssertionResult isLikeBaseline(const QImage& actual, const QString& name,
                                        const PictureTolerance& tolerance) {
    if (qEnvironmentVariableIsSet("KX_WRITE_BASELINES")) {
        return writeBaseline(actual, name);
    }
    const PictureDifference difference =
        differenceOf(actual, baselineOf(name), tolerance.perChannel);
    if (areAlike(difference, tolerance)) {
        return testing::AssertionSuccess();
    }
    return failureWithFiles(actual, name, difference);
}
