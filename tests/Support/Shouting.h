#pragma once

#include <string>
#include <string_view>

#include "System/Localization.h"
#include "Widget/Surroundings.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::testing {

/// Marks every word that goes through it, so that a test sees which texts are translated and which
/// are shown as the planner wrote them.
class ShoutingLocalization final : public system::Localization {
public:
    using Localization::text;
    [[nodiscard]] std::string text(std::string_view key) const override {
        return "!" + std::string(key);
    }
};

/// The surroundings with that localization in place of English. They refer to `test`.
[[nodiscard]] inline widget::Surroundings shouting(const TestSurroundings& test) {
    static const ShoutingLocalization localization;
    return {.clock = test.clock,
            .calendar = *test.calendar,
            .localeTexts = test.localeTexts,
            .localization = localization,
            .plannerFolder = test.plannerFolder,
            .tickedFolder = test.surroundings.tickedFolder,
            .appLink = test.surroundings.appLink};
}

}  // namespace kelmar::testing
