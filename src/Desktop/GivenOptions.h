#pragma once

#include <string>
#include <vector>

namespace kelmar::desktop {

/// An option of a command line as it was given: its name with the dashes, and the words that
/// followed it or stood behind its "=".
struct GivenOption {
    std::string name;
    std::vector<std::string> values;

    friend bool operator==(const GivenOption&, const GivenOption&) = default;
};

/// The words of a command line without the program's own name, in their order. Words before the
/// first option stand there as if they were one. Whether an option exists is not asked.
[[nodiscard]] std::vector<GivenOption> givenOptions(int argc, const char* const* argv);

}  // namespace kelmar::desktop
