#pragma once

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>
#include <string>

#include "DemoPlanner/PlannerService.h"
#include "System/LocaleTexts.h"

namespace kelmar::demo {

/// What the stand-in shows instead of a planner: what a widget asked it to open, what is due, the
/// timer and the streak, all of which can be changed here too.
class PlannerWindow final : public QWidget {
public:
    /// `changed` runs after the planner was changed here.
    PlannerWindow(PlannerService& service, const system::Calendar& calendar,
                  std::function<void()> changed);

    /// Names what a deep link would have opened.
    void showOpening(const DeepLink& link, const std::string& url);
    /// Comes to the front, by the right of an activation token that may be empty.
    void present(const std::string& activationToken);
    /// Shows the planner as it is now; does nothing while nobody can see it.
    void refresh();

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QWidget* makeOpeningCard();
    [[nodiscard]] QWidget* makeTimerRow();
    [[nodiscard]] QWidget* makeStreakRow();
    [[nodiscard]] QWidget* makeSwitches();
    [[nodiscard]] QWidget* makeAssignmentRow(const Assignment& assignment);
    void refreshAssignments();

    PlannerService& service_;
    const system::Calendar& calendar_;
    system::LocaleTexts texts_{{}, {}};
    std::function<void()> changed_;

    QLabel* openingPlace_ = nullptr;
    QLabel* openingTitle_ = nullptr;
    QLabel* openingDetail_ = nullptr;
    QLabel* openingUrl_ = nullptr;
    QVBoxLayout* assignments_ = nullptr;
    QLabel* timerTitle_ = nullptr;
    QLabel* timerStatus_ = nullptr;
    QPushButton* timerButton_ = nullptr;
    QLabel* streakTitle_ = nullptr;
    QLabel* streakStatus_ = nullptr;
};

}  // namespace kelmar::demo
