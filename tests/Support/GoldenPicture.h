#pragma once

#include <QImage>
#include <gtest/gtest.h>
#include <string>

/// Pictures compared with expected ones, which lie in tests/golden/expected/. With
/// KELMAR_REBASELINE=1 in the environment a picture becomes the expected one instead.
namespace kelmar::testing {

/// How far two pictures may lie apart: another version of the font engine shades edges a little
/// differently, but moves and recolours nothing.
struct PictureTolerance {
    int component = 24;             ///< Of 255, in every component of a pixel.
    double differingShare = 0.001;  ///< Of the pixels may differ by more.
};

/// The share of pixels that differ by more than the tolerance; 1 for pictures of different sizes.
[[nodiscard]] double differingShare(const QImage& first, const QImage& second,
                                    const PictureTolerance& tolerance = {});

/// Whether a picture looks like the expected one of a name (no suffix; may have folders). Where it
/// does not, the message names the files in the build folder that hold it and the difference,
/// which is red on a faint copy.
[[nodiscard]] ::testing::AssertionResult looksAsExpected(const QImage& picture,
                                                         const std::string& name,
                                                         const PictureTolerance& tolerance = {});

/// The same against a file that the caller names, for tests of the comparison itself.
[[nodiscard]] ::testing::AssertionResult looksLikeFile(const QImage& picture,
                                                       const std::string& expectedFile,
                                                       const std::string& outputStem,
                                                       const PictureTolerance& tolerance = {});

}  // namespace kelmar::testing
