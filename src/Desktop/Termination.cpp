#include "Desktop/Termination.h"

#include <QSocketNotifier>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace kelmar::desktop {

namespace {

constexpr std::array endingSignals{SIGTERM, SIGINT, SIGHUP};

/// Where the signal handler writes: a handler may do little more than write(2).
volatile std::sig_atomic_t writeEnd = -1;

void handleSignal(int /*signal*/) {
    const char byte = 0;
    // A full pipe already holds the message.
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
}

void endAtOnce(int /*signal*/) {
    _exit(0);
}

void setHandler(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : endingSignals) {
        sigaction(signal, &action, nullptr);
    }
}

}  // namespace

void endOnSignals() {
    setHandler(endAtOnce);
}

Termination::Termination(std::function<void()> requested) : requested_(std::move(requested)) {
    if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;  // The signals then end the process at once, as they would any other.
    }
    auto* notifier = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        requested_();
    });
    writeEnd = pipe_[1];
    setHandler(handleSignal);
}

Termination::~Termination() {
    setHandler(endAtOnce);
    writeEnd = -1;
    for (const int end : pipe_) {
        if (end >= 0) {
            close(end);
        }
    }
}

}  // namespace kelmar::desktop
