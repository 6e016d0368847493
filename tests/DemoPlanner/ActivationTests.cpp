#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "DemoPlanner/Activation.h"

namespace kelmar::demo {
namespace {

TEST(ActivationToken, OfX11EndsInATime) {
    const std::vector<std::pair<std::string, std::optional<std::uint32_t>>> table{
        {"kelmar-widgets-1-2_TIME345", 345},
        {"host_TIME1_TIME4294967295", 4294967295},
        {"host_TIME4294967296", std::nullopt},
        {"host_TIME", std::nullopt},
        {"host_TIME-1", std::nullopt},
        {"host_TIME12x", std::nullopt},
        {"5f1b2c", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [token, time] : table) {
        EXPECT_EQ(timeOf(token), time) << token;
    }
}

TEST(ActivationToken, IsTakenFromTheEnvironment) {
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_EQ(givenActivationToken(), "");
    qputenv("DESKTOP_STARTUP_ID", "x11");
    EXPECT_EQ(givenActivationToken(), "x11");
    qputenv("XDG_ACTIVATION_TOKEN", "wayland");
    EXPECT_EQ(givenActivationToken(), "wayland");
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
}

TEST(BringForward, ShowsTheWindowAndLeavesNoTokenBehind) {
    QWidget window;
    bringForward(window, "token");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

}  // namespace
}  // namespace kelmar::demo
