#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Desktop/Press.h"
#include "Kit/Timeline.h"
#include "Layout/Layout.h"
#include "Paint/Appearance.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::desktop {

/// What a widget shows: its picture, and what there is in it to read and to press. Places are in
/// points from the widget's top left corner. In a redacted one there is nothing of either kind:
/// what it shows is not the user's.
class WidgetContent {
public:
    /// Nothing yet.
    WidgetContent() = default;
    /// `resources` must outlive it.
    WidgetContent(const kit::DrawnEntry& entry, kit::Family family, paint::Redaction redaction,
                  layout::Direction direction, const paint::PaintResources& resources);

    /// Null while there is none.
    [[nodiscard]] const paint::WidgetPicture* picture() const { return picture_.get(); }
    [[nodiscard]] paint::Redaction redaction() const { return redaction_; }

    [[nodiscard]] const layout::PlacedBoxes& boxes() const;
    /// What there is to read and to press, in the order in which it is read: a link called `name`
    /// over the whole widget if it has an URL of its own, and the boxes.
    [[nodiscard]] layout::PlacedBoxes readableBoxes(const std::string& name) const;

    /// In the order in which they are read.
    [[nodiscard]] std::vector<PressTarget> targets() const;
    [[nodiscard]] std::optional<PressTarget> targetAt(layout::Point point) const;

private:
    [[nodiscard]] bool isReadable() const;

    std::unique_ptr<const paint::WidgetPicture> picture_;
    std::optional<std::string> widgetUrl_;
    paint::Redaction redaction_ = paint::Redaction::shown;
};

}  // namespace kelmar::desktop
