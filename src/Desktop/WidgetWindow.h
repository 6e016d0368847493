#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Desktop/CrossFade.h"
#include "Desktop/Dragging.h"
#include "Desktop/FocusChain.h"
#include "Desktop/Motion.h"
#include "Desktop/Press.h"
#include "Desktop/WindowVisibility.h"
#include "Kit/Timeline.h"
#include "Layout/Layout.h"
#include "Paint/Appearance.h"
#include "Paint/WidgetPicture.h"
#include "System/Clock.h"

namespace kelmar::desktop {

/// Whether the corners are left out of the window, or transparent in it. The latter needs a
/// compositor, without which they would be black.
enum class Corners { cutOut, transparent };

/// One widget on the desktop: draws what it is given and tells what the user does to it.
class WidgetWindow final : public QWidget {
    Q_OBJECT

public:
    /// `clock` must outlive the window.
    WidgetWindow(kit::Family family, const system::Clock& clock);

    /// Also what a screen reader calls the widget.
    void setName(const QString& name);
    void setFamily(kit::Family family);
    void setAppearance(const paint::Appearance& appearance);
    void setCorners(Corners corners);
    /// Whether new content may fade in.
    void setMotion(Motion motion) { motion_ = motion; }
    /// By which the window can be dragged; without one it cannot.
    void setDragRule(DragRule rule);
    /// What is to be seen from now on; `resources` must outlive it. A redacted widget cannot be
    /// pressed: what it shows is not the user's.
    void setContent(const kit::DrawnEntry& entry, paint::Redaction redaction,
                    layout::Direction direction, const paint::PaintResources& resources);

    /// What is said in a tooltip, asked each time one is about to appear; nothing for none.
    void setToolTipSource(std::function<QString()> source);
    /// The clock was set: draws anew what depends on it, such as a countdown.
    void followClock();

    /// What is shown, from the window's top left corner; empty while it is redacted.
    [[nodiscard]] const layout::PlacedBoxes& boxes() const;
    /// What there is to read and to press, in the order in which it is read: a link over the whole
    /// widget if it has an URL of its own, and the boxes.
    [[nodiscard]] layout::PlacedBoxes readableBoxes() const;
    [[nodiscard]] system::Date now() const { return clock_.now(); }
    /// Runs an action as a press on it would.
    void run(const layout::Action& action);

    [[nodiscard]] const FocusChain& focusChain() const { return focusChain_; }
    /// What the keyboard presses now, if it is here and there is something to press.
    [[nodiscard]] const PressTarget* focused() const;
    /// Has the keyboard come: to where it was last, to the first or last target, or to this one.
    void requestKeyboard();
    void enterByKeyboard(FocusStep step);
    void focusOn(const PressTarget& target);

signals:
    void actionRequested(const kelmar::layout::Action& action);
    void keyboardRequested();
    /// The Tab key has gone past the last target.
    void keyboardPassedOn(kelmar::desktop::FocusStep step);
    void keyboardReturned();
    void movedByHand(QPoint position);
    void menuRequested(QPoint screenPosition);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] std::optional<PressTarget> targetAtPointer(QPointF position) const;
    void drag(QPoint pointer);
    void updateCursor(const std::optional<PressTarget>& target);
    void drawPart(QPainter& painter, const QRect& part);
    void redrawLiveAreas();
    [[nodiscard]] QImage shownPicture(const QRect& pixels) const;
    void fadeTo(const paint::WidgetPicture& next, paint::Redaction redaction);
    void paintFormer(QPainter& painter) const;
    void paintFocus(QPainter& painter) const;
    void showFocus();
    void updateMask();
    void scheduleLiveChange();

    const system::Clock& clock_;
    kit::Family family_;
    paint::PaintStyle style_;
    Corners corners_ = Corners::cutOut;
    Motion motion_ = Motion::full;
    std::optional<paint::WidgetPicture> picture_;
    std::optional<std::string> widgetUrl_;
    std::function<QString()> toolTipSource_;
    std::optional<system::Date> shownMoment_;  ///< When it was last drawn.
    PressGesture gesture_;
    DragRule dragRule_;
    FocusChain focusChain_;
    QPoint grip_;  ///< From the window's top left corner to where the pointer holds it.
    std::unique_ptr<WindowVisibility> visibility_;
    QTimer liveTimer_;
    CrossFade crossFade_;
};

}  // namespace kelmar::desktop
