#pragma once

#include <memory>
#include <string>
#include <vector>

#include "System/Clock.h"
#include "System/Folder.h"
#include "Tools/Options.h"
#include "Widget/PlannerWidgets.h"
#include "Widget/Surroundings.h"

namespace kelmar::tools {

/// The app link of the command line: keeps what was opened, and hands it on where it is to be
/// opened for real.
class RecordingAppLink final : public widget::AppLink {
public:
    explicit RecordingAppLink(std::unique_ptr<widget::AppLink> next) : next_(std::move(next)) {}

    void open(const std::string& url, widget::Completion completed) override;
    [[nodiscard]] const std::vector<std::string>& urls() const { return urls_; }

private:
    std::unique_ptr<widget::AppLink> next_;
    std::vector<std::string> urls_;
};

/// Opens URLs with the desktop's handler and waits until the request has completed.
[[nodiscard]] std::unique_ptr<widget::AppLink> desktopAppLink();

/// The extension's surroundings as a command line chooses them.
class Stage {
public:
    explicit Stage(const Options& options, std::unique_ptr<widget::AppLink> appLink = nullptr);

    [[nodiscard]] const widget::Surroundings& surroundings() const { return surroundings_; }
    [[nodiscard]] const widget::PlannerWidgets& widgets() const { return widgets_; }
    [[nodiscard]] const RecordingAppLink& appLink() const { return appLink_; }
    [[nodiscard]] const std::string& home() const { return home_; }

private:
    std::string home_;
    std::unique_ptr<system::Clock> clock_;
    std::unique_ptr<system::Calendar> calendar_;
    system::LocaleTexts localeTexts_;
    system::GettextLocalization localization_;
    system::DiskFolder plannerFolder_;
    system::DiskFolder tickedFolder_;
    RecordingAppLink appLink_;
    widget::Surroundings surroundings_;
    widget::PlannerWidgets widgets_;
};

}  // namespace kelmar::tools
