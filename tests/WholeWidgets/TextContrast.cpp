#include "tests/WholeWidgets/TextContrast.h"

#include <QImage>
#include <array>
#include <optional>

#include "Kit/Metrics.h"
#include "Paint/Contrast.h"
#include "Paint/Palette.h"

namespace kelmar::testing {

namespace {

/// Pixels with less of a letter are its blurred edge.
constexpr int ink = 200;

const QSize canvasSize(400, 400);

QImage emptyCanvas(const QColor& color) {
    QImage canvas(canvasSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(color);
    return canvas;
}

void draw(QImage& canvas, const layout::PlacedBox& box, const paint::PaintContext& context) {
    QPainter painter(&canvas);
    paint::paintBoxes(painter, {box}, context);
}

struct Lettering {
    std::string text;
    kit::Font font;
    kit::Color color = kit::primary;
};

std::optional<Lettering> letteringOf(const layout::PlacedBox& box) {
    if (const auto* text = std::get_if<layout::TextDrawing>(&box.drawing)) {
        return Lettering{
            box.label.empty() && !text->lines.empty() ? text->lines.front().text : box.label,
            text->font, text->color};
    }
    if (const auto* countdown = std::get_if<layout::CountdownDrawing>(&box.drawing)) {
        return Lettering{box.label, countdown->font, countdown->color};
    }
    return std::nullopt;
}

ColorChoice choiceOf(const kit::Color& color, kit::RenderingMode mode) {
    const bool isNamed = !color.style() || color.style() == kit::ColorStyle::white;
    return isNamed && mode == kit::RenderingMode::fullColor ? ColorChoice::named
                                                            : ColorChoice::host;
}

/// Goes through the pixels of one text in its area, on one picture of what lies beneath.
void take(TextContrast& contrast, const QImage& letters, const QImage& beneath, const QRect& area,
          const QColor& color) {
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qAlpha(letters.pixel(x, y)) < ink) {
                continue;
            }
            const QColor below = beneath.pixelColor(x, y);
            const QColor seen = paint::composited(color, below);
            const double here = paint::contrast(seen, below);
            if (contrast.colors.empty() || here < contrast.contrast) {
                contrast.contrast = here;
                contrast.colors = (seen.name() + " on " + below.name()).toStdString();
            }
        }
    }
}

/// The letters of a box alone, in full, so that faint ones have pixels too.
QImage lettersOf(layout::PlacedBox box, const paint::PaintContext& context) {
    box.opacity = 1;
    if (auto* text = std::get_if<layout::TextDrawing>(&box.drawing)) {
        text->color = kit::primary;
    } else if (auto* countdown = std::get_if<layout::CountdownDrawing>(&box.drawing)) {
        countdown->color = kit::primary;
    }
    QImage letters = emptyCanvas(Qt::transparent);
    draw(letters, box, context);
    return letters;
}

QRect areaOf(const layout::PlacedBox& box) {
    const layout::Rect& rect = box.rect;
    return QRectF(rect.x - 2, rect.y - 2, rect.width + 4, rect.height + 4).toAlignedRect() &
           QRect(QPoint(), canvasSize);
}

}  // namespace

std::vector<TextContrast> textContrasts(const layout::PlacedBoxes& boxes,
                                        const kit::Color& background,
                                        const paint::PaintContext& context) {
    const paint::Palette palette(context.style.appearance);
    const QColor card = palette.background(background);
    std::array beneath{emptyCanvas(paint::composited(card, Qt::black)),
                       emptyCanvas(paint::composited(card, Qt::white))};
    std::vector<TextContrast> contrasts;
    const auto add = [&](const layout::PlacedBox& box, const Lettering& lettering,
                         ColorChoice choice, double opacity) {
        QColor color = palette.color(lettering.color);
        color.setAlphaF(static_cast<float>(opacity));
        const QImage letters = lettersOf(box, context);
        TextContrast contrast{
            .text = lettering.text, .size = lettering.font.size, .choice = choice};
        for (const QImage& picture : beneath) {
            take(contrast, letters, picture, areaOf(box), color);
        }
        if (!contrast.colors.empty()) {
            contrasts.push_back(std::move(contrast));
        }
    };
    for (const layout::PlacedBox& box : boxes) {
        if (const std::optional<Lettering> lettering = letteringOf(box)) {
            const double opacity = box.opacity * lettering->color.opacity();
            add(box, *lettering, choiceOf(lettering->color, context.style.appearance.renderingMode),
                1);
            if (opacity < 1) {
                // How faint a text is says the widget, whoever chose its colour.
                add(box, *lettering, ColorChoice::named, opacity);
            }
        }
        for (QImage& picture : beneath) {
            draw(picture, box, context);
        }
    }
    return contrasts;
}

}  // namespace kelmar::testing
