#include <cstdint>
#include <cstdlib>

#include "Shared/JsonSyntax.h"
#include "Shared/WidgetTicks.h"

using namespace kelmar;

/// Any bytes are a note or none; a note is JSON, and its title survives being written again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const auto note = shared::WidgetTicks::decode(bytes)) {
        const auto again = shared::WidgetTicks::decode(shared::WidgetTicks::encode(*note));
        if (shared::findSyntaxError(bytes) || !again || again->title != note->title)
            std::abort();
    }
    return 0;
}
