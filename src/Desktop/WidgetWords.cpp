#include "Desktop/WidgetWords.h"

#include "System/Fatal.h"

namespace kelmar::desktop {

std::string_view wordFor(kit::Family family) {
    switch (family) {
        case kit::Family::small:
            return "Small";
        case kit::Family::medium:
            return "Medium";
        case kit::Family::large:
            return "Large";
    }
    system::fatal("a widget family beyond the enumeration");
}

std::string_view wordFor(kit::RenderingMode mode) {
    switch (mode) {
        case kit::RenderingMode::fullColor:
            return "Full colour";
        case kit::RenderingMode::accented:
            return "Accented";
        case kit::RenderingMode::vibrant:
            return "Vibrant";
    }
    system::fatal("a rendering mode beyond the enumeration");
}

}  // namespace kelmar::desktop
