#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "Kit/Archive.h"
#include "Kit/Metrics.h"
#include "tests/Layout/Laying.h"

/// Whole widgets placed, compared with what was found good before:
/// tests/golden/input/Layout/NAME-FAMILY.json against tests/golden/expected/Layout/NAME-FAMILY.txt
/// and, mirrored, NAME-FAMILY-mirrored.txt. KELMAR_REBASELINE=1 in the environment writes the
/// expected files anew.
namespace kelmar::layout {
namespace {

namespace fs = std::filesystem;

const fs::path golden = KELMAR_GOLDEN;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

void expectAsBefore(const std::string& dump, const std::string& name) {
    const fs::path expected = golden / "expected" / "Layout" / (name + ".txt");
    if (std::getenv("KELMAR_REBASELINE") != nullptr) {  // NOLINT(concurrency-mt-unsafe)
        fs::create_directories(expected.parent_path());
        std::ofstream(expected, std::ios::binary) << dump;
    }
    ASSERT_TRUE(fs::exists(expected)) << expected;
    EXPECT_EQ(dump, contentOf(expected)) << expected;
}

class GoldenLayout : public ::testing::TestWithParam<const char*> {};

TEST_P(GoldenLayout, PlacesTheWidgetAsBefore) {
    const std::string name = GetParam();
    const auto family = kit::familyNamed(name.substr(name.rfind('-') + 1));
    ASSERT_TRUE(family);
    const auto entry =
        kit::decodeDrawnEntry(contentOf(golden / "input" / "Layout" / (name + ".json")));
    ASSERT_TRUE(entry);
    const Size area = kit::contentSize(*family);
    expectAsBefore(laying::dump(entry->content, area), name);
    expectAsBefore(laying::dump(entry->content, area, Direction::rightToLeft), name + "-mirrored");
}

INSTANTIATE_TEST_SUITE_P(Widgets, GoldenLayout,
                         ::testing::Values("week-small", "undo-medium", "odd-titles-large",
                                           "no-snapshot-small", "timer-medium"));

}  // namespace
}  // namespace kelmar::layout
