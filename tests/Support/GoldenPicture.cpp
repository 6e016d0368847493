#include "tests/Support/GoldenPicture.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cstdlib>

namespace kelmar::testing {
namespace {

using ::testing::AssertionFailure;
using ::testing::AssertionResult;
using ::testing::AssertionSuccess;

QImage comparable(const QImage& picture) {
    QImage copy = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    copy.setDevicePixelRatio(1);
    return copy;
}

bool differ(QRgb first, QRgb second, int tolerance) {
    const int furthest = std::max(
        {std::abs(qRed(first) - qRed(second)), std::abs(qGreen(first) - qGreen(second)),
         std::abs(qBlue(first) - qBlue(second)), std::abs(qAlpha(first) - qAlpha(second))});
    return furthest > tolerance;
}

/// A faint copy of the picture, red where it differs from the expected one.
QImage difference(const QImage& actual, const QImage& expected, int tolerance) {
    QImage result(actual.size(), QImage::Format_RGB32);
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            const bool differs = !expected.rect().contains(x, y) ||
                                 differ(actual.pixel(x, y), expected.pixel(x, y), tolerance);
            const int faint = 200 + qGray(actual.pixel(x, y)) / 5;
            result.setPixel(x, y, differs ? qRgb(220, 0, 0) : qRgb(faint, faint, faint));
        }
    }
    return result;
}

bool save(const QImage& picture, const QString& file) {
    return QDir().mkpath(QFileInfo(file).path()) && picture.save(file);
}

bool isRebaselining() {
    const char* wish = std::getenv("KELMAR_REBASELINE");
    return wish != nullptr && std::string(wish) == "1";
}

}  // namespace

double differingShare(const QImage& first, const QImage& second,
                      const PictureTolerance& tolerance) {
    if (first.size() != second.size() || first.isNull()) {
        return 1;
    }
    const QImage one = comparable(first);
    const QImage other = comparable(second);
    int differing = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (differ(one.pixel(x, y), other.pixel(x, y), tolerance.component)) {
                ++differing;
            }
        }
    }
    return static_cast<double>(differing) / (one.width() * one.height());
}

AssertionResult looksLikeFile(const QImage& picture, const std::string& expectedFile,
                              const std::string& outputStem, const PictureTolerance& tolerance) {
    const QImage actual = comparable(picture);
    const QImage expected = comparable(QImage(QString::fromStdString(expectedFile)));
    const double share = differingShare(actual, expected, tolerance);
    if (share <= tolerance.differingShare) {
        return AssertionSuccess();
    }
    const QString stem = QString::fromStdString(outputStem);
    const QString actualFile = stem + QStringLiteral(".actual.png");
    const QString differenceFile = stem + QStringLiteral(".difference.png");
    save(actual, actualFile);
    save(difference(actual, expected, tolerance.component), differenceFile);
    return AssertionFailure() << share * 100 << "% of the pixels differ from " << expectedFile
                              << "; see " << actualFile.toStdString() << " and "
                              << differenceFile.toStdString()
                              << ". KELMAR_REBASELINE=1 takes the new picture as the expected one.";
}

AssertionResult looksAsExpected(const QImage& picture, const std::string& name,
                                const PictureTolerance& tolerance) {
    const std::string expectedFile = std::string(KELMAR_EXPECTED_PICTURES) + "/" + name + ".png";
    if (isRebaselining()) {
        return save(comparable(picture), QString::fromStdString(expectedFile))
                   ? AssertionSuccess()
                   : AssertionFailure() << "cannot write " << expectedFile;
    }
    return looksLikeFile(picture, expectedFile, std::string(KELMAR_ACTUAL_PICTURES) + "/" + name,
                         tolerance);
}

}  // namespace kelmar::testing
