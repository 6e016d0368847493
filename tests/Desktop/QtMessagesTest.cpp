#include <QLoggingCategory>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "Desktop/QtMessages.h"

namespace kelmar::desktop {
namespace {

using host::LogLevel;
using testing::ElementsAre;
using testing::Pair;

class LevelledLog final : public host::Log {
public:
    void write(LogLevel level, std::string_view line) override { lines.emplace_back(level, line); }

    std::vector<std::pair<LogLevel, std::string>> lines;
};

TEST(QtMessagesTest, GoToTheLogWithTheirLevel) {
    const QLoggingCategory category("qt.test");
    LevelledLog log;
    {
        const QtMessages messages(log);
        qInfo("of use");
        qWarning("of concern");
        qCritical("of grave concern");
        qCWarning(category, "of a part");
    }
    EXPECT_THAT(log.lines,
                ElementsAre(Pair(LogLevel::info, "of use"), Pair(LogLevel::warning, "of concern"),
                            Pair(LogLevel::error, "of grave concern"),
                            Pair(LogLevel::warning, "qt.test: of a part")));
}

TEST(QtMessagesTest, SayNothingOfAWidgetThatIsNotActivated) {
    LevelledLog log;
    const QtMessages messages(log);
    qWarning(
        "requestActivate() called for  QWidgetWindow(0x1)  which has "
        "Qt::WindowDoesNotAcceptFocus set.");
    EXPECT_THAT(log.lines, testing::IsEmpty());
}

TEST(QtMessagesTest, GoWhereTheyWentAfterwards) {
    LevelledLog log;
    { const QtMessages messages(log); }
    testing::internal::CaptureStderr();
    qputenv("QT_FORCE_STDERR_LOGGING", "1");
    qWarning("later");
    qunsetenv("QT_FORCE_STDERR_LOGGING");
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("later"));
    EXPECT_THAT(log.lines, testing::IsEmpty());
}

}  // namespace
}  // namespace kelmar::desktop
