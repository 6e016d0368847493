#include "System/Fatal.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <unistd.h>

#include "System/Journal.h"

namespace kelmar::system {

void fatal(std::string_view reason) {
    constexpr const char* errorLevel = "<3>";
    std::string line = isJournal(STDERR_FILENO) ? errorLevel : "";
    line += std::string(program_invocation_short_name) + ": " + std::string(reason);
    std::replace(line.begin(), line.end(), '\n', ' ');
    line += '\n';
    // One write, so that lines of several processes on one standard error do not mix. There is
    // nobody left to tell when it fails.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line.data(), line.size());
    ::_exit(fatalExitStatus);
}

}  // namespace kelmar::system
