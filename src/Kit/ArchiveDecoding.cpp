#include <fmt/format.h>

#include "Kit/Archive.h"
#include "Kit/ArchiveFields.h"
#include "Kit/ArchiveNames.h"
#include "Kit/ArchiveReading.h"
#include "Kit/FieldReading.h"

namespace kelmar::kit {

namespace {

/// Reads views and what holds them, and refuses what no widget needs before it can cost anything.
class TreeReader {
public:
    template <class Value>
    [[nodiscard]] Value read(const JsonValue& json) {
        if constexpr (std::same_as<Value, View> || std::same_as<Value, Child>) {
            return readView(json);
        } else if constexpr (std::same_as<Value, Children>) {
            return readChildren(json);
        } else {
            return ValueReader().read<Value>(json);
        }
    }

private:
    [[nodiscard]] View readView(const JsonValue& json) {
        if (++depth_ > maximumDepth) {
            json.refuse(fmt::format("a tree no deeper than {} levels", maximumDepth));
        }
        if (++nodes_ > maximumNodes) {
            json.refuse(fmt::format("a tree of no more than {} nodes", maximumNodes));
        }
        View view = readNode(json);
        --depth_;
        return view;
    }

    [[nodiscard]] View readNode(const JsonValue& json);

    [[nodiscard]] Children readChildren(const JsonValue& json) {
        const std::vector<JsonValue> elements = json.elements();
        Children views;
        views.reserve(elements.size());
        for (const JsonValue& element : elements) {
            views.push_back(readView(element));
        }
        return views;
    }

    int depth_ = 0;
    int nodes_ = 0;
};

View TreeReader::readNode(const JsonValue& json) {
    using ReadNode = View (*)(TreeReader&, const JsonValue&);
    // One reader for each alternative of the variant, in its order, made by the compiler.
    static constexpr auto readers = []<std::size_t... index>(std::index_sequence<index...>) {
        return std::array<ReadNode, sizeof...(index)>{[](TreeReader& tree, const JsonValue& value) {
            return View(readMembers<std::variant_alternative_t<index, ViewNode>>(value, tree));
        }...};
    }
    (std::make_index_sequence<std::variant_size_v<ViewNode>>());

    const JsonValue type = json[typeKey];
    const std::string name = type.text();
    for (std::size_t index = 0; index < nodeTypeNames.size(); ++index) {
        if (nodeTypeNames.at(index) == name) {
            return readers.at(index)(*this, json);
        }
    }
    type.refuse("a known kind of view");
}

}  // namespace

View readView(const JsonValue& json) {
    return TreeReader().read<View>(json);
}

DrawnEntry readDrawnEntry(const JsonValue& json) {
    TreeReader reader;
    return readMembers<DrawnEntry>(json, reader);
}

Intent readIntent(const JsonValue& json) {
    return ValueReader().read<Intent>(json);
}

system::Result<View> decodeView(std::string_view json) {
    return parseAndRead<View>(json, readView);
}

system::Result<DrawnEntry> decodeDrawnEntry(std::string_view json) {
    return parseAndRead<DrawnEntry>(json, readDrawnEntry);
}

}  // namespace kelmar::kit
