#include "Kit/Archive.h"
#include "System/Url.h"

namespace kelmar::kit {

namespace {

/// Walks a tree for the first URL that does not belong to the extension.
class ForeignUrlFinder {
public:
    explicit ForeignUrlFinder(std::string_view scheme) : scheme_(scheme) {}

    [[nodiscard]] std::optional<std::string> check(const std::string& url) const {
        return system::isValidUrl(url) && system::urlScheme(url) == scheme_ ? std::nullopt
                                                                            : std::optional(url);
    }

    [[nodiscard]] std::optional<std::string> find(const View& view) const {
        return std::visit(Match{
                              [](const Text&) { return none; },
                              [](const Symbol&) { return none; },
                              [](const Spacer&) { return none; },
                              [](const Shape&) { return none; },
                              [](const Countdown&) { return none; },
                              [](const Progress&) { return none; },
                              [&](const HStack& stack) { return findIn(stack.children); },
                              [&](const VStack& stack) { return findIn(stack.children); },
                              [&](const ZStack& stack) { return findIn(stack.children); },
                              [&](const Frame& frame) { return find(*frame.child); },
                              [&](const Padding& padding) { return find(*padding.child); },
                              [&](const FixedSize& fixedSize) { return find(*fixedSize.child); },
                              [&](const Opacity& opacity) { return find(*opacity.child); },
                              [&](const Background& background) { return findInBoth(background); },
                              [&](const Overlay& overlay) { return findInBoth(overlay); },
                              [&](const Link& link) {
                                  const auto foreign = check(link.url);
                                  return foreign ? foreign : find(*link.child);
                              },
                              [&](const Button& button) { return find(*button.child); },
                              [&](const Toggle& toggle) { return find(*toggle.child); },
                              [&](const Accessible& accessible) { return find(*accessible.child); },
                          },
                          view.node);
    }

private:
    static constexpr std::optional<std::string> none = std::nullopt;

    [[nodiscard]] std::optional<std::string> findIn(const Children& views) const {
        for (const View& view : views) {
            if (auto foreign = find(view)) {
                return foreign;
            }
        }
        return none;
    }

    template <class Layered>
    [[nodiscard]] std::optional<std::string> findInBoth(const Layered& layered) const {
        const auto foreign = find(*layered.content);
        return foreign ? foreign : find(*layered.child);
    }

    std::string_view scheme_;
};

}  // namespace

std::optional<std::string> foreignUrl(const DrawnEntry& entry, std::string_view scheme) {
    const ForeignUrlFinder finder(scheme);
    if (entry.widgetUrl) {
        if (auto foreign = finder.check(*entry.widgetUrl)) {
            return foreign;
        }
    }
    return finder.find(entry.content);
}

}  // namespace kelmar::kit
