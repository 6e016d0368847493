#pragma once

#include <QLabel>
#include <QWidget>
#include <string>
#include <vector>

#include "Desktop/GalleryParts.h"
#include "Desktop/GalleryTile.h"
#include "Kit/Descriptor.h"

namespace kelmar::desktop {

/// Everything that the gallery offers, in the bundle's order: a section for each widget with its
/// name, its description and a tile for each of its sizes.
class GalleryPage final : public QWidget {
    Q_OBJECT

public:
    struct Offer {
        std::string kind;
        GalleryTile* tile;
    };

    /// `parts` must outlive the page.
    GalleryPage(const kit::Bundle& bundle, const GalleryParts& parts);

    [[nodiscard]] const std::vector<Offer>& offers() const { return offers_; }
    void takeLook();

    /// At which a large tile stands beside the smaller ones.
    [[nodiscard]] static int preferredWidth();
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Purpose { measuring, placing };
    struct Section {
        QLabel* name;
        QLabel* description;
        std::vector<GalleryTile*> tiles;
    };

    void addSection(const kit::WidgetDescriptor& widget);
    [[nodiscard]] QLabel* addText(const std::string& text);
    void setFonts();
    /// Gives back the height.
    [[nodiscard]] int layOut(int width, Purpose purpose) const;

    const GalleryParts& parts_;
    QLabel* title_;
    QLabel* hint_;
    std::vector<Section> sections_;
    std::vector<Offer> offers_;
};

}  // namespace kelmar::desktop
