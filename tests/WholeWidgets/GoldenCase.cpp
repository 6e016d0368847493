#include "tests/WholeWidgets/GoldenCase.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iostream>
#include <sstream>

#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "Paint/WidgetPicture.h"
#include "Shared/PlannerFiles.h"
#include "System/JsonWriter.h"
#include "System/Localization.h"
#include "Widget/PlannerWidgets.h"
#include "tests/Support/GoldenPicture.h"
#include "tests/Support/MemoryFolder.h"
#include "tests/Support/TestSurroundings.h"
#include "tests/WholeWidgets/TextContrast.h"

namespace kelmar::testing {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// The surroundings of a case, with the real catalogues for its language.
class Scene {
public:
    explicit Scene(const GoldenCase& goldenCase)
        : direction_(system::isRightToLeft(goldenCase.locale) ? layout::Direction::rightToLeft
                                                              : layout::Direction::leftToRight),
          test_(goldenCase.locale),
          localization_(goldenCase.locale, KELMAR_CATALOGUES),
          surroundings_{.clock = test_.clock,
                        .calendar = *test_.calendar,
                        .localeTexts = test_.localeTexts,
                        .localization = localization_,
                        .plannerFolder = test_.plannerFolder,
                        .tickedFolder = test_.tickedFolder,
                        .appLink = test_.appLink} {
        test_.clock.set(system::Date::since1970(goldenCase.now));
        if (!goldenCase.input.empty()) {
            test_.plannerFolder.put(
                shared::snapshotName,
                contentOf(fs::path(KELMAR_GOLDEN) / "input" / (goldenCase.input + ".json")));
        }
        if (goldenCase.tick) {
            EXPECT_TRUE(shared::WidgetTicks(test_.tickedFolder)
                            .write(goldenCase.tick->id, goldenCase.tick->note));
        }
    }

    [[nodiscard]] kit::DrawnEntry drawn(const GoldenCase& goldenCase, kit::Family family) const {
        return drawn(goldenCase, family, goldenCase.mode);
    }
    [[nodiscard]] kit::DrawnEntry drawn(const GoldenCase& goldenCase, kit::Family family,
                                        kit::RenderingMode mode) const {
        const widget::PlannerWidgets widgets(surroundings_);
        return widgets.widget(goldenCase.kind)
            ->timeline()
            .entries.front()
            .draw(
                {.family = family, .contentSize = kit::contentSize(family), .renderingMode = mode});
    }

    [[nodiscard]] layout::Direction direction() const { return direction_; }

private:
    layout::Direction direction_;
    TestSurroundings test_;
    system::GettextLocalization localization_;
    widget::Surroundings surroundings_;
};

void expectSameArchive(const kit::DrawnEntry& entry, const std::string& name) {
    const fs::path expected = fs::path(KELMAR_GOLDEN) / "expected" / (name + ".json");
    const std::string archive = system::prettyPrinted(kit::encodeDrawnEntry(entry)) + '\n';
    if (std::getenv("KELMAR_REBASELINE") != nullptr) {  // NOLINT(concurrency-mt-unsafe)
        fs::create_directories(expected.parent_path());
        std::ofstream(expected, std::ios::binary) << archive;
    }
    ASSERT_TRUE(fs::exists(expected)) << expected;
    EXPECT_EQ(archive, contentOf(expected)) << expected;
}

std::vector<paint::Appearance> appearances(kit::RenderingMode mode) {
    // Light, dark and full of colour: what an accent can be at its worst.
    const std::vector<QColor> accents =
        mode == kit::RenderingMode::accented
            ? std::vector{QColor(), QColor(0xf6, 0xd3, 0x2d), QColor(0, 0, 0xff), QColor(Qt::white)}
            : std::vector{QColor()};
    std::vector<paint::Appearance> appearances;
    for (const paint::Scheme scheme : {paint::Scheme::light, paint::Scheme::dark}) {
        for (const QColor& accent : accents) {
            appearances.push_back({scheme, mode, accent});
        }
    }
    return appearances;
}

std::string described(const paint::Appearance& appearance) {
    return std::string(kit::nameOf(appearance.renderingMode)) +
           (appearance.scheme == paint::Scheme::light ? " light" : " dark") +
           (appearance.accent.isValid() ? " " + appearance.accent.name().toStdString() : "");
}

void expectReadableTexts(const layout::PlacedBoxes& boxes, const kit::Color& background,
                         const paint::PaintContext& context) {
    for (const TextContrast& text : textContrasts(boxes, background, context)) {
        const std::string finding =
            fmt::format("{:5.2f}:1 at {:g} points, {}, {}: \"{}\"", text.contrast, text.size,
                        text.colors, described(context.style.appearance), text.text);
        if (text.choice == ColorChoice::named) {
            std::cout << "named color " << finding << '\n';
        } else {
            EXPECT_GE(text.contrast, text.least()) << finding;
        }
    }
}

}  // namespace

void PrintTo(const GoldenCase& goldenCase, std::ostream* stream) {
    *stream << goldenCase.name;
}

std::string nameOf(const ::testing::TestParamInfo<GoldenCase>& info) {
    std::string name = info.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

void expectLooksAsBefore(const GoldenCase& goldenCase) {
    // Pinned, so that pictures come out the same wherever the tests run.
    const paint::PaintResources resources{paint::FontSet("Inter", "Quicksand")};
    const Scene scene(goldenCase);
    for (const kit::Family family : goldenCase.families) {
        const std::string name =
            goldenCase.kind + '/' + goldenCase.name + '-' + std::string(kit::nameOf(family));
        const kit::DrawnEntry entry = scene.drawn(goldenCase, family);
        expectSameArchive(entry, name);
        const paint::WidgetPicture picture(entry, family, scene.direction(), resources);
        const paint::PaintStyle style{.appearance = {.scheme = goldenCase.scheme,
                                                     .renderingMode = goldenCase.mode,
                                                     .accent = {}},
                                      .scale = goldenCase.scale};
        EXPECT_TRUE(
            looksAsExpected(picture.image(style, system::Date::since1970(goldenCase.now)), name));
    }
}

void expectCanBeRead(const GoldenCase& goldenCase) {
    const paint::PaintResources resources{paint::FontSet("Inter", "Quicksand")};
    const Scene scene(goldenCase);
    for (const kit::Family family : goldenCase.families) {
        for (const kit::RenderingMode mode : kit::renderingModes) {
            const kit::DrawnEntry entry = scene.drawn(goldenCase, family, mode);
            const paint::WidgetPicture picture(entry, family, scene.direction(), resources);
            for (const paint::Appearance& appearance : appearances(mode)) {
                expectReadableTexts(picture.boxes(), entry.background,
                                    {.resources = resources,
                                     .style = {.appearance = appearance},
                                     .direction = scene.direction(),
                                     .now = system::Date::since1970(goldenCase.now)});
            }
        }
    }
}

}  // namespace kelmar::testing
