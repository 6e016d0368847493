#pragma once

#include <QScrollArea>
#include <QWidget>
#include <memory>
#include <string>

#include "Desktop/GalleryPage.h"
#include "Desktop/GalleryParts.h"
#include "Desktop/WidgetInHand.h"

namespace kelmar::desktop {

/// The gallery: every widget of the bundle in every size, drawn from its preview. An ordinary
/// window with a title, which goes for good when it is closed.
class GalleryWindow final : public QWidget {
    Q_OBJECT

public:
    explicit GalleryWindow(const GalleryParts& parts);
    ~GalleryWindow() override;

    /// In the middle of a screen, or in front again where it is.
    void present(const QRect& visible);

signals:
    /// A press: the widget is wanted at any free place.
    void chosen(const std::string& kind, kelmar::kit::Family family);
    /// The widget is wanted with its top left corner there.
    void dropped(const std::string& kind, kelmar::kit::Family family, QPoint position);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeBundle();
    void takeLook();
    void connectTile(const GalleryPage::Offer& offer);
    void requestPreview(const GalleryPage::Offer& offer);
    void requestMissingPreviews();
    void drop(const GalleryPage::Offer& offer, QPoint pointer);
    [[nodiscard]] QWidget* silencePage() const;

    GalleryParts parts_;
    QScrollArea* scrollArea_;
    GalleryPage* page_ = nullptr;  ///< Null while the extension has not said what it offers.
    /// For which the previews were asked, but for their size.
    kit::Environment previewedFor_;
    std::unique_ptr<WidgetInHand> inHand_;
};

}  // namespace kelmar::desktop
