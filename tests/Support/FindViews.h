#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "Kit/View.h"

namespace kelmar::testing {

/// Calls `visit` for every view of a tree, parents first, in the order in which they are written.
template <class Visit>
void forEachView(const kit::View& view, const Visit& visit) {
    visit(view);
    const auto all = [&](const auto& stack) {
        for (const kit::View& child : stack.children)
            forEachView(child, visit);
    };
    const auto one = [&](const auto& modifier) { forEachView(*modifier.child, visit); };
    const auto both = [&](const auto& layered) {
        forEachView(*layered.content, visit);
        forEachView(*layered.child, visit);
    };
    std::visit(
        kit::Match{
            [](const kit::Text&) {}, [](const kit::Symbol&) {}, [](const kit::Spacer&) {},
            [](const kit::Shape&) {}, [](const kit::Countdown&) {}, [](const kit::Progress&) {},
            [&](const kit::HStack& node) { all(node); },
            [&](const kit::VStack& node) { all(node); },
            [&](const kit::ZStack& node) { all(node); }, [&](const kit::Frame& node) { one(node); },
            [&](const kit::Padding& node) { one(node); },
            [&](const kit::FixedSize& node) { one(node); },
            [&](const kit::Opacity& node) { one(node); },
            [&](const kit::Background& node) { both(node); },
            [&](const kit::Overlay& node) { both(node); },
            [&](const kit::Link& node) { one(node); }, [&](const kit::Button& node) { one(node); },
            [&](const kit::Toggle& node) { one(node); },
            [&](const kit::Accessible& node) { one(node); }},
        view.node);
}

/// All views of one kind in a tree.
template <class Node>
[[nodiscard]] std::vector<Node> allOf(const kit::View& view) {
    std::vector<Node> found;
    forEachView(view, [&](const kit::View& candidate) {
        if (const auto* node = std::get_if<Node>(&candidate.node))
            found.push_back(*node);
    });
    return found;
}

[[nodiscard]] inline std::vector<std::string> textsOf(const kit::View& view) {
    std::vector<std::string> texts;
    for (const kit::Text& text : allOf<kit::Text>(view))
        texts.push_back(text.text);
    return texts;
}

/// The text view that says this; a test that asks for one that is not there fails by exception.
[[nodiscard]] inline kit::Text textSaying(const kit::View& view, const std::string& words) {
    for (const kit::Text& text : allOf<kit::Text>(view)) {
        if (text.text == words)
            return text;
    }
    throw std::runtime_error("no text says \"" + words + "\"");
}

}  // namespace kelmar::testing
