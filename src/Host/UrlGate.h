#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "Host/UrlOpener.h"

namespace kelmar::host {

/// Lets through to the desktop only URLs of the one scheme that an extension has for itself: what
/// it says may be wrong or worse, and other schemes reach other programs.
class UrlGate {
public:
    UrlGate(UrlOpener& opener, std::string scheme) : opener_(opener), scheme_(std::move(scheme)) {}

    [[nodiscard]] bool allows(const std::string& url) const;
    /// As UrlOpener::open, but what completes after the gate has gone is not told any more; a
    /// refused URL completes with an error before this returns.
    void open(const std::string& url, OpenOptions options,
              std::function<void(std::string error)> completed);

private:
    UrlOpener& opener_;
    std::string scheme_;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

/// Opens the URLs of one extension process one after the other, because they are commands whose
/// order matters to who receives them.
class UrlQueue {
public:
    UrlQueue(UrlGate& gate, std::size_t longest) : gate_(gate), longest_(longest) {}

    struct Item {
        std::string url;
        OpenOptions options;
        std::function<void(std::string error)> completed;
    };
    /// Whether there was room for it.
    [[nodiscard]] bool add(Item item);
    /// Drops those that have not begun, as does the queue when it goes; what has begun completes
    /// unheard.
    void clear();
    /// Whether nothing is being opened or waits for it.
    [[nodiscard]] bool isEmpty() const { return items_.empty(); }
    [[nodiscard]] std::size_t waiting() const { return items_.empty() ? 0 : items_.size() - 1; }

private:
    void openFirst();
    void completeFirst(const std::string& error);

    UrlGate& gate_;
    std::size_t longest_;
    std::deque<Item> items_;  ///< The first is being opened.
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
};

}  // namespace kelmar::host
