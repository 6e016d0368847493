#pragma once

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

/// The field at a place of the list.
template <Recorded Record, std::size_t place>
inline constexpr const auto& fieldAt = std::get<place>(Fields<Record>::all);

/// A place of the list as a value, to call generic code with.
template <std::size_t place>
using FieldPlace = std::integral_constant<std::size_t, place>;

/// Calls `action(FieldPlace)` for each field in order, as long as it says true; false as soon as it
/// says false.
template <Recorded Record, class Action>
constexpr bool holdsForAllFields(Action action) {
    return [&]<std::size_t... places>(std::index_sequence<places...>) {
        return (action(FieldPlace<places>()) && ...);
    }
    (std::make_index_sequence<fieldCount<Record>>());
}

}  // namespace kelmar::shared
