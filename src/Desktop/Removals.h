#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "Desktop/Arrangement.h"
#include "Desktop/Compositor.h"
#include "Desktop/Look.h"
#include "Desktop/Screens.h"
#include "Desktop/Stacking.h"
#include "Desktop/UndoBar.h"
#include "System/Localization.h"

namespace kelmar::desktop {

/// The widgets that were removed in this session and can be brought back: for ten seconds by the
/// bar that stands in their place, for the rest of the session by "Undo removal", the latest first.
class Removals final : public QObject {
    Q_OBJECT

public:
    /// All of them must outlive the removals.
    struct Parts {
        const Look& look;
        const Compositor& compositor;
        const StackingRule& stacking;
        const system::Localization& texts;
    };

    explicit Removals(const Parts& parts);
    ~Removals() override;

    void add(const WidgetPlace& place, const std::string& name,
             const std::vector<ScreenArea>& screens);
    [[nodiscard]] bool areEmpty() const { return removed_.empty(); }
    /// Whether a bar is still there.
    [[nodiscard]] bool areOffered() const;
    /// There must be one.
    void undoLatest();

signals:
    /// The widget is wanted back.
    void undone(const kelmar::desktop::WidgetPlace& place);
    /// A bar has gone without having been wanted.
    void offerExpired();

private:
    struct Removal {
        WidgetPlace place;
        std::unique_ptr<UndoBar> bar;  ///< Null once it has gone.
    };
    using Position = std::vector<Removal>::iterator;

    [[nodiscard]] Position find(const UndoBar* bar);
    void undo(Position removal);
    void expire(Position removal);
    void dismiss(Removal& removal);

    Parts parts_;
    std::vector<Removal> removed_;
};

}  // namespace kelmar::desktop
