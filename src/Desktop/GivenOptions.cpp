#include "Desktop/GivenOptions.h"

namespace kelmar::desktop {

std::vector<GivenOption> givenOptions(int argc, const char* const* argv) {
    std::vector<GivenOption> options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const bool isName = word.starts_with('-');
        if (!isName && !options.empty()) {
            options.back().values.push_back(word);
            continue;
        }
        const std::size_t equals = isName ? word.find('=') : std::string::npos;
        options.push_back({word.substr(0, equals), {}});
        if (equals != std::string::npos) {
            options.back().values.push_back(word.substr(equals + 1));
        }
    }
    return options;
}

}  // namespace kelmar::desktop
