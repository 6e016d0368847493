#include "Tools/EntryOutline.h"

#include <fmt/format.h>

#include "Tools/Moment.h"

namespace kelmar::tools {

namespace {

class Outline {
public:
    void add(const kit::View& view) {
        std::visit(kit::Match{[&](const kit::Text& text) { line("\"{}\"", text.text); },
                              [&](const kit::Symbol& symbol) { line("({})", symbol.name); },
                              [&](const kit::HStack& stack) { addAll(stack.children); },
                              [&](const kit::VStack& stack) { addAll(stack.children); },
                              [&](const kit::ZStack& stack) { addAll(stack.children); },
                              [](const kit::Spacer&) {}, [](const kit::Shape&) {},
                              [&](const kit::Countdown& countdown) {
                                  line("countdown to {}", describedMoment(countdown.to));
                              },
                              [&](const kit::Progress& progress) { add(progress); },
                              [&](const kit::Frame& frame) { add(*frame.child); },
                              [&](const kit::Padding& padding) { add(*padding.child); },
                              [&](const kit::FixedSize& fixedSize) { add(*fixedSize.child); },
                              [&](const kit::Opacity& opacity) { add(*opacity.child); },
                              [&](const kit::Background& background) {
                                  add(*background.content);
                                  add(*background.child);
                              },
                              [&](const kit::Overlay& overlay) {
                                  add(*overlay.child);
                                  add(*overlay.content);
                              },
                              [&](const kit::Link& link) {
                                  line("link {}", link.url);
                                  addInside(*link.child);
                              },
                              [&](const kit::Button& button) {
                                  line("button \"{}\" runs {}", button.label,
                                       described(button.intent));
                                  addInside(*button.child);
                              },
                              [&](const kit::Toggle& toggle) {
                                  line("toggle, {}, runs {}", toggle.isOn ? "on" : "off",
                                       described(toggle.intent));
                                  addInside(*toggle.child);
                              },
                              [&](const kit::Accessible& accessible) {
                                  line("read as \"{}\"", accessible.label);
                                  addInside(*accessible.child);
                              }},
                   view.node);
    }

    [[nodiscard]] std::string text() && { return std::move(text_); }

private:
    template <class... Arguments>
    void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
        text_.append(indent_ * 2, ' ');
        fmt::format_to(std::back_inserter(text_), format, std::forward<Arguments>(arguments)...);
        text_ += '\n';
    }

    void add(const kit::Progress& progress) {
        std::visit(kit::Match{[&](const kit::BarValue& bar) {
                                  line("bar, {:.0f} % full", bar.value * 100);
                              },
                              [&](const kit::BarInterval& bar) {
                                  line("bar, empty at {}", describedMoment(bar.to));
                              }},
                   progress.value);
    }

    void addAll(const kit::Children& views) {
        for (const kit::View& view : views) {
            add(view);
        }
    }

    void addInside(const kit::View& view) {
        ++indent_;
        add(view);
        --indent_;
    }

    static std::string described(const kit::Intent& intent) {
        std::string text = intent.name;
        for (const auto& [name, value] : intent.parameters) {
            text +=
                " " + name + "=" +
                std::visit(kit::Match{[](const std::string& word) { return '"' + word + '"'; },
                                      [](bool truth) { return fmt::format("{}", truth); },
                                      [](std::int64_t number) { return std::to_string(number); }},
                           value);
        }
        return text;
    }

    std::string text_;
    std::size_t indent_ = 0;
};

}  // namespace

std::string outline(const kit::DrawnEntry& entry) {
    Outline outline;
    outline.add(entry.content);
    std::string text = std::move(outline).text();
    if (entry.widgetUrl) {
        text += fmt::format("elsewhere: link {}\n", *entry.widgetUrl);
    }
    return text;
}

}  // namespace kelmar::tools
