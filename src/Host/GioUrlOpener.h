#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "Host/UrlOpenerModule.h"

namespace kelmar::host {

/// Opens URLs with the handler that the desktop has registered for their scheme
/// (x-scheme-handler/... of freedesktop.org's MIME Applications), through GIO.
///
/// GIO works on a thread of its own here, which sleeps while nothing is opened: looking up a
/// handler reads files, GIO's completions need a GLib main loop, and Qt has one only where it was
/// built with GLib and nobody switched that off. Completions come on the thread of the opener, from
/// its Qt event loop; those that are outstanding when it goes never come.
class GioUrlOpener final : public QObject, public UrlOpener {
public:
    /// `variables` are for the handlers that it starts.
    explicit GioUrlOpener(MakeActivationToken makeToken = {}, ApplicationVariables variables = {});
    ~GioUrlOpener() override;

    /// A handler that is not to be activated gets no token, without which window managers leave it
    /// in the background. GIO never writes to the recent files, so nothing has to keep it from
    /// that, and nothing could ask it to.
    void open(const std::string& url, OpenOptions options,
              std::function<void(std::string error)> completed) override;

private:
    class Worker;

    MakeActivationToken makeToken_;
    ApplicationVariables variables_;
    std::unique_ptr<Worker> worker_;  ///< From the first URL on.
};

}  // namespace kelmar::host
