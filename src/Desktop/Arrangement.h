#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QPoint>
#include <QRect>
#include <string>
#include <vector>

#include "Kit/Environment.h"
#include "System/Result.h"

/// What the user has put on the desktop, as it is kept from one session to the next.
namespace kelmar::desktop {

/// By what a screen is known again: the device itself where it says what it is, else its
/// connector's name, and its geometry to tell two screens apart that were plugged into the same
/// connector one after the other.
struct ScreenIdentity {
    std::string name;
    QRect geometry;
    std::string model = {};         ///< Empty where the screen does not tell.
    std::string serialNumber = {};  ///< Empty where the screen does not tell.

    friend bool operator==(const ScreenIdentity&, const ScreenIdentity&) = default;
};

/// A widget where the user left it. Stays as it is while its screen is gone, so that the widget
/// goes home when the screen returns.
struct WidgetPlace {
    std::string kind;
    kit::Family family = kit::Family::medium;
    ScreenIdentity screen;
    QPoint position;  ///< Of the top left corner, from the screen's top left corner, in points.
    QJsonObject unknown = {};  ///< What a later program wrote beside this; kept as it is.

    friend bool operator==(const WidgetPlace&, const WidgetPlace&) = default;
};

/// Whether the widgets may be moved, resized and removed.
enum class ArrangementLock { open, locked };

struct Arrangement {
    kit::RenderingMode renderingMode = kit::RenderingMode::fullColor;
    ArrangementLock lock = ArrangementLock::open;
    std::vector<WidgetPlace> widgets = {};  ///< Back to front.
    QJsonObject unknown = {};  ///< What a later program wrote beside this; kept as it is.

    friend bool operator==(const Arrangement&, const Arrangement&) = default;
};

[[nodiscard]] QByteArray encodeArrangement(const Arrangement& arrangement);
/// All or nothing: half an arrangement, once saved again, would be the loss of the other half.
[[nodiscard]] system::Result<Arrangement> decodeArrangement(const QByteArray& json);

}  // namespace kelmar::desktop
