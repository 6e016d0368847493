#include "DemoPlanner/Application.h"

#include <QApplication>
#include <optional>
#include <utility>

namespace kelmar::demo {

Application::Application(PlannerStorage& storage, LogLine log)
    : own_(system::makeCalendar({}, {})),
      gregorian_(system::makeCalendar("en_US@calendar=gregorian", {})),
      service_(storage, clock_, Calendars{*own_, *gregorian_}, std::move(log)),
      timer_([this] { wake(); }) {
    settle();
}

void Application::handle(const StartRequest& request) {
    switch (request.kind) {
        case StartRequest::Kind::show:
            window().present(request.activationToken);
            break;
        case StartRequest::Kind::stayInBackground:
            break;
        case StartRequest::Kind::openUrl:
            if (const std::optional<DeepLink> link = service_.open(request.url)) {
                window().showOpening(*link, request.url);
                window().present(request.activationToken);
            }
            break;
        case StartRequest::Kind::quit:
            QApplication::quit();
            break;
    }
    settle();
}

PlannerWindow& Application::window() {
    if (!window_) {
        window_ = std::make_unique<PlannerWindow>(service_, *own_, [this] { settle(); });
    }
    return *window_;
}

void Application::wake() {
    const StudyTimer::Phase before = service_.planner().state().timer.phase;
    service_.wake();
    if (before != service_.planner().state().timer.phase) {
        QApplication::beep();
    }
    settle();
}

void Application::settle() {
    timer_.set(service_.nextChange());
    if (window_) {
        window_->refresh();
    }
}

}  // namespace kelmar::demo
