#pragma once

#include "Kit/ArchiveFields.h"
#include "Kit/Descriptor.h"
#include "Kit/Fields.h"
#include "Kit/Protocol.h"
#include "Kit/ProtocolValues.h"

/// The JSON form of requests' parameters and of results.
namespace kelmar::kit {

/// Besides the version of the protocol, which is not for the extension to decide.
template <>
struct Fields<InitializeRequest> {
    static constexpr std::tuple all{
        Field{"systemVersion", &InitializeRequest::systemVersion},
    };
};

/// Which kind of entry it asks for its method says.
template <>
struct Fields<EntryRequest> {
    static constexpr std::tuple all{
        Field{"kind", &EntryRequest::widgetKind},
        Field{"environment", &EntryRequest::environment},
        ForgivenField{"isPreview", &EntryRequest::isPreview, false},
    };
};

template <>
struct Fields<ControlRequest> {
    static constexpr std::tuple all{
        Field{"kind", &ControlRequest::controlKind},
        ForgivenField{"isPreview", &ControlRequest::isPreview, false},
    };
};

template <>
struct Fields<PerformRequest> {
    static constexpr std::tuple all{
        Field{"intent", &PerformRequest::intent},
    };
};

template <>
struct Fields<DiagnoseRequest> {
    static constexpr std::tuple<> all{};
};

template <>
struct Fields<OpenRequest> {
    static constexpr std::tuple all{
        Field{"url", &OpenRequest::url},
        ForgivenField{"activates", &OpenRequest::activates, false},
        ForgivenField{"addsToRecentItems", &OpenRequest::addsToRecentItems, false},
    };
};

template <>
struct Fields<ResponseError> {
    static constexpr std::tuple all{
        Field{"code", &ResponseError::code},
        Field{"message", &ResponseError::message},
    };
};

template <>
struct Fields<WidgetDescriptor> {
    static constexpr std::tuple all{
        Field{"kind", &WidgetDescriptor::kind},
        Field{"displayName", &WidgetDescriptor::displayName},
        Field{"description", &WidgetDescriptor::description},
        Field{"families", &WidgetDescriptor::families},
    };
};

template <>
struct Fields<ControlDescriptor> {
    static constexpr std::tuple all{
        Field{"kind", &ControlDescriptor::kind},
        Field{"displayName", &ControlDescriptor::displayName},
        Field{"description", &ControlDescriptor::description},
    };
};

template <>
struct Fields<Bundle> {
    static constexpr std::tuple all{
        Field{"widgets", &Bundle::widgets},
        Field{"controls", &Bundle::controls},
    };
};

template <>
struct Fields<Entry> {
    static constexpr std::tuple all{
        Field{"date", &Entry::date},
        Field{"view", &Entry::view},
    };
};

template <>
struct Fields<Timeline> {
    static constexpr std::tuple all{
        Field{"entries", &Timeline::entries},
        Field{"policy", &Timeline::policy},
    };
};

template <>
struct Fields<ControlValue> {
    static constexpr std::tuple all{
        Field{"running", &ControlValue::running},
        Field{"text", &ControlValue::text},
        Field{"symbol", &ControlValue::symbol},
        Field{"intent", &ControlValue::intent},
    };
};

/// What a DiagnoseRequest is answered with.
struct Findings {
    std::vector<std::string> sentences;
};

template <>
struct Fields<Findings> {
    static constexpr std::tuple all{
        Field{"findings", &Findings::sentences},
    };
};

}  // namespace kelmar::kit
