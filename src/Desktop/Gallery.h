#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <string>

#include "Desktop/GalleryParts.h"
#include "Desktop/GalleryWindow.h"

namespace kelmar::desktop {

/// The gallery as a thing to be called: one window, made when it is wanted and gone when it is
/// closed.
class Gallery final : public QObject {
    Q_OBJECT

public:
    explicit Gallery(GalleryParts parts);
    ~Gallery() override;

    /// Opens it on the screen under the pointer, or brings it to the front.
    void present();
    [[nodiscard]] bool isOpen() const { return !window_.isNull(); }
    /// From which side it is written when it is opened next.
    void setDirection(layout::Direction direction) { parts_.direction = direction; }

signals:
    /// The widget is wanted at any free place on the screen that holds this point.
    void chosen(const std::string& kind, kelmar::kit::Family family, QPoint near);
    /// The widget is wanted with its top left corner there.
    void dropped(const std::string& kind, kelmar::kit::Family family, QPoint position);
    void closed();

private:
    void open();

    GalleryParts parts_;
    QPointer<GalleryWindow> window_;  ///< Null while it is closed.
};

}  // namespace kelmar::desktop
