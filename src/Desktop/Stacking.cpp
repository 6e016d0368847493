#include "Desktop/Stacking.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "Desktop/X11.h"

namespace kelmar::desktop {

namespace {

using x11::Atom;

/// The window managers that come from Metacity, by the names that they give themselves.
constexpr std::array<std::string_view, 5> gnomeFamily{"GNOME Shell", "Marco", "Metacity", "Muffin",
                                                      "Mutter"};

bool isOfGnomeFamily(std::string_view manager) {
    return std::ranges::any_of(gnomeFamily,
                               [&](std::string_view name) { return manager.starts_with(name); });
}

Stacking usualStacking() {
    const auto check = x11::property(x11::root(), Atom::supportingWindowManager, XCB_ATOM_WINDOW);
    const std::span manager = x11::numbersIn(check);
    if (manager.empty()) {
        return Stacking::managed;  // The one that comes may keep windows below.
    }
    const auto hints = x11::property(x11::root(), Atom::supportedHints, XCB_ATOM_ATOM);
    const std::span understood = x11::numbersIn(hints);
    if (std::ranges::find(understood, numberOf(Atom::windowStateBelow)) == understood.end()) {
        return Stacking::bottom;
    }
    const auto name = x11::property(manager.front(), Atom::windowName, numberOf(Atom::utf8Text));
    return isOfGnomeFamily(x11::textIn(name)) ? Stacking::asDock : Stacking::managed;
}

bool isDesktopShown() {
    const auto property = x11::property(x11::root(), Atom::showingDesktop, XCB_ATOM_CARDINAL);
    const std::span value = x11::numbersIn(property);
    return !value.empty() && value.front() != 0;
}

}  // namespace

StackingRule::StackingRule() {
    if (x11::connection() != nullptr) {
        look();
        qGuiApp->installNativeEventFilter(this);
    }
}

StackingRule::~StackingRule() {
    qGuiApp->removeNativeEventFilter(this);
}

Stacking StackingRule::current() const {
    return usual_ == Stacking::managed && isDesktopShown_ ? Stacking::top : usual_;
}

/// Qt has the server tell it of all that changes on the root window.
bool StackingRule::nativeEventFilter(const QByteArray& /*eventType*/, void* message,
                                     qintptr* /*result*/) {
    const auto* notify = x11::eventOf<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY, message);
    constexpr std::array decisive{Atom::showingDesktop, Atom::supportingWindowManager,
                                  Atom::supportedHints};
    if (notify != nullptr && notify->window == x11::root() &&
        std::ranges::find(decisive, notify->atom, x11::numberOf) != decisive.end()) {
        look();
    }
    return false;
}

void StackingRule::look() {
    const Stacking before = current();
    usual_ = usualStacking();
    isDesktopShown_ = isDesktopShown();
    if (current() != before) {
        emit changed();
    }
}

}  // namespace kelmar::desktop
