#include <cstdint>
#include <cstdlib>

#include "Shared/WidgetTicks.h"
#include "System/Utf8.h"

using namespace kelmar;

/// Any name has an id or none; an id is UTF-8 and has a name that leads back to it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using Ticks = shared::WidgetTicks;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string fileName = std::string(Ticks::tickPrefix) + std::string(bytes);
    if (const auto id = Ticks::id(fileName, Ticks::tickPrefix)) {
        if (id->empty() || system::findInvalidUtf8(*id) ||
            Ticks::id(Ticks::fileName(*id), Ticks::tickPrefix) != id)
            std::abort();
    }
    return 0;
}
