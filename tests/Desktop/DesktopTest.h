#pragma once

#include <QApplication>
#include <QTemporaryDir>

#include "Desktop/DesktopParts.h"
#include "Desktop/WidgetWindow.h"
#include "tests/Desktop/FoundFonts.h"
#include "tests/Host/HostTest.h"

namespace kelmar::desktop {

/// A desktop whose host and extension a test plays.
class DesktopTest : public host::HostTest {
protected:
    /// The windows that are to be seen.
    [[nodiscard]] static std::vector<WidgetWindow*> windows() {
        std::vector<WidgetWindow*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* window = qobject_cast<WidgetWindow*>(widget);
            if (window != nullptr && window->isVisible()) {
                windows.push_back(window);
            }
        }
        return windows;
    }

    host::WidgetHost host_{{.executable = "/extension", .urlScheme = "probe", .reloadOnChange = {}},
                           parts_};
    QTemporaryDir folder_;
    ArrangementFile arrangementFile_{folder_.filePath("arrangement.json"), log_};
    PortalSettings settings_{log_};
    Look look_{settings_, SchemeChoice::light, foundFonts()};
    Compositor compositor_;
    StackingRule stacking_;
    system::EnglishLocalization texts_;
    DesktopParts desktopParts_{.host = host_,
                               .arrangementFile = arrangementFile_,
                               .look = look_,
                               .compositor = compositor_,
                               .stacking = stacking_,
                               .clock = clock_,
                               .texts = texts_,
                               .log = log_};
};

}  // namespace kelmar::desktop
