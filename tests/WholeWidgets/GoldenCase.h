#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "Kit/Environment.h"
#include "Paint/Appearance.h"
#include "Shared/WidgetTicks.h"

/// Whole widgets from snapshot to archive and picture, compared with what was found good before:
/// tests/golden/input/INPUT.json against tests/golden/expected/KIND/NAME-FAMILY.{json,png}.
/// KELMAR_REBASELINE=1 in the environment writes the expected files anew.
namespace kelmar::testing {

struct GoldenCase {
    std::string name;
    std::string kind = {};
    std::string input = {};  ///< Name of a snapshot; empty for none.
    std::vector<kit::Family> families = {kit::Family::small, kit::Family::medium,
                                         kit::Family::large};
    double now = 1'760'036'400;  ///< 2025-10-09 15:00 in New York, a Thursday.
    std::optional<shared::WidgetTicks::Tick> tick = std::nullopt;
    std::string locale = "en_US";
    kit::RenderingMode mode = kit::RenderingMode::fullColor;
    paint::Scheme scheme = paint::Scheme::light;
    double scale = 1;
};

/// Names the test after the case.
void PrintTo(const GoldenCase& goldenCase, std::ostream* stream);
[[nodiscard]] std::string nameOf(const ::testing::TestParamInfo<GoldenCase>& info);

/// Compares the case's first timeline entry, family by family.
void expectLooksAsBefore(const GoldenCase& goldenCase);

/// Holds every text whose colour the host chooses to the contrast of WCAG 2, in every rendering
/// mode and scheme and with several accent colours. What the named colours reach is printed.
void expectCanBeRead(const GoldenCase& goldenCase);

}  // namespace kelmar::testing
