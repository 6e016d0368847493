#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/DesktopItem.h"
#include "Desktop/DesktopParts.h"
#include "Desktop/Gallery.h"
#include "Desktop/Options.h"
#include "Desktop/Removals.h"
#include "Desktop/ShownWidgets.h"
#include "Desktop/WidgetMenu.h"
#include "Desktop/WidgetPresentation.h"

namespace kelmar::desktop {

/// The widgets on the desktop: what the user does to them, and where they are from one session to
/// the next.
class Desktop final : public QObject {
    Q_OBJECT

public:
    /// Shows the arrangement of the last session and what the options add to it. On the first start
    /// one widget of every kind appears as soon as the extension has said what it offers; where the
    /// last session left none, the gallery does.
    Desktop(const DesktopParts& parts, const Options& options);

    /// Gives the keyboard to the widgets, until Escape gives it back.
    void takeKeyboard() { widgets_.takeKeyboard(); }

    /// Keeps the places for the next session.
    void save() const;

    /// Opens the gallery on the screen under the pointer, or brings it to the front.
    void showGallery() { gallery_.present(); }
    /// The user's language is another, and may be written from the other side.
    void setDirection(layout::Direction direction);

    /// Everything that belongs on the desktop, back to front.
    [[nodiscard]] std::vector<DesktopItem> items() const;

signals:
    void quitRequested();
    /// Nothing is left to be seen: the last widget has been removed, the bar that offered to bring
    /// it back has gone, and the gallery is closed.
    void emptied();

private:
    void connectParts();
    void takeBundle();
    void putUnknownAside();
    void bringKnownBack();

    void addAndSave(const WidgetPlace& place);
    void addFresh(const std::string& kind, kit::Family family, QPoint near);
    void addDropped(const std::string& kind, kit::Family family, QPoint position);
    void remove(host::WidgetId id);
    void tellIfEmpty();

    void popUpMenu(host::WidgetId id, QPoint position);
    [[nodiscard]] MenuActions menuActions(host::WidgetId id);

    DesktopParts parts_;
    bool isFirstStart_ = false;
    QJsonObject unknown_;  ///< Of the arrangement, kept as it is.
    WidgetPresentation presentation_;
    ShownWidgets widgets_;
    /// Kept for the day on which the extension offers their kinds again.
    std::vector<WidgetPlace> notOffered_;
    Removals removals_;
    Gallery gallery_;
};

}  // namespace kelmar::desktop
