#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Widget/Diagnosis.h"
#include "tests/Support/TestSurroundings.h"

namespace kelmar::widget {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::snapshotOf;
using testing::TestSurroundings;

TEST(Diagnosis, AReadableSnapshotIsNothingToSpeakOf) {
    TestSurroundings test;
    test.publish(snapshotOf({}));
    EXPECT_THAT(diagnose(test.surroundings), IsEmpty());
}

TEST(Diagnosis, AMissingSnapshotIsNamed) {
    const TestSurroundings test;
    EXPECT_THAT(diagnose(test.surroundings), ElementsAre(HasSubstr("no such file")));
}

TEST(Diagnosis, WhatIsNoFileIsNamed) {
    TestSurroundings test;
    test.plannerFolder.putUnreadable(shared::snapshotName);
    EXPECT_THAT(diagnose(test.surroundings), ElementsAre(HasSubstr("not a regular file")));
}

TEST(Diagnosis, AnUnreadableSnapshotIsNamedWithThePlaceOfItsFault) {
    TestSurroundings test;
    test.plannerFolder.put(shared::snapshotName,
                           R"({"updated":1,"signedIn":"yes","today":[],"upcoming":[]})");
    EXPECT_THAT(diagnose(test.surroundings),
                ElementsAre(AllOf(HasSubstr("$.signedIn"), HasSubstr("the text \"yes\""),
                                  HasSubstr("true or false"))));
}

}  // namespace
}  // namespace kelmar::widget
