#include "Host/UrlGate.h"

#include <fmt/format.h>
#include <utility>

#include "System/Url.h"

namespace kelmar::host {

bool UrlGate::allows(const std::string& url) const {
    return system::isValidUrl(url) && system::urlScheme(url) == scheme_;
}

void UrlGate::open(const std::string& url, OpenOptions options,
                   std::function<void(std::string error)> completed) {
    if (allows(url)) {
        opener_.open(url, options,
                     [completed = std::move(completed),
                      alive = std::weak_ptr(isAlive_)](const std::string& error) {
                         if (!alive.expired()) {
                             completed(error);
                         }
                     });
        return;
    }
    completed(fmt::format("only a URL of {}: may be opened", scheme_));
}

bool UrlQueue::add(Item item) {
    if (items_.size() >= longest_) {
        return false;
    }
    items_.push_back(std::move(item));
    if (items_.size() == 1) {
        openFirst();
    }
    return true;
}

void UrlQueue::clear() {
    items_.clear();
    isAlive_ = std::make_shared<bool>(true);
}

void UrlQueue::openFirst() {
    const Item first = items_.front();
    gate_.open(first.url, first.options,
               [this, alive = std::weak_ptr(isAlive_)](const std::string& error) {
                   if (!alive.expired()) {
                       completeFirst(error);
                   }
               });
}

void UrlQueue::completeFirst(const std::string& error) {
    const auto completed = std::move(items_.front().completed);
    items_.pop_front();
    const std::weak_ptr alive = isAlive_;
    completed(error);
    if (!alive.expired() && !items_.empty()) {
        openFirst();
    }
}

}  // namespace kelmar::host
