#include <gtest/gtest.h>

#include "Desktop/WindowColors.h"
#include "Paint/Contrast.h"

namespace kelmar::desktop {
namespace {

struct ColorCase {
    const char* name;
    paint::Scheme scheme;
    QColor accent;
};

class WindowColors : public testing::TestWithParam<ColorCase> {
protected:
    const QPalette colors_ = windowColors({.scheme = GetParam().scheme,
                                           .renderingMode = kit::RenderingMode::fullColor,
                                           .accent = GetParam().accent});

    [[nodiscard]] double contrast(QPalette::ColorRole ink, QPalette::ColorRole ground) const {
        return paint::contrast(colors_.color(ink), colors_.color(ground));
    }
};

TEST_P(WindowColors, EveryTextCanBeReadWhereItStands) {
    EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 4.5);
    EXPECT_GE(contrast(QPalette::PlaceholderText, QPalette::Window), 4.5);
    EXPECT_GE(contrast(QPalette::PlaceholderText, QPalette::Base), 4.5);
    EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 4.5);
    EXPECT_GE(contrast(QPalette::Highlight, QPalette::Base), 4.5);
    EXPECT_GE(contrast(QPalette::Highlight, QPalette::Window), 4.5);
    EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
}

INSTANTIATE_TEST_SUITE_P(
    All, WindowColors,
    testing::Values(ColorCase{"Light", paint::Scheme::light, {}},
                    ColorCase{"Dark", paint::Scheme::dark, {}},
                    ColorCase{"LightWithYellow", paint::Scheme::light, QColor(0xff, 0xd7, 0x00)},
                    ColorCase{"DarkWithYellow", paint::Scheme::dark, QColor(0xff, 0xd7, 0x00)},
                    ColorCase{"DarkWithNavy", paint::Scheme::dark, QColor(0x00, 0x00, 0x80)}),
    [](const auto& given) { return std::string(given.param.name); });

}  // namespace
}  // namespace kelmar::desktop
