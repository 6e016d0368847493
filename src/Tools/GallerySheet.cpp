#include "Tools/GallerySheet.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "Kit/Metrics.h"
#include "Paint/WidgetPicture.h"

namespace kelmar::tools {

namespace {

constexpr double gap = 20;
constexpr double panelMargin = 32;
constexpr double titleHeight = 30;

constexpr std::array schemes{paint::Scheme::light, paint::Scheme::dark};

/// A widget in a family and where it stands in a panel, in points.
struct Tile {
    const widget::BundledWidget* widget;
    kit::Family family;
    double x;
    double y;
};

/// The tiles of a panel and how large they make it.
struct Panel {
    std::vector<Tile> tiles;
    double width = 0;
    double height = 0;
};

/// The small and the medium picture of a widget stand side by side, the large one below them.
Panel arranged(const Stage& stage) {
    Panel panel;
    double y = panelMargin + titleHeight;
    for (const widget::BundledWidget& widget : stage.widgets().widgets()) {
        double x = panelMargin;
        double rowHeight = 0;
        for (const kit::Family family : widget.descriptor.families) {
            const kit::Size size = kit::widgetSize(family);
            if (family == kit::Family::large) {
                x = panelMargin + kit::widgetSize(kit::Family::small).width + gap;
                y += rowHeight + gap;
                rowHeight = 0;
            }
            panel.tiles.push_back({&widget, family, x, y});
            panel.width = std::max(panel.width, x + size.width);
            x += size.width + gap;
            rowHeight = std::max(rowHeight, size.height);
        }
        y += rowHeight + gap;
    }
    panel.width += panelMargin;
    panel.height = y - gap + panelMargin;
    return panel;
}

/// A plain wallpaper, so that cards are seen as on a desktop.
void paintWallpaper(QPainter& painter, const QRectF& area, paint::Scheme scheme) {
    const bool isLight = scheme == paint::Scheme::light;
    QLinearGradient gradient(area.topLeft(), area.bottomRight());
    gradient.setColorAt(0, isLight ? QColor(0xc9, 0xd6, 0xe8) : QColor(0x20, 0x24, 0x33));
    gradient.setColorAt(1, isLight ? QColor(0xe6, 0xdc, 0xea) : QColor(0x38, 0x2c, 0x42));
    painter.fillRect(area, gradient);
}

class Sheet {
public:
    Sheet(const Stage& stage, layout::Direction direction, const paint::PaintResources& resources,
          double scale)
        : stage_(stage), direction_(direction), resources_(resources), scale_(scale) {}

    [[nodiscard]] QImage draw() const {
        const Panel panel = arranged(stage_);
        QImage image(pixels(panel.width * kit::renderingModes.size()),
                     pixels(panel.height * schemes.size()), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        double y = 0;
        for (const paint::Scheme scheme : schemes) {
            double x = 0;
            for (const kit::RenderingMode mode : kit::renderingModes) {
                paintPanel(painter, panel, {x, y},
                           {.scheme = scheme, .renderingMode = mode, .accent = {}});
                x += panel.width;
            }
            y += panel.height;
        }
        return image;
    }

private:
    [[nodiscard]] int pixels(double points) const {
        return static_cast<int>(std::ceil(points * scale_));
    }

    void paintPanel(QPainter& painter, const Panel& panel, QPointF origin,
                    const paint::Appearance& appearance) const {
        const QRectF area(origin * scale_, QSizeF(panel.width, panel.height) * scale_);
        paintWallpaper(painter, area, appearance.scheme);
        paintTitle(painter, area, appearance);
        for (const Tile& tile : panel.tiles) {
            const kit::DrawnEntry entry =
                tile.widget->snapshot(true).draw({.family = tile.family,
                                                  .contentSize = kit::contentSize(tile.family),
                                                  .renderingMode = appearance.renderingMode});
            const paint::WidgetPicture picture(entry, tile.family, direction_, resources_);
            painter.save();
            painter.translate(std::round((origin.x() + tile.x) * scale_),
                              std::round((origin.y() + tile.y) * scale_));
            picture.paint(painter, {.appearance = appearance, .scale = scale_},
                          stage_.surroundings().clock.now());
            painter.restore();
        }
    }

    void paintTitle(QPainter& painter, const QRectF& area,
                    const paint::Appearance& appearance) const {
        const bool isLight = appearance.scheme == paint::Scheme::light;
        const auto mode = kit::nameOf(appearance.renderingMode);
        const QString title = QStringLiteral("%1, %2").arg(
            QString::fromUtf8(mode.data(), static_cast<qsizetype>(mode.size())),
            isLight ? QStringLiteral("light") : QStringLiteral("dark"));
        painter.setFont(
            resources_.fonts().font(kit::Font::system(14, kit::FontWeight::semibold), pixels(14)));
        painter.setPen(isLight ? QColor(0x33, 0x38, 0x4a) : QColor(0xdd, 0xdf, 0xea));
        painter.drawText(area.adjusted(panelMargin * scale_, panelMargin * scale_ / 2, 0, 0),
                         Qt::AlignLeft | Qt::AlignTop, title);
    }

    const Stage& stage_;
    layout::Direction direction_;
    const paint::PaintResources& resources_;
    double scale_;
};

}  // namespace

QImage gallerySheet(const Stage& stage, layout::Direction direction,
                    const paint::PaintResources& resources, double scale) {
    return Sheet(stage, direction, resources, scale).draw();
}

}  // namespace kelmar::tools
