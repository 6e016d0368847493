#include "Tools/Stage.h"

#include <QCoreApplication>
#include <QEventLoop>

#include "Host/GioUrlOpener.h"
#include "Shared/PlannerFiles.h"
#include "System/HomeFolder.h"

namespace kelmar::tools {

namespace {

/// Completions come through Qt's event loop, which runs here for as long as a request is under way.
class DesktopAppLink final : public widget::AppLink {
public:
    void open(const std::string& url, widget::Completion completed) override {
        QEventLoop loop;
        opener_.open(url, {}, [&](const std::string& /*error*/) { loop.quit(); });
        loop.exec();
        completed();
    }

private:
    int argumentCount_ = 1;
    char name_[17] = "kelmar-widgetctl";     // NOLINT: Qt wants it writable
    char* arguments_[2] = {name_, nullptr};  // NOLINT
    QCoreApplication application_{argumentCount_, arguments_};
    host::GioUrlOpener opener_;
};

std::unique_ptr<system::Clock> makeClock(const Options& options) {
    if (options.now) {
        return std::make_unique<system::ManualClock>(*options.now);
    }
    return std::make_unique<system::SystemClock>();
}

}  // namespace

void RecordingAppLink::open(const std::string& url, widget::Completion completed) {
    urls_.push_back(url);
    if (next_) {
        next_->open(url, std::move(completed));
    } else {
        completed();
    }
}

std::unique_ptr<widget::AppLink> desktopAppLink() {
    return std::make_unique<DesktopAppLink>();
}

Stage::Stage(const Options& options, std::unique_ptr<widget::AppLink> appLink)
    : home_(options.home ? *options.home : system::homeFolder()),
      clock_(makeClock(options)),
      calendar_(system::makeCalendar(options.locale, options.timeZone)),
      localeTexts_(options.locale, options.timeZone),
      localization_(options.locale, system::catalogueFolder()),
      plannerFolder_(home_ + '/' + std::string(shared::plannerFolderPath)),
      tickedFolder_(home_ + '/' + std::string(shared::tickedFolderPath)),
      appLink_(std::move(appLink)),
      surroundings_{.clock = *clock_,
                    .calendar = *calendar_,
                    .localeTexts = localeTexts_,
                    .localization = localization_,
                    .plannerFolder = plannerFolder_,
                    .tickedFolder = tickedFolder_,
                    .appLink = appLink_},
      widgets_(surroundings_) {}

}  // namespace kelmar::tools
