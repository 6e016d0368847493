#pragma once

#include <QImage>
#include <QObject>
#include <QPainter>
#include <QRegion>
#include <optional>

#include "Desktop/Corners.h"
#include "Desktop/CrossFade.h"
#include "Desktop/Motion.h"
#include "Desktop/WidgetContent.h"
#include "Paint/Appearance.h"
#include "System/Clock.h"
#include "System/Date.h"

namespace kelmar::desktop {

/// Puts a widget's content into its window: in the desktop's colours, no more of it than has to be
/// drawn, and mixed with the former content while that gives way to it.
class WindowPainting final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the painting.
    WindowPainting(const WidgetContent& content, const system::Clock& clock);

    void setAppearance(const paint::Appearance& appearance) { appearance_ = appearance; }
    void setCorners(Corners corners) { corners_ = corners; }
    [[nodiscard]] Corners corners() const { return corners_; }
    /// Whether new content may fade in.
    void setMotion(Motion motion) { motion_ = motion; }

    /// To be called just before `next` takes the content's place in a window that can be seen. Only
    /// what can be compared fades: neither a placeholder nor content of another size does.
    void fadeTo(const WidgetContent& next);
    void endFade() { crossFade_.end(); }

    /// Draws these parts of the window, which are in points, if there is anything to draw; `scale`
    /// is in device pixels a point.
    void paint(QPainter& painter, const QRegion& parts, double scale);
    /// Marks a place as the one that has the keyboard, on top of what was painted last. The painter
    /// cannot be used for anything else after that.
    void paintFocus(QPainter& painter, const layout::Rect& rect) const;
    /// The moment that was painted last.
    [[nodiscard]] std::optional<system::Date> paintedMoment() const { return paintedMoment_; }

signals:
    /// Time for the next frame of a fade.
    void frameDue();

private:
    [[nodiscard]] paint::PaintStyle style() const;
    /// The pixels that the painter draws on, if they are the whole window's and all of it is to be
    /// drawn: then no picture of it has to be made first.
    [[nodiscard]] QImage* wholeSurface(const QPainter& painter, const QRegion& parts) const;
    void paintParts(QPainter& painter, const QRegion& parts) const;
    void paintPart(QPainter& painter, const QRect& part) const;
    void paintFormer(QPainter& painter) const;
    [[nodiscard]] QImage picture(const QRect& pixels) const;

    const WidgetContent& content_;
    const system::Clock& clock_;
    paint::Appearance appearance_;
    Corners corners_ = Corners::cutOut;
    Motion motion_ = Motion::full;
    double scale_ = 1;  ///< Of what was painted last.
    std::optional<system::Date> paintedMoment_;
    CrossFade crossFade_;
};

}  // namespace kelmar::desktop
