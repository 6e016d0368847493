#include "Desktop/Gallery.h"

#include <QCursor>
#include <utility>

#include "Desktop/Screens.h"

namespace kelmar::desktop {

Gallery::Gallery(GalleryParts parts) : parts_(std::move(parts)) {}

Gallery::~Gallery() {
    delete window_;
}

void Gallery::present() {
    const std::vector<ScreenArea> screens = currentScreens();
    const QRect visible = screenAt(QCursor::pos(), screens).visible;
    if (!window_) {
        open();
    }
    window_->present(visible);
}

void Gallery::open() {
    window_ = new GalleryWindow(parts_);
    connect(window_, &GalleryWindow::chosen, this,
            [this](const std::string& kind, kit::Family family) {
                emit chosen(kind, family, window_->frameGeometry().center());
            });
    connect(window_, &GalleryWindow::dropped, this, &Gallery::dropped);
    connect(window_, &GalleryWindow::closed, this, [this] {
        // It goes by itself, but not at once: a press that is under way may yet end in it.
        window_->disconnect(this);
        window_ = nullptr;
        emit closed();
    });
}

}  // namespace kelmar::desktop
