#include "DemoPlanner/PlannerWindow.h"

#include <QDateTime>
#include <QFrame>
#include <QLocale>
#include <cmath>
#include <utility>

#include "DemoPlanner/Opening.h"

namespace kelmar::demo {

namespace {

constexpr int windowWidth = 400;
constexpr const char* accent = "#4F46E5";

QString toText(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* makeLabel(const QString& text, const QString& style) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setStyleSheet("QLabel {" + style + "}");
    return label;
}

QLabel* makeHeading(const QString& text) {
    return makeLabel(text, "font-weight: 600; font-size: 11px; color: palette(placeholder-text);");
}

QDateTime toDateTime(system::Date date) {
    return QDateTime::fromMSecsSinceEpoch(
        static_cast<qint64>(std::floor(date.secondsSince1970() * 1000)));
}

QString timeText(system::Date date) {
    return QLocale().toString(toDateTime(date).time(), QLocale::ShortFormat);
}

QString dueText(const Assignment& assignment, system::Date now) {
    if (assignment.item.due < now) {
        return "overdue";
    }
    return assignment.item.hasTime ? "due " + timeText(assignment.item.due) : QString("due today");
}

QString minutesText(system::Seconds seconds) {
    return QString("%1 min").arg(std::lround(std::ceil(seconds / 60)));
}

QString timerText(const shared::WidgetData::Timer& timer) {
    const QString what = toText(timer.sessionTitle.empty() ? timer.className : timer.sessionTitle);
    if (timer.ringing) {
        return timer.isBreak ? "The break is over" : "Time’s up: " + what;
    }
    if (timer.endAt) {
        return what + ", until " + timeText(*timer.endAt);
    }
    return what + (timer.state == "paused" ? ", paused with " : ", ready for ") +
           minutesText(timer.secsLeft) + (timer.state == "paused" ? " left" : "");
}

QString streakText(const shared::WidgetData::Streak& streak) {
    return QString("%1 days, best %2").arg(streak.count).arg(streak.best);
}

}  // namespace

PlannerWindow::PlannerWindow(PlannerService& service, std::function<void()> changed)
    : service_(service), changed_(std::move(changed)) {
    setWindowTitle("Kelmar Planner (stand-in)");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 18, 20, 18);
    column->setSpacing(8);
    column->addWidget(makeHeader());
    column->addWidget(makeOpeningCard());
    column->addSpacing(6);
    column->addWidget(makeHeading("DUE TODAY"));
    assignments_ = new QVBoxLayout;
    assignments_->setSpacing(4);
    column->addLayout(assignments_);
    column->addSpacing(6);
    column->addWidget(makeHeading("STUDY TIMER"));
    column->addWidget(makeTimerRow());
    column->addSpacing(6);
    column->addWidget(makeHeading("STREAK"));
    streak_ = makeLabel({}, "font-size: 13px;");
    column->addWidget(streak_);
    column->addStretch();
    column->addWidget(makeSwitches());
    setMinimumWidth(windowWidth);
}

QWidget* PlannerWindow::makeHeader() {
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(makeLabel("Kelmar Planner", "font-size: 20px; font-weight: 700;"));
    row->addStretch();
    row->addWidget(makeLabel("Stand-in", QString("font-size: 11px; font-weight: 600; color: %1;"
                                                 "background: rgba(79, 70, 229, 36);"
                                                 "border-radius: 8px; padding: 2px 8px;")
                                             .arg(accent)));
    return header;
}

QWidget* PlannerWindow::makeOpeningCard() {
    auto* card = new QFrame;
    card->setObjectName("opening");
    card->setStyleSheet(
        QString("QFrame#opening { background: palette(base);"
                "border: 1px solid rgba(128, 128, 128, 60); border-radius: 10px; }"));
    auto* column = new QVBoxLayout(card);
    column->setContentsMargins(14, 12, 14, 12);
    column->setSpacing(3);
    openingPlace_ = makeLabel("WOULD OPEN",
                              QString("font-size: 11px; font-weight: 600; color: %1;").arg(accent));
    openingTitle_ = makeLabel("Nothing asked for yet", "font-size: 15px; font-weight: 600;");
    openingDetail_ =
        makeLabel("Click something on a widget, and it is named here.", "font-size: 12px;");
    openingUrl_ = makeLabel({}, "font-size: 11px; color: palette(placeholder-text);");
    openingUrl_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    openingUrl_->hide();
    for (QLabel* label : {openingPlace_, openingTitle_, openingDetail_, openingUrl_}) {
        column->addWidget(label);
    }
    return card;
}

QWidget* PlannerWindow::makeTimerRow() {
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    timer_ = makeLabel({}, "font-size: 13px;");
    timerButton_ = new QPushButton;
    connect(timerButton_, &QPushButton::clicked, this, [this] {
        const bool pauses = service_.planner().state().timer.phase == StudyTimer::Phase::running;
        service_.perform(pauses ? Command(TurnTimerOff{}) : Command(TurnTimerOn{}));
        changed_();
    });
    row->addWidget(timer_, 1);
    row->addWidget(timerButton_);
    return widget;
}

QWidget* PlannerWindow::makeSwitches() {
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 8, 0, 0);
    auto* signedIn = new QCheckBox("Signed in");
    signedIn->setChecked(service_.planner().state().signedIn);
    connect(signedIn, &QCheckBox::toggled, this, [this](bool on) { service_.setSignedIn(on); });
    auto* connected = new QCheckBox("School calendar connected");
    connected->setChecked(service_.planner().state().schoolCalendarConnected);
    connect(connected, &QCheckBox::toggled, this,
            [this](bool on) { service_.setSchoolCalendarConnected(on); });
    row->addWidget(signedIn);
    row->addWidget(connected);
    row->addStretch();
    return widget;
}

void PlannerWindow::showOpening(const DeepLink& link, const std::string& url) {
    const Opening opening = openingOf(link, service_.planner());
    openingPlace_->setText("WOULD OPEN · " + toText(opening.place).toUpper());
    openingTitle_->setText(toText(opening.title));
    openingDetail_->setText(toText(opening.detail));
    openingDetail_->setVisible(!opening.detail.empty());
    openingUrl_->setText(toText(url));
    openingUrl_->show();
    present();
}

void PlannerWindow::present() {
    show();
    raise();
    activateWindow();
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
    refreshTimer();
    streak_->setText(streakText(service_.planner().state().streak.streak));
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
        assignments_->addWidget(makeLabel("Nothing is due today.", "font-size: 13px;"));
    }
}

QWidget* PlannerWindow::makeAssignmentRow(const Assignment& assignment) {
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
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
    row->addWidget(bar);
    row->addWidget(box, 1);
    row->addWidget(
        makeLabel(assignment.done ? QString("done") : dueText(assignment, service_.now()),
                  "font-size: 11px; color: palette(placeholder-text);"));
    return widget;
}

void PlannerWindow::refreshTimer() {
    const Planner& planner = service_.planner();
    timer_->setText(timerText(planner.timer(service_.now())));
    switch (planner.state().timer.phase) {
        case StudyTimer::Phase::ready:
            timerButton_->setText("Start");
            return;
        case StudyTimer::Phase::running:
            timerButton_->setText("Pause");
            return;
        case StudyTimer::Phase::paused:
            timerButton_->setText("Resume");
            return;
        case StudyTimer::Phase::ringing:
            timerButton_->setText("Stop alarm");
            return;
    }
}

}  // namespace kelmar::demo
