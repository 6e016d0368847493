#include <gtest/gtest.h>

#include "System/Fatal.h"

namespace kelmar::system {
namespace {

TEST(Fatal, EndsTheProcessWithOneLineOnStandardError) {
    EXPECT_EXIT(fatal("there is no home"), ::testing::ExitedWithCode(70),
                "^[^\n]+: there is no home\n$");
}

TEST(Fatal, KeepsAReasonOfSeveralLinesOnOne) {
    EXPECT_EXIT(fatal("one\ntwo"), ::testing::ExitedWithCode(fatalExitStatus), ": one two\n$");
}

}  // namespace
}  // namespace kelmar::system
