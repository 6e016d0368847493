#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace kelmar::testing {

/// Sets a variable of the environment, or takes it away, until the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(std::string name, const std::optional<std::string>& value)
        : name_(std::move(name)) {
        if (const char* const previous = std::getenv(name_.c_str()))
            previous_ = previous;
        set(value);
    }
    ~ScopedVariable() { set(previous_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(name_.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name_.c_str());
    }

    std::string name_;
    std::optional<std::string> previous_;
};

}  // namespace kelmar::testing
