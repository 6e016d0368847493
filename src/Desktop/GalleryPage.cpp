#include "Desktop/GalleryPage.h"

#include <QResizeEvent>
#include <algorithm>
#include <iterator>

#include "Desktop/Screens.h"
#include "Desktop/TileFlow.h"
#include "Desktop/WidgetWords.h"

namespace kelmar::desktop {

namespace {

constexpr int margin = 32;
constexpr int titleSize = 26;
constexpr int nameSize = 18;
constexpr int textSize = 13;
constexpr int belowTitle = 4;
constexpr int belowName = 2;
constexpr int aboveTiles = 18;
constexpr int betweenSections = 26;

/// Puts texts and tiles below one another in a column, or only adds up their heights.
class Column {
public:
    struct Layout {
        int left;
        int width;
        int tileFoot;
        bool moves;
        layout::Direction direction;
    };

    explicit Column(const Layout& layout) : layout_(layout) {}

    void addText(QLabel& text) {
        const int height = text.heightForWidth(layout_.width);
        if (layout_.moves) {
            text.setGeometry(layout_.left, y_, layout_.width, height);
        }
        y_ += height;
    }

    void addTiles(const std::vector<GalleryTile*>& tiles) {
        std::vector<kit::Family> families;
        std::transform(tiles.begin(), tiles.end(), std::back_inserter(families),
                       [](const GalleryTile* tile) { return tile->family(); });
        const TileFlow flow = flowTiles(families, layout_.width, layout_.tileFoot);
        for (std::size_t index = 0; layout_.moves && index < tiles.size(); ++index) {
            place(*tiles[index], flow.places[index]);
        }
        y_ += flow.size.height();
    }

    void addRoom(int height) { y_ += height; }
    [[nodiscard]] int height() const { return y_; }

private:
    void place(GalleryTile& tile, QPoint place) const {
        const int card = windowSize(tile.family()).width();
        const int x = layout_.direction == layout::Direction::leftToRight
                          ? place.x()
                          : layout_.width - place.x() - card;
        tile.move(layout_.left + x - GalleryTile::ringRoom, y_ + place.y() - GalleryTile::ringRoom);
    }

    Layout layout_;
    int y_ = 0;
};

}  // namespace

GalleryPage::GalleryPage(const kit::Bundle& bundle, const GalleryParts& parts) : parts_(parts) {
    title_ = addText(parts_.texts.text("Add widgets"));
    hint_ = addText(
        parts_.texts.text("Click a widget to put it on the desktop, or drag it to its place."));
    std::for_each(bundle.widgets.begin(), bundle.widgets.end(),
                  [this](const kit::WidgetDescriptor& widget) { addSection(widget); });
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    takeLook();
}

void GalleryPage::takeLook() {
    setFonts();
    for (const Offer& offer : offers_) {
        offer.tile->takeLook();
    }
    for (const Section& section : sections_) {
        section.description->setForegroundRole(QPalette::PlaceholderText);
    }
    hint_->setForegroundRole(QPalette::PlaceholderText);
    static_cast<void>(layOut(width(), Purpose::placing));
    updateGeometry();
}

int GalleryPage::preferredWidth() {
    return galleryWidth + 2 * margin;
}

QSize GalleryPage::sizeHint() const {
    return {preferredWidth(), heightForWidth(preferredWidth())};
}

QSize GalleryPage::minimumSizeHint() const {
    return {windowSize(kit::Family::medium).width() + 2 * margin, 0};
}

int GalleryPage::heightForWidth(int width) const {
    return layOut(width, Purpose::measuring);
}

void GalleryPage::resizeEvent(QResizeEvent* event) {
    static_cast<void>(layOut(event->size().width(), Purpose::placing));
}

void GalleryPage::addSection(const kit::WidgetDescriptor& widget) {
    Section section{addText(widget.displayName), addText(widget.description), {}};
    for (const kit::Family family : widget.families) {
        auto* tile = new GalleryTile(family, parts_, this);
        tile->setAccessibleName(QString::fromStdString(widget.displayName + " (" +
                                                       parts_.texts.text(wordFor(family)) + ")"));
        tile->setAccessibleDescription(QString::fromStdString(widget.description));
        section.tiles.push_back(tile);
        offers_.push_back({widget.kind, tile});
    }
    sections_.push_back(std::move(section));
}

QLabel* GalleryPage::addText(const std::string& text) {
    auto* label = new QLabel(QString::fromStdString(text), this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

void GalleryPage::setFonts() {
    const Look& look = parts_.look;
    title_->setFont(look.font(titleSize, kit::FontWeight::bold));
    hint_->setFont(look.font(textSize));
    for (const Section& section : sections_) {
        section.name->setFont(look.font(nameSize, kit::FontWeight::semibold));
        section.description->setFont(look.font(textSize));
    }
}

int GalleryPage::layOut(int width, Purpose purpose) const {
    const int columnWidth = std::min(galleryWidth, width - 2 * margin);
    Column column({.left = (width - columnWidth) / 2,
                   .width = columnWidth,
                   .tileFoot = footBelowCaption + parts_.look.heldLength(captionHeight),
                   .moves = purpose == Purpose::placing,
                   .direction = parts_.direction});
    column.addRoom(margin);
    column.addText(*title_);
    column.addRoom(belowTitle);
    column.addText(*hint_);
    for (const Section& section : sections_) {
        column.addRoom(betweenSections);
        column.addText(*section.name);
        column.addRoom(belowName);
        column.addText(*section.description);
        column.addRoom(aboveTiles);
        column.addTiles(section.tiles);
    }
    column.addRoom(margin - tileGap);
    return column.height();
}

}  // namespace kelmar::desktop
