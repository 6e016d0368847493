#include "DemoPlanner/PlannerWindow.h"

#include <QCheckBox>
#include <QFrame>
#include <utility>

#include "DemoPlanner/Activation.h"
#include "DemoPlanner/Opening.h"
#include "DemoPlanner/PlannerTexts.h"
#include "DemoPlanner/WindowPieces.h"

namespace kelmar::demo {

namespace {

constexpr int windowWidth = 400;

}  // namespace

PlannerWindow::PlannerWindow(PlannerService& service, const system::Calendar& calendar,
                             std::function<void()> changed)
    : service_(service), calendar_(calendar), changed_(std::move(changed)) {
    setWindowTitle("Kelmar Planner (stand-in)");
    setMinimumWidth(windowWidth);
    assignments_ = new QVBoxLayout;
    assignments_->setSpacing(4);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 18);
    column->setSpacing(8);
    column->addWidget(makeHeader());
    column->addWidget(makeOpeningCard());
    column->addWidget(makeHeading("Due today"));
    column->addLayout(assignments_);
    column->addWidget(makeHeading("Study timer"));
    column->addWidget(makeTimerRow());
    column->addWidget(makeHeading("Streak"));
    column->addWidget(makeStreakRow());
    column->addStretch();
    column->addWidget(makeSwitches());
}

QWidget* PlannerWindow::makeHeader() {
    const auto [header, row] = makeRow();
    row->addWidget(makeLabel("Kelmar Planner", 20, QFont::Bold), 1);
    QLabel* note = makeLabel("Stand-in", detailSize, QFont::DemiBold);
    tint(*note);
    row->addWidget(note);
    return header;
}

QWidget* PlannerWindow::makeOpeningCard() {
    auto* card = new QFrame;
    card->setObjectName("opening");
    card->setStyleSheet(
        "QFrame#opening { background: palette(base);"
        "border: 1px solid rgba(128, 128, 128, 60); border-radius: 10px; }");
    openingPlace_ = makeLabel("Would open", detailSize, QFont::DemiBold);
    tint(*openingPlace_);
    openingTitle_ = makeLabel("Nothing asked for yet", 15, QFont::DemiBold);
    openingDetail_ = makeLabel("Click something on a widget, and it is named here.", 12);
    openingUrl_ = makeDetail({});
    openingUrl_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    openingUrl_->hide();
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(14, 12, 14, 12);
    column->setSpacing(3);
    for (QLabel* label : {openingPlace_, openingTitle_, openingDetail_, openingUrl_}) {
        column->addWidget(label);
    }
    return card;
}

QWidget* PlannerWindow::makeTimerRow() {
    timerTitle_ = makeLabel({}, titleSize);
    timerStatus_ = makeDetail({});
    timerButton_ = new QPushButton;
    connect(timerButton_, &QPushButton::clicked, this, [this] {
        const bool runs = service_.planner().state().timer.phase == StudyTimer::Phase::running;
        service_.perform(runs ? Command(TurnTimerOff{}) : Command(TurnTimerOn{}));
        changed_();
    });
    const auto [widget, row] = makeRow();
    row->addLayout(makeLines(timerTitle_, timerStatus_), 1);
    row->addWidget(timerButton_);
    return widget;
}

QWidget* PlannerWindow::makeStreakRow() {
    streakTitle_ = makeLabel({}, titleSize);
    streakStatus_ = makeDetail({});
    const auto [widget, row] = makeRow();
    row->addLayout(makeLines(streakTitle_, streakStatus_), 1);
    return widget;
}

QWidget* PlannerWindow::makeSwitches() {
    auto* signedIn = new QCheckBox("Signed in");
    signedIn->setChecked(service_.planner().state().signedIn);
    connect(signedIn, &QCheckBox::toggled, this, [this](bool on) { service_.setSignedIn(on); });
    auto* connected = new QCheckBox("School calendar connected");
    connected->setChecked(service_.planner().state().schoolCalendarConnected);
    connect(connected, &QCheckBox::toggled, this,
            [this](bool on) { service_.setSchoolCalendarConnected(on); });
    const auto [widget, row] = makeRow();
    row->setContentsMargins(0, 10, 0, 0);
    row->addWidget(signedIn);
    row->addWidget(connected);
    row->addStretch();
    return widget;
}

QWidget* PlannerWindow::makeAssignmentRow(const Assignment& assignment) {
    auto* bar = new QFrame;
    bar->setFixedSize(3, 18);
    bar->setStyleSheet(
        QString("background: %1; border-radius: 1px;").arg(toText(assignment.item.classColor)));
    auto* box = new QCheckBox(toText(assignment.item.title).replace('&', "&&"));
    box->setChecked(assignment.done);
    connect(box, &QCheckBox::toggled, this, [this, id = assignment.item.id](bool done) {
        service_.setDone(id, done);
        changed_();
    });
    QLabel* due = makeDetail(toText(dueText(assignment, service_.now(), texts_)));
    due->setWordWrap(false);
    const auto [widget, row] = makeRow();
    row->setSpacing(8);
    row->addWidget(bar);
    row->addWidget(box, 1);
    row->addWidget(due);
    return widget;
}

void PlannerWindow::showOpening(const DeepLink& link, const std::string& url) {
    const Opening opening = openingOf(link, service_.planner());
    openingPlace_->setText("Would open · " + toText(opening.place));
    openingTitle_->setText(toText(opening.title));
    openingDetail_->setText(toText(opening.detail));
    openingDetail_->setVisible(!opening.detail.empty());
    openingUrl_->setText(toText(url));
    openingUrl_->show();
}

void PlannerWindow::present(const std::string& activationToken) {
    bringForward(*this, activationToken);
}

void PlannerWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refresh();
}

void PlannerWindow::refresh() {
    if (!isVisible()) {
        return;
    }
    refreshAssignments();
    const system::Date now = service_.now();
    const TimerTexts timer = timerTexts(service_.planner().timer(now), texts_);
    timerTitle_->setText(toText(timer.title));
    timerStatus_->setText(toText(timer.status));
    timerButton_->setText(toText(timer.button));
    const StreakTexts streak =
        streakTexts(service_.planner().state().streak.streak, now, calendar_);
    streakTitle_->setText(toText(streak.title));
    streakStatus_->setText(toText(streak.status));
}

void PlannerWindow::refreshAssignments() {
    while (QLayoutItem* item = assignments_->takeAt(0)) {
        // A row may be what asked for this.
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
    const std::vector<Assignment> today = service_.today();
    for (const Assignment& assignment : today) {
        assignments_->addWidget(makeAssignmentRow(assignment));
    }
    if (today.empty()) {
        assignments_->addWidget(makeLabel("Nothing is due today.", titleSize));
    }
}

}  // namespace kelmar::demo
