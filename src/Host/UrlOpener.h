#pragma once

#include <functional>
#include <string>

namespace kelmar::host {

/// How a URL is handed to its handler.
struct OpenOptions {
    bool activates = false;  ///< Whether the handler may come to the front.
    bool addsToRecentItems = false;
};

/// Opens URLs with the desktop's registered handlers.
class UrlOpener {
public:
    virtual ~UrlOpener() = default;
    /// `completed` runs exactly once, when the open request has completed; `error` is empty when
    /// it went well.
    virtual void open(const std::string& url, OpenOptions options,
                      std::function<void(std::string error)> completed) = 0;
};

}  // namespace kelmar::host
