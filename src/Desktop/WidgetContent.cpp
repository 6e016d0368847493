#include "Desktop/WidgetContent.h"

#include <algorithm>
#include <iterator>

#include "Desktop/BoxAccessible.h"

namespace kelmar::desktop {

WidgetContent::WidgetContent(const kit::DrawnEntry& entry, kit::Family family,
                             paint::Redaction redaction, layout::Direction direction,
                             const paint::PaintResources& resources)
    : picture_(std::make_unique<const paint::WidgetPicture>(entry, family, direction, resources)),
      widgetUrl_(entry.widgetUrl),
      redaction_(redaction) {}

bool WidgetContent::isReadable() const {
    return picture_ && redaction_ == paint::Redaction::shown;
}

const layout::PlacedBoxes& WidgetContent::boxes() const {
    static const layout::PlacedBoxes none;
    return isReadable() ? picture_->boxes() : none;
}

layout::PlacedBoxes WidgetContent::readableBoxes(const std::string& name) const {
    layout::PlacedBoxes readable;
    if (isReadable() && widgetUrl_) {
        const layout::Size size = picture_->size();
        readable.push_back({.rect = {0, 0, size.width, size.height},
                            .action = layout::LinkAction{*widgetUrl_},
                            .label = name});
    }
    std::ranges::copy_if(boxes(), std::back_inserter(readable), isRead);
    return readable;
}

std::vector<PressTarget> WidgetContent::targets() const {
    return isReadable() ? targetsOf(boxes(), widgetUrl_, picture_->size())
                        : std::vector<PressTarget>();
}

std::optional<PressTarget> WidgetContent::targetAt(layout::Point point) const {
    return isReadable() ? desktop::targetAt(boxes(), widgetUrl_, picture_->size(), point)
                        : std::nullopt;
}

}  // namespace kelmar::desktop
