#pragma once

#include <QWidget>
#include <functional>

#include "Desktop/Corners.h"
#include "Desktop/LiveDrawing.h"
#include "Desktop/Motion.h"
#include "Desktop/Stacking.h"
#include "Desktop/WidgetContent.h"
#include "Desktop/WidgetKeyboard.h"
#include "Desktop/WidgetPointer.h"
#include "Desktop/WindowPainting.h"
#include "System/Clock.h"

namespace kelmar::desktop {

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
    void setStacking(Stacking stacking);
    /// Whether new content may fade in.
    void setMotion(Motion motion) { painting_.setMotion(motion); }
    /// By which the window can be dragged; without one it cannot.
    void setDragRule(DragRule rule);
    /// What is to be seen from now on; `resources` must outlive it. A redacted widget cannot be
    /// pressed: what it shows is not the user's. Before the first of it nothing is drawn at all.
    void setContent(const kit::DrawnEntry& entry, paint::Redaction redaction,
                    layout::Direction direction, const paint::PaintResources& resources);
    [[nodiscard]] bool hasContent() const { return content_.picture() != nullptr; }

    /// What is said in a tooltip, asked each time one is about to appear; nothing for none.
    void setToolTipSource(std::function<QString()> source);
    /// The clock was set: draws anew what depends on it, such as a countdown.
    void followClock();
    /// The screens have changed: draws the card anew if they have another scale.
    void followScreens();

    /// What is shown.
    [[nodiscard]] const WidgetContent& content() const { return content_; }
    [[nodiscard]] system::Date now() const { return clock_.now(); }
    [[nodiscard]] WidgetKeyboard& keyboard() { return keyboard_; }
    [[nodiscard]] const WidgetKeyboard& keyboard() const { return keyboard_; }
    /// Runs an action as a press on it would.
    void run(const layout::Action& action);

signals:
    void actionRequested(const kelmar::layout::Action& action);
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
    void connectParts();
    void chooseFlags();
    void remakeNativeWindow();
    void updateMask();
    void showFocus();

    const system::Clock& clock_;
    kit::Family family_;
    WidgetContent content_;
    WindowPainting painting_;
    LiveDrawing liveDrawing_;
    WidgetPointer pointer_;
    WidgetKeyboard keyboard_;
    Stacking stacking_ = Stacking::managed;
    double scale_ = 1;  ///< Of the screen when the native window was made.
    std::function<QString()> toolTipSource_;
};

}  // namespace kelmar::desktop
