#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>

/// How structs stand in JSON, said once for writing and reading.
namespace kelmar::kit {

/// A member of a JSON object, and the member of a struct whose value it has. One whose type is
/// std::optional may be absent; all others are required.
template <class Struct, class Value>
struct Field {
    std::string_view key;
    Value Struct::*member;
};
template <class Struct, class Value>
Field(const char*, Value Struct::*) -> Field<Struct, Value>;

/// One that is absent while it has its usual value.
template <class Struct, class Value>
struct DefaultedField {
    std::string_view key;
    Value Struct::*member;
    Value usual;
};
template <class Struct, class Value>
DefaultedField(const char*, Value Struct::*, std::type_identity_t<Value>)
    -> DefaultedField<Struct, Value>;

/// One that is always written, and has its usual value where somebody else leaves it out.
template <class Struct, class Value>
struct ForgivenField {
    std::string_view key;
    Value Struct::*member;
    Value usual;
};
template <class Struct, class Value>
ForgivenField(const char*, Value Struct::*, std::type_identity_t<Value>)
    -> ForgivenField<Struct, Value>;

/// A part of a struct that has no object of its own: its members are among those of the whole. Of
/// a std::variant they are those of the alternative, which they tell by themselves.
template <class Struct, class Part>
struct InlinedFields {
    Part Struct::*part;
};
template <class Struct, class Part>
InlinedFields(Part Struct::*) -> InlinedFields<Struct, Part>;

/// The fields of a struct, in the order of its members: specialised, with a tuple `all`, for each
/// that has a JSON form. They are written in that order.
template <class Struct>
struct Fields;

/// Whether a struct has one, and is therefore an object of its own in JSON.
template <class Struct>
concept Described = requires {
    Fields<Struct>::all;
};

}  // namespace kelmar::kit
