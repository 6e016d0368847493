#include <gtest/gtest.h>

#include "System/Url.h"
#include "Widget/Links.h"

namespace kelmar::widget {
namespace {

struct Row {
    const char* id;
    const char* assignment;
    const char* untick;
};

TEST(Links, IdsAreEncodedForAUrlPath) {
    const std::vector<Row> rows{
        {"abc-1", "kelmarplanner://assignment/abc-1", "kelmarplanner://untick/abc-1"},
        {"x/y", "kelmarplanner://assignment/x/y", "kelmarplanner://untick/x%2Fy"},
        {"a 1", "kelmarplanner://assignment/a%201", "kelmarplanner://untick/a%201"},
        {"é", "kelmarplanner://assignment/%C3%A9", "kelmarplanner://untick/%C3%A9"},
        {"a;b", "kelmarplanner://assignment/a%3Bb", "kelmarplanner://untick/a%3Bb"},
        {"50%", "kelmarplanner://assignment/50%25", "kelmarplanner://untick/50%25"},
        {"a?b#c", "kelmarplanner://assignment/a%3Fb%23c", "kelmarplanner://untick/a%3Fb%23c"},
        {"a:b@c&d=e+f$g,h!i*j'k(l)", "kelmarplanner://assignment/a:b@c&d=e+f$g,h!i*j'k(l)",
         "kelmarplanner://untick/a:b@c&d=e+f$g,h!i*j'k(l)"},
        {"", "kelmarplanner://assignment/", "kelmarplanner://untick/"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(assignmentUrl(row.id), row.assignment);
        EXPECT_EQ(untickUrl(row.id), row.untick);
        EXPECT_TRUE(system::isValidUrl(assignmentUrl(row.id))) << row.id;
        EXPECT_TRUE(system::isValidUrl(untickUrl(row.id))) << row.id;
    }
}

TEST(Links, ClassIdsAreEncodedAsAssignmentIdsAre) {
    EXPECT_EQ(classUrl("c1"), "kelmarplanner://class/c1");
    EXPECT_EQ(classUrl("c 1/ü?"), "kelmarplanner://class/c%201/%C3%BC%3F");
}

}  // namespace
}  // namespace kelmar::widget
