#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "tests/Support/GoldenPicture.h"

namespace kelmar::testing {
namespace {

QImage filled(const QColor& color, QSize size = {100, 100}) {
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(color);
    return picture;
}

TEST(DifferingShare, CountsOnlyWhatLiesBeyondTheTolerance) {
    QImage other = filled(Qt::white);
    other.setPixelColor(3, 4, QColor(245, 245, 245));
    EXPECT_EQ(differingShare(filled(Qt::white), other), 0);
    other.setPixelColor(3, 4, Qt::red);
    EXPECT_DOUBLE_EQ(differingShare(filled(Qt::white), other), 1e-4);
}

TEST(DifferingShare, OtherSizesAndMissingPicturesDifferWholly) {
    EXPECT_EQ(differingShare(filled(Qt::white), filled(Qt::white, {100, 99})), 1);
    EXPECT_EQ(differingShare(QImage(), QImage()), 1);
}

TEST(DifferingShare, TransparencyCounts) {
    EXPECT_EQ(differingShare(filled(Qt::transparent), filled(Qt::black)), 1);
}

class LooksLikeFile : public ::testing::Test {
protected:
    [[nodiscard]] std::string path(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name)).toStdString();
    }
    [[nodiscard]] bool exists(const char* name) const {
        return QFile::exists(folder_.filePath(QString::fromLatin1(name)));
    }

    QTemporaryDir folder_;
};

TEST_F(LooksLikeFile, AcceptsTheSavedPictureAndWritesNothing) {
    const QImage picture = filled(QColor(10, 20, 30, 40));
    ASSERT_TRUE(picture.save(QString::fromStdString(path("expected.png"))));
    EXPECT_TRUE(looksLikeFile(picture, path("expected.png"), path("out")));
    EXPECT_FALSE(exists("out.actual.png"));
}

TEST_F(LooksLikeFile, RefusesAnotherPictureAndShowsTheDifference) {
    ASSERT_TRUE(filled(Qt::white).save(QString::fromStdString(path("expected.png"))));
    const ::testing::AssertionResult result =
        looksLikeFile(filled(Qt::black), path("expected.png"), path("some/out"));
    EXPECT_FALSE(result);
    EXPECT_NE(std::string(result.message()).find("100%"), std::string::npos);
    EXPECT_TRUE(exists("some/out.actual.png"));
    const QImage difference(QString::fromStdString(path("some/out.difference.png")));
    EXPECT_EQ(difference.pixelColor(50, 50), QColor(220, 0, 0));
}

TEST_F(LooksLikeFile, RefusesWhenNothingIsExpectedYet) {
    EXPECT_FALSE(looksLikeFile(filled(Qt::white), path("missing.png"), path("out")));
}

}  // namespace
}  // namespace kelmar::testing
