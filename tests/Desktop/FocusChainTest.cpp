#include <gtest/gtest.h>

#include "Desktop/FocusChain.h"

namespace kelmar::desktop {
namespace {

PressTarget target(const std::string& url) {
    return {layout::LinkAction{url}, {0, 0, 10, 10}};
}

class FocusChainTest : public testing::Test {
protected:
    FocusChainTest() { show({"a", "b", "c"}); }

    void show(const std::vector<std::string>& urls) {
        std::vector<PressTarget> targets;
        targets.reserve(urls.size());
        for (const std::string& url : urls) {
            targets.push_back(target(url));
        }
        chain_.setTargets(std::move(targets));
    }

    [[nodiscard]] std::string current() const {
        const PressTarget* target = chain_.current();
        return target != nullptr ? std::get<layout::LinkAction>(target->action).url : "nothing";
    }

    FocusChain chain_;
};

TEST_F(FocusChainTest, StandsNowhereUntilEntered) {
    EXPECT_EQ(current(), "nothing");
    chain_.enter(FocusStep::next);
    EXPECT_EQ(current(), "a");
    chain_.enter(FocusStep::previous);
    EXPECT_EQ(current(), "c");
}

TEST_F(FocusChainTest, MovesToTheEndAndStaysThere) {
    chain_.enter(FocusStep::next);
    EXPECT_TRUE(chain_.move(FocusStep::next));
    EXPECT_TRUE(chain_.move(FocusStep::next));
    EXPECT_FALSE(chain_.move(FocusStep::next));
    EXPECT_EQ(current(), "c");
    EXPECT_TRUE(chain_.move(FocusStep::previous));
    EXPECT_EQ(current(), "b");
}

TEST_F(FocusChainTest, FirstMoveEnters) {
    EXPECT_TRUE(chain_.move(FocusStep::previous));
    EXPECT_EQ(current(), "c");
}

TEST_F(FocusChainTest, NothingToPressIsNothingToMoveIn) {
    show({});
    chain_.enter(FocusStep::next);
    EXPECT_FALSE(chain_.move(FocusStep::next));
    EXPECT_EQ(current(), "nothing");
}

TEST_F(FocusChainTest, StaysOnTheSameActionInNewContent) {
    chain_.choose(target("b"));
    show({"x", "y", "b"});
    EXPECT_EQ(current(), "b");
}

TEST_F(FocusChainTest, StaysAtItsPlaceWhenTheActionIsGone) {
    chain_.choose(target("b"));
    show({"a", "c"});
    EXPECT_EQ(current(), "c");
    show({"x"});
    EXPECT_EQ(current(), "x");
    show({});
    EXPECT_EQ(current(), "nothing");
}

TEST_F(FocusChainTest, ChoosesOnlyWhatIsThere) {
    chain_.choose(target("c"));
    chain_.choose(target("z"));
    EXPECT_EQ(current(), "c");
}

}  // namespace
}  // namespace kelmar::desktop
