#pragma once

#include <chrono>
#include <cstddef>

namespace kelmar::host {

/// How long and how often the host lets an extension and the file system have their way. The
/// defaults are what users get; tests scale them down.
struct HostLimits {
    /// From sending a request to its answer; the extension's own opening of URLs does not count.
    std::chrono::milliseconds answer{5'000};
    /// From the last answer to the end of the process.
    std::chrono::milliseconds idle{2'000};
    /// From the end of its input until a process that stays is killed.
    std::chrono::milliseconds ending{1'000};
    /// How long a new widget, and one that has got a placeholder, waits for a timeline before it is
    /// shown without one: what comes and goes at once would be laid out and drawn for nobody.
    std::chrono::milliseconds placeholder{50};
    std::chrono::milliseconds firstRetry{1'000};
    std::chrono::milliseconds longestRetry{5 * 60'000};
    /// Changes of files that follow one another within this time are one change.
    std::chrono::milliseconds fileBurst{100};
    /// Reloads that other programs may ask for within `askedReloadsTime`; more become one at its
    /// end.
    int askedReloads = 10;
    std::chrono::milliseconds askedReloadsTime{1'000};
    /// Lines of nonsense that one process may print before it is replaced.
    int faults = 20;
    /// URLs that one process may have waiting to be opened.
    std::size_t waitingUrls = 32;
    /// Lines in the log that an extension may cause at once, of each kind: what it says on standard
    /// error, its mistakes, its ends and returns, its staying when it is to end. After that there
    /// is one more in each `logPause`.
    int logLines = 20;
    std::chrono::milliseconds logPause{10 * 60'000};
};

}  // namespace kelmar::host
