#pragma once

#include <optional>
#include <string>

namespace kelmar::system {

/// The locale that the environment names for a category ("LC_TIME", "LC_MESSAGES"), by the
/// precedence of POSIX: LC_ALL, the category, LANG; nothing where that is one without a language,
/// such as "C". ICU's own default is not asked because it follows what the process has told
/// setlocale().
[[nodiscard]] std::optional<std::string> environmentLocaleId(const char* category);

}  // namespace kelmar::system
