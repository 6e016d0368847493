#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace kelmar::shared {

/// One field of a record as JSON carries it: its key, and the member that holds its value.
template <class Record, class Member>
struct Field {
    using Value = Member;

    std::string_view name;
    Member Record::*member;
};
template <class Record, class Member>
Field(const char*, Member Record::*) -> Field<Record, Member>;

/// The fields of a record in the order of declaration: specialised, with a tuple `all`, for every
/// record that has a JSON form. Reading and writing both follow this one list. Fields whose type
/// is std::optional may be missing; all others are required.
template <class Record>
struct Fields;

template <class T>
concept Recorded = requires {
    Fields<T>::all;
};

template <Recorded Record>
inline constexpr std::size_t fieldCount = std::tuple_size_v<decltype(Fields<Record>::all)>;

/// The keys of a record, by place in its list.
template <Recorded Record>
inline constexpr std::array<std::string_view, fieldCount<Record>> fieldNames =
    std::apply([](const auto&... field) { return std::array{field.name...}; }, Fields<Record>::all);

/// Calls `action` with the field at a place that only the running program knows, and gives back
/// what it says.
template <Recorded Record, class Action>
bool withField(std::size_t place, Action action) {
    return [&]<std::size_t... places>(std::index_sequence<places...>) {
        bool result = false;
        static_cast<void>(
            ((places == place && (result = action(std::get<places>(Fields<Record>::all)), true)) ||
             ...));
        return result;
    }
    (std::make_index_sequence<fieldCount<Record>>());
}

}  // namespace kelmar::shared
