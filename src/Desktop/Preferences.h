#pragma once

#include <QColor>
#include <QString>
#include <QVariant>
#include <optional>

#include "Desktop/Motion.h"
#include "Paint/Appearance.h"
#include "System/Result.h"

namespace kelmar::desktop {

/// What the desktop prefers, as far as it says so.
struct Preferences {
    std::optional<paint::Scheme> scheme;
    QColor accent;  ///< Invalid for none.
    std::optional<QString> fontFamily;
    std::optional<double> fontSize;  ///< Of that font in menus and the like, in points.
    /// How much larger than usual texts are wanted, at least 1. See `ownTextScale`.
    double textScale = 1;
    /// Said in two places: for all programs, and by the desktop for its own toolkit.
    Motion motion = Motion::full;
    Motion toolkitMotion = Motion::full;

    [[nodiscard]] Motion leastMotion() const {
        return motion == Motion::full ? toolkitMotion : motion;
    }

    friend bool operator==(const Preferences&, const Preferences&) = default;
};

/// In which settings of the portal the desktops say it.
namespace setting {
inline const auto appearance = QStringLiteral("org.freedesktop.appearance");
inline const auto gnomeInterface = QStringLiteral("org.gnome.desktop.interface");
inline const auto kdeGeneral = QStringLiteral("org.kde.kdeglobals.General");
inline const auto kdeAll = QStringLiteral("org.kde.kdeglobals.KDE");
}  // namespace setting

/// The preferences after a setting has got a value, or what is wrong with that: which setting it
/// is, what came, as D-Bus has it, and what was expected. Settings that mean nothing here leave the
/// preferences as they are; numbers and texts beyond those that are known count as no preference.
[[nodiscard]] system::Result<Preferences> withSetting(Preferences preferences,
                                                      const QString& settingNamespace,
                                                      const QString& key, const QVariant& value);

}  // namespace kelmar::desktop
