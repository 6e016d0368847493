#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "Host/LoadedUrlOpener.h"
#include "tests/Host/EventLoop.h"
#include "tests/Host/TemporaryFolder.h"

namespace kelmar::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

class LoadedUrlOpenerTest : public testing::Test {
protected:
    /// What the opening of a URL came to.
    std::vector<std::string> errorsOf(LoadedUrlOpener& opener) {
        std::vector<std::string> errors;
        opener.open("test-unregistered://x", {},
                    [&errors](const std::string& error) { errors.push_back(error); });
        EXPECT_THAT(errors, IsEmpty()) << "Completion never comes within the call";
        EXPECT_TRUE(waitUntil([&] { return !errors.empty(); }));
        runFor(50ms);
        return errors;
    }

    TemporaryFolder folder_;
};

TEST_F(LoadedUrlOpenerTest, OpensWithWhatIsInTheModule) {
    LoadedUrlOpener opener(URL_OPENER_MODULE, {}, {});
    EXPECT_THAT(errorsOf(opener),
                ElementsAre("no application is registered to open test-unregistered: URLs"));
}

TEST_F(LoadedUrlOpenerTest, SaysWhyTheModuleCannotBeLoaded) {
    const auto module = folder_ / "module.so";
    LoadedUrlOpener missing(module.string(), {}, {});
    EXPECT_THAT(errorsOf(missing),
                ElementsAre(testing::AllOf(HasSubstr("cannot be loaded"), HasSubstr("module.so"),
                                           HasSubstr("install the widgets anew"))));
    writeText(module, "no module");
    EXPECT_THAT(errorsOf(missing), ElementsAre(HasSubstr("cannot be loaded")));
}

TEST_F(LoadedUrlOpenerTest, GoesOnOnceTheModuleIsThere) {
    const auto module = folder_ / "module.so";
    LoadedUrlOpener opener(module.string(), {}, {});
    EXPECT_THAT(errorsOf(opener), ElementsAre(HasSubstr("cannot be loaded")));
    std::filesystem::copy_file(URL_OPENER_MODULE, module);
    EXPECT_THAT(errorsOf(opener), ElementsAre(HasSubstr("no application is registered")));
}

}  // namespace
}  // namespace kelmar::host
