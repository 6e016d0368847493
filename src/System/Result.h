#pragma once

#include <string>
#include <utility>
#include <variant>

namespace kelmar::system {

/// Why something could not be done, in words for a person who can act on them.
struct Failure {
    std::string reason;

    friend bool operator==(const Failure&, const Failure&) = default;
};

/// Stands in a Result for an operation that gives nothing back but its success.
struct Done {
    friend bool operator==(const Done&, const Done&) = default;
};

/// Either a value or the reason why there is none. Used where the reason matters; where it does
/// not, std::optional says the same with less.
template <class T, class Error = Failure>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}          // NOLINT
    Result(Error failure) : state_(std::in_place_index<1>, std::move(failure)) {}  // NOLINT

    explicit operator bool() const { return state_.index() == 0; }
    [[nodiscard]] const T& operator*() const& { return std::get<0>(state_); }
    [[nodiscard]] T&& operator*() && { return std::get<0>(std::move(state_)); }
    [[nodiscard]] const T* operator->() const { return &std::get<0>(state_); }
    [[nodiscard]] const Error& failure() const { return std::get<1>(state_); }

private:
    std::variant<T, Error> state_;
};

}  // namespace kelmar::system
