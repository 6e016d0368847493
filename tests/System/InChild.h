#pragma once

#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace kelmar::testing {

/// How a child process ended, and what it wrote to standard error.
struct ChildOutcome {
    int exitStatus = -1;  ///< -1 when a signal ended it.
    int signal = 0;
    std::string said;

    [[nodiscard]] std::ptrdiff_t lines() const { return std::ranges::count(said, '\n'); }
};

/// Runs `act` in a child process, because a confinement is for life; what it returns is the exit
/// status.
template <class Act>
[[nodiscard]] ChildOutcome inChild(const Act& act) {
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0)
        std::abort();
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDERR_FILENO);
        ::_exit(act());
    }
    ::close(ends[1]);
    ChildOutcome outcome;
    std::array<char, 4096> buffer = {};
    for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
        outcome.said.append(buffer.data(), static_cast<std::size_t>(count));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status))
        outcome.exitStatus = WEXITSTATUS(status);
    else
        outcome.signal = WTERMSIG(status);
    return outcome;
}

}  // namespace kelmar::testing
