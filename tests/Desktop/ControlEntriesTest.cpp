#include <QMenu>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Desktop/ControlEntries.h"
#include "tests/Host/HostTest.h"

namespace kelmar::desktop {
namespace {

using testing::ElementsAre;

const kit::Bundle bundle{
    .widgets = {},
    .controls = {{.kind = "Lamp", .displayName = "Desk & Lamp", .description = "Lights it."}}};

kit::ControlValue lampValue(bool running, const std::string& text) {
    return {.running = running,
            .text = text,
            .symbol = "circle",
            .intent = {.name = "Light", .parameters = {{"value", !running}}}};
}

class ControlEntriesTest : public host::HostTest {
protected:
    host::FakeProcess& process() { return launcher_.last(); }

    /// The value that was asked for last.
    void answer(const kit::ControlValue& value) {
        const auto requests = process().requests();
        for (std::size_t place = requests.size(); place-- > 0;) {
            if (std::holds_alternative<kit::ControlRequest>(requests[place].body)) {
                process().answer(place, kit::encodeControlValue(value));
                return;
            }
        }
        ADD_FAILURE() << "nothing was asked";
    }

    template <class Body>
    [[nodiscard]] std::vector<Body> asked() {
        std::vector<Body> bodies;
        for (const kit::Request& request : process().requests()) {
            if (const auto* body = std::get_if<Body>(&request.body)) {
                bodies.push_back(*body);
            }
        }
        return bodies;
    }

    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> texts;
        for (const QAction* action : menu_.actions()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return texts;
    }

    [[nodiscard]] QAction& entry() const { return *menu_.actions().constFirst(); }

    host::WidgetHost host_{
        {.executable = "/opt/lamp-extension", .urlScheme = "lamp", .reloadOnChange = {}}, parts_};
    QMenu menu_;
};

TEST_F(ControlEntriesTest, NoControlMeansNoEntryAndNoSeparator) {
    menu_.addAction("Quit");
    const ControlEntries entries(menu_, host_, Qt::black);
    EXPECT_THAT(texts(), ElementsAre("Quit"));
    process().introduce();
    EXPECT_THAT(texts(), ElementsAre("Quit"));
    EXPECT_EQ(entries.summary(), "");
}

TEST_F(ControlEntriesTest, ControlStandsAboveWhatTheMenuHolds) {
    menu_.addAction("Quit");
    const ControlEntries entries(menu_, host_, Qt::black);
    process().introduce(bundle);
    EXPECT_THAT(texts(), ElementsAre("Desk && Lamp", "-", "Quit"));
    EXPECT_FALSE(entry().isEnabled()) << "What it would do is not known yet";
    EXPECT_TRUE(entry().icon().isNull());
    answer(lampValue(true, "Bright"));
    EXPECT_THAT(texts(), ElementsAre("Desk && Lamp: Bright", "-", "Quit"));
    EXPECT_TRUE(entry().isEnabled());
    EXPECT_TRUE(entry().isCheckable());
    EXPECT_TRUE(entry().isChecked());
    EXPECT_FALSE(entry().icon().isNull());
    EXPECT_EQ(entry().toolTip(), "Lights it.");
    EXPECT_EQ(entries.summary(), "Desk & Lamp: Bright");
}

TEST_F(ControlEntriesTest, SymbolIsDrawnInTheInkGiven) {
    const ControlEntries entries(menu_, host_, QColor(200, 0, 0));
    process().introduce(bundle);
    answer(lampValue(false, "Dark"));
    const QImage symbol = entry().icon().pixmap(32).toImage();
    int inked = 0;
    for (int y = 0; y < symbol.height(); ++y) {
        for (int x = 0; x < symbol.width(); ++x) {
            inked += symbol.pixelColor(x, y) == QColor(200, 0, 0) ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 20);
}

TEST_F(ControlEntriesTest, OpeningTheMenuAsksAndTheAnswerIsSeenInTheOpenMenu) {
    process().introduce(bundle);
    answer(lampValue(false, "Dark"));
    const ControlEntries entries(menu_, host_, Qt::black);
    menu_.popup({0, 0});
    ASSERT_TRUE(menu_.isVisible());
    EXPECT_THAT(texts(), ElementsAre("Desk && Lamp: Dark"));
    EXPECT_EQ(asked<kit::ControlRequest>().size(), 2U);
    answer(lampValue(true, "Bright"));
    EXPECT_TRUE(menu_.isVisible());
    EXPECT_THAT(texts(), ElementsAre("Desk && Lamp: Bright"));
    EXPECT_TRUE(entry().isChecked());
}

TEST_F(ControlEntriesTest, PressPerformsTheControlsIntent) {
    const ControlEntries entries(menu_, host_, Qt::black);
    process().introduce(bundle);
    answer(lampValue(true, "Bright"));
    entry().trigger();
    EXPECT_THAT(asked<kit::PerformRequest>(),
                ElementsAre(kit::PerformRequest{lampValue(true, "").intent}));
}

TEST_F(ControlEntriesTest, MarkStaysAsItWasUntilTheNextValueComes) {
    const ControlEntries entries(menu_, host_, Qt::black);
    process().introduce(bundle);
    answer(lampValue(false, "Dark"));
    entry().trigger();
    EXPECT_FALSE(entry().isChecked());
    process().answer(process().requests().size() - 1, kit::emptyResult);
    EXPECT_FALSE(entry().isChecked());
    answer(lampValue(true, "Bright"));
    EXPECT_TRUE(entry().isChecked());
}

TEST_F(ControlEntriesTest, OpenMenuKeepsItsEntriesWhenTheOfferChanges) {
    menu_.addAction("Quit");
    const ControlEntries entries(menu_, host_, Qt::black);
    menu_.popup({0, 0});
    process().introduce(bundle);
    EXPECT_THAT(texts(), ElementsAre("Quit")) << "They would move under the pointer";
    menu_.hide();
    menu_.popup({0, 0});
    EXPECT_THAT(texts(), ElementsAre("Desk && Lamp", "-", "Quit"));
}

TEST_F(ControlEntriesTest, EndlessOrBrokenTextIsMadeOneShortLine) {
    const ControlEntries entries(menu_, host_, Qt::black);
    process().introduce(bundle);
    answer(lampValue(false, "Dark\n\tand " + std::string(5'000, 'd')));
    EXPECT_LT(entry().text().size(), 200);
    EXPECT_TRUE(entry().text().startsWith("Desk && Lamp: Dark and ddd"));
}

TEST_F(ControlEntriesTest, EntriesGoWithTheControl) {
    menu_.addAction("Quit");
    const ControlEntries entries(menu_, host_, Qt::black);
    process().introduce(bundle);
    answer(lampValue(false, "Dark"));
    host_.reloadControls();
    process().die("ended");
    host_.reloadControls();
    timers_.advance(host::HostLimits{}.firstRetry);
    process().introduce();
    EXPECT_THAT(texts(), ElementsAre("Quit"));
}

}  // namespace
}  // namespace kelmar::desktop
