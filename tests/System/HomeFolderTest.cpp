#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "System/HomeFolder.h"
#include "tests/Support/ScopedVariable.h"

namespace kelmar::system {
namespace {

TEST(HomeFolder, IsThatOfTheAccountDatabaseWhateverTheEnvironmentSays) {
    const passwd* const account = ::getpwuid(::getuid());
    ASSERT_NE(account, nullptr);
    const std::string expected = account->pw_dir;
    const testing::ScopedVariable home("HOME", "/elsewhere");
    EXPECT_EQ(homeFolder(), expected);
}

}  // namespace
}  // namespace kelmar::system
