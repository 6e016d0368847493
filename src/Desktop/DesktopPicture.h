#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>
#include <map>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/Screens.h"
#include "Host/WidgetHost.h"
#include "Layout/Layout.h"
#include "Paint/Appearance.h"
#include "Paint/PaintResources.h"
#include "System/Clock.h"

namespace kelmar::desktop {

/// The one screen that a picture is of: no real one is there to ask.
[[nodiscard]] std::vector<ScreenArea> pictureScreens();

/// Draws widgets where they stand, over a plain wallpaper, into an image.
class DesktopPicture final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        host::WidgetHost& host;
        const system::Clock& clock;
        const paint::PaintResources& resources;
        layout::Direction direction = layout::Direction::leftToRight;
    };

    DesktopPicture(const Parts& parts, const std::vector<WidgetPlace>& places,
                   const paint::PaintStyle& style);

signals:
    /// Once, as soon as every widget has its content.
    void finished(const QImage& picture);

private:
    void finishWhenComplete();
    [[nodiscard]] QImage draw() const;

    Parts parts_;
    paint::PaintStyle style_;
    std::map<host::WidgetId, WidgetPlace> places_;
    bool isFinished_ = false;
};

}  // namespace kelmar::desktop
