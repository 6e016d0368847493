#pragma once

#include "Desktop/SelectionOwner.h"

namespace kelmar::desktop {

/// Whether a compositing manager runs, now and later. Without one the transparent corners of a
/// window would be black.
class Compositor final : public QObject {
    Q_OBJECT

public:
    Compositor();

    [[nodiscard]] bool isRunning() const;

signals:
    void changed();

private:
    SelectionOwner manager_;
};

}  // namespace kelmar::desktop
