#include <gtest/gtest.h>

#include "Kit/Metrics.h"
#include "Kit/Protocol.h"

namespace kelmar::kit {
namespace {

const Environment mediumAccented{.family = Family::medium,
                                 .contentSize = contentSize(Family::medium),
                                 .renderingMode = RenderingMode::accented};

struct Line {
    Request request;
    const char* json;
};

const std::vector<Line>& lines() {
    static const std::vector<Line> all{
        {{.id = 1, .body = InitializeRequest{.systemVersion = "26.0.0"}},
         R"({"jsonrpc":"2.0","id":1,"method":"initialize",)"
         R"("params":{"protocol":1,"systemVersion":"26.0.0"}})"},
        {{.id = 2,
          .body = EntryRequest{.entryKind = EntryKind::timeline,
                               .widgetKind = "DueToday",
                               .environment = mediumAccented}},
         R"({"jsonrpc":"2.0","id":2,"method":"widget/timeline","params":{"kind":"DueToday",)"
         R"("environment":{"family":"systemMedium","contentSize":{"width":332,"height":138},)"
         R"("renderingMode":"accented"},"isPreview":false}})"},
        {{.id = "s",
          .body = EntryRequest{.entryKind = EntryKind::snapshot,
                               .widgetKind = "DueToday",
                               .environment = mediumAccented,
                               .isPreview = true}},
         R"({"jsonrpc":"2.0","id":"s","method":"widget/snapshot","params":{"kind":"DueToday",)"
         R"("environment":{"family":"systemMedium","contentSize":{"width":332,"height":138},)"
         R"("renderingMode":"accented"},"isPreview":true}})"},
        {{.id = 4, .body = ControlRequest{.controlKind = "C"}},
         R"({"jsonrpc":"2.0","id":4,"method":"control/value",)"
         R"("params":{"kind":"C","isPreview":false}})"},
        {{.id = 5,
          .body = PerformRequest{{.name = "Go", .parameters = {{"id", std::string("x")}}}}},
         R"({"jsonrpc":"2.0","id":5,"method":"intent/perform",)"
         R"("params":{"intent":{"name":"Go","parameters":{"id":"x"}}}})"},
        {{.id = 7, .body = DiagnoseRequest{}},
         R"({"jsonrpc":"2.0","id":7,"method":"extension/diagnose","params":{}})"},
        {{.id = 6, .body = OpenRequest{.url = "kelmarplanner://ticked"}},
         R"({"jsonrpc":"2.0","id":6,"method":"app/open","params":{)"
         R"("url":"kelmarplanner://ticked","activates":false,"addsToRecentItems":false}})"},
        {{.id = std::nullopt, .body = OpenRequest{.url = "x:y"}},
         R"({"jsonrpc":"2.0","method":"app/open","params":{)"
         R"("url":"x:y","activates":false,"addsToRecentItems":false}})"},
    };
    return all;
}

TEST(Protocol, EveryRequestHasItsLine) {
    for (const Line& line : lines())
        EXPECT_EQ(encodeRequest(line.request), line.json);
}

TEST(Protocol, EveryLineReadsBackAsTheSameRequest) {
    for (const Line& line : lines()) {
        const auto message = decodeMessage(line.json);
        ASSERT_TRUE(message) << message.failure().reason;
        EXPECT_EQ(std::get<Request>(*message), line.request) << line.json;
    }
}

TEST(Protocol, OnlyTheFamilyOfAnEnvironmentMustBeSaid) {
    const auto message =
        decodeMessage(R"({"jsonrpc":"2.0","id":1,"method":"widget/timeline",)"
                      R"("params":{"kind":"K","environment":{"family":"large"}}})");
    ASSERT_TRUE(message) << message.failure().reason;
    const auto& request = std::get<EntryRequest>(std::get<Request>(*message).body);
    EXPECT_EQ(request.environment.family, Family::large);
    EXPECT_EQ(request.environment.contentSize, contentSize(Family::large));
    EXPECT_EQ(request.environment.renderingMode, RenderingMode::fullColor);
    EXPECT_FALSE(request.isPreview);
}

TEST(Protocol, AnswersCarryTheirIdAndResultOrError) {
    const std::string result = encodeResponse(7, R"({"a":[1,"x"]})");
    EXPECT_EQ(result, R"({"jsonrpc":"2.0","id":7,"result":{"a":[1,"x"]}})");
    EXPECT_EQ(std::get<Response>(*decodeMessage(result)),
              (Response{.id = 7, .outcome = R"({"a":[1,"x"]})"}));

    const ResponseError failed{.code = ErrorCode::actionFailed, .message = "disk full"};
    const std::string error = encodeError(8, failed);
    EXPECT_EQ(error, R"({"jsonrpc":"2.0","id":8,"error":{"code":-32000,"message":"disk full"}})");
    EXPECT_EQ(std::get<Response>(*decodeMessage(error)), (Response{.id = 8, .outcome = failed}));

    const std::string unreadable = encodeError(std::nullopt, failed);
    EXPECT_EQ(std::get<Response>(*decodeMessage(unreadable)).id, std::nullopt);
}

struct Invalid {
    const char* line;
    std::optional<MessageId> id;
    ErrorCode code;
};

TEST(Protocol, ALineThatIsNoMessageIsAnsweredWithItsError) {
    const std::vector<Invalid> cases{
        {"", std::nullopt, ErrorCode::parseError},
        {"garbage", std::nullopt, ErrorCode::parseError},
        {R"({"jsonrpc":"2.0",)", std::nullopt, ErrorCode::parseError},
        {"\"\xff\"", std::nullopt, ErrorCode::parseError},
        {"[]", std::nullopt, ErrorCode::invalidRequest},
        {"{}", std::nullopt, ErrorCode::invalidRequest},
        {R"({"id":1,"method":"initialize"})", std::nullopt, ErrorCode::invalidRequest},
        {R"({"jsonrpc":"1.0","id":1,"method":"initialize"})", std::nullopt,
         ErrorCode::invalidRequest},
        {R"({"jsonrpc":"2.0","id":1.5,"method":"initialize"})", std::nullopt,
         ErrorCode::invalidRequest},
        {R"({"jsonrpc":"2.0","id":1})", std::nullopt, ErrorCode::invalidRequest},
        {R"({"jsonrpc":"2.0","id":1,"result":1,"error":{"code":1,"message":""}})", std::nullopt,
         ErrorCode::invalidRequest},
        {R"({"jsonrpc":"2.0","id":1,"method":"widget/explode"})", 1, ErrorCode::methodNotFound},
        {R"({"jsonrpc":"2.0","id":"a","method":"widget/timeline"})", "a", ErrorCode::invalidParams},
        {R"({"jsonrpc":"2.0","id":2,"method":"initialize","params":{"protocol":2,)"
         R"("systemVersion":"26"}})",
         2, ErrorCode::invalidParams},
        {R"({"jsonrpc":"2.0","id":3,"method":"widget/timeline","params":{"kind":"K",)"
         R"("environment":{"family":"huge"}}})",
         3, ErrorCode::invalidParams},
        {R"({"jsonrpc":"2.0","id":4,"method":"intent/perform","params":{"intent":{"name":"Go",)"
         R"("parameters":{"n":1.5}}}})",
         4, ErrorCode::invalidParams},
    };
    for (const Invalid& invalid : cases) {
        const auto message = decodeMessage(invalid.line);
        ASSERT_FALSE(message) << invalid.line;
        ASSERT_TRUE(message.failure().answer) << invalid.line;
        const Response& answer = *message.failure().answer;
        EXPECT_EQ(answer.id, invalid.id) << invalid.line;
        EXPECT_EQ(std::get<ResponseError>(answer.outcome).code, invalid.code) << invalid.line;
        EXPECT_FALSE(message.failure().reason.empty()) << invalid.line;
    }
}

TEST(Protocol, ABadNotificationIsNotAnswered) {
    const auto message = decodeMessage(R"({"jsonrpc":"2.0","method":"widget/explode"})");
    ASSERT_FALSE(message);
    EXPECT_EQ(message.failure().answer, std::nullopt);
}

TEST(Protocol, ALineOverTheLimitIsNoMessage) {
    const std::string blanks(maximumLineLength, ' ');
    EXPECT_FALSE(decodeMessage(blanks + R"({"jsonrpc":"2.0","id":1,"result":{}})"));
}

TEST(Results, ABundleReadsBackAsItWas) {
    const Bundle bundle{.widgets = {{.kind = "A",
                                     .displayName = "An A",
                                     .description = "What's an A?",
                                     .families = {Family::small, Family::large}}},
                        .controls = {{.kind = "C", .displayName = "Control", .description = ""}}};
    const std::string json = encodeBundle(bundle);
    EXPECT_EQ(json, R"({"widgets":[{"kind":"A","displayName":"An A","description":"What's an A?",)"
                    R"("families":["systemSmall","systemLarge"]}],)"
                    R"("controls":[{"kind":"C","displayName":"Control","description":""}]})");
    EXPECT_EQ(*decodeBundle(json), bundle);
}

TEST(Results, ATimelineReadsBackAsItWas) {
    Timeline timeline{
        .entries = {{.date = system::Date::since1970(1.5), .view = {.content = Spacer{}}},
                    {.date = system::Date::since1970(1), .view = {.content = Spacer{}}}},
        .policy = ReloadAfter{system::Date::since1970(86400)}};
    EXPECT_EQ(*decodeTimeline(encodeTimeline(timeline)), timeline);
    EXPECT_EQ(*decodeEntry(encodeEntry(timeline.entries.front())), timeline.entries.front());
    timeline.policy = ReloadNever{};
    EXPECT_NE(encodeTimeline(timeline).find(R"("policy":"never")"), std::string::npos);
    EXPECT_EQ(*decodeTimeline(encodeTimeline(timeline)), timeline);
}

TEST(Results, ATimelineWithoutEntriesOrWithAnotherPolicyIsRefused) {
    EXPECT_FALSE(decodeTimeline(R"({"entries":[],"policy":"never"})"));
    EXPECT_FALSE(decodeTimeline(R"({"entries":[{"date":1,"view":{"content":{"type":"spacer"},)"
                                R"("background":{"style":"clear"}}}],"policy":"often"})"));
    EXPECT_FALSE(decodeTimeline(R"({"entries":[{"date":"soon"}],"policy":"never"})"));
}

TEST(Results, AControlValueReadsBackAsItWas) {
    const ControlValue value{.running = true,
                             .text = "Until 3:30",
                             .symbol = "pause.fill",
                             .intent = {.name = "I", .parameters = {{"value", false}}}};
    EXPECT_EQ(*decodeControlValue(encodeControlValue(value)), value);
}

TEST(Results, FindingsReadBackAsTheyWere) {
    EXPECT_EQ(encodeFindings({}), R"({"findings":[]})");
    EXPECT_EQ(encodeFindings({"a \"b\"", "c"}), R"({"findings":["a \"b\"","c"]})");
    for (const std::vector<std::string>& findings :
         {std::vector<std::string>{}, {"one"}, {"one", "two\nlines"}})
        EXPECT_EQ(*decodeFindings(encodeFindings(findings)), findings);
    for (const char* const json : {"{}", "[]", R"({"findings":"one"})", R"({"findings":[1]})"})
        EXPECT_FALSE(decodeFindings(json)) << json;
}

}  // namespace
}  // namespace kelmar::kit
