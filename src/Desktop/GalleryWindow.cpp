#include "Desktop/GalleryWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QStyle>
#include <QVBoxLayout>

#include "Desktop/WindowColors.h"

namespace kelmar::desktop {

namespace {

/// Keeps the window clear of panels and leaves room for its frame.
constexpr int roomAround = 80;
constexpr int preferredHeight = 860;
constexpr int messageMargin = 48;
constexpr int messageSize = 15;

}  // namespace

GalleryWindow::GalleryWindow(const GalleryParts& parts)
    : QWidget(nullptr, Qt::Window),
      parts_(parts),
      scrollArea_(new QScrollArea(this)),
      previewedFor_(parts.look.environment(kit::Family::small)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromStdString(parts_.texts.text("Add widgets")));
    setLayoutDirection(qtDirection(parts_.direction));
    scrollArea_->setFrameShape(QFrame::NoFrame);
    scrollArea_->setWidgetResizable(true);
    scrollArea_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(scrollArea_);
    connect(&parts_.host, &host::WidgetHost::bundleChanged, this, &GalleryWindow::takeBundle);
    connect(&parts_.look, &Look::changed, this, &GalleryWindow::takeLook);
    setPalette(windowColors(parts_.look.appearance()));
    takeBundle();
}

GalleryWindow::~GalleryWindow() = default;

void GalleryWindow::present(const QRect& visible) {
    if (!isVisible()) {
        const QSize room = visible.size() - QSize(roomAround, roomAround);
        const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        const QSize wish(GalleryPage::preferredWidth() + scrollBar, preferredHeight);
        resize(wish.boundedTo(room).expandedTo(minimumSizeHint()));
        move(visible.center() - rect().center());
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void GalleryWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void GalleryWindow::closeEvent(QCloseEvent* event) {
    inHand_.reset();
    QWidget::closeEvent(event);
    emit closed();
}

void GalleryWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        requestMissingPreviews();
    }
}

void GalleryWindow::takeBundle() {
    const auto& bundle = parts_.host.bundle();
    if (!bundle) {
        scrollArea_->setWidget(silencePage());
        return;
    }
    inHand_.reset();
    page_ = new GalleryPage(*bundle, parts_);
    for (const GalleryPage::Offer& offer : page_->offers()) {
        connectTile(offer);
        requestPreview(offer);
    }
    scrollArea_->setWidget(page_);
    page_->show();
}

void GalleryWindow::takeLook() {
    setPalette(windowColors(parts_.look.appearance()));
    if (page_ == nullptr) {
        scrollArea_->setWidget(silencePage());
        return;
    }
    page_->takeLook();
    const kit::Environment environment = parts_.look.environment(kit::Family::small);
    if (previewedFor_ != environment) {
        previewedFor_ = environment;
        for (const GalleryPage::Offer& offer : page_->offers()) {
            requestPreview(offer);
        }
    }
}

void GalleryWindow::connectTile(const GalleryPage::Offer& offer) {
    GalleryTile* tile = offer.tile;
    connect(tile, &GalleryTile::clicked, this, [this, offer] {
        offer.tile->confirm();
        emit chosen(offer.kind, offer.tile->family());
    });
    connect(tile, &GalleryTile::dragBegan, this, [this, tile](QPoint grip) {
        const Corners corners =
            parts_.compositor.isRunning() ? Corners::transparent : Corners::cutOut;
        inHand_ = std::make_unique<WidgetInHand>(tile->cardImage(cardFor(corners)), grip,
                                                 parts_.dragRule, corners);
    });
    connect(tile, &GalleryTile::dragMoved, this, [this](QPoint pointer) {
        if (inHand_) {
            inHand_->follow(pointer);
        }
    });
    connect(tile, &GalleryTile::dragEnded, this,
            [this, offer](QPoint pointer) { drop(offer, pointer); });
    connect(tile, &GalleryTile::dragCancelled, this, [this] { inHand_.reset(); });
}

void GalleryWindow::requestPreview(const GalleryPage::Offer& offer) {
    parts_.host.requestPreview(
        offer.kind, parts_.look.environment(offer.tile->family()),
        [tile = QPointer(offer.tile)](const system::Result<kit::Entry>& entry) {
            if (!tile) {
                return;  // The gallery has been closed meanwhile.
            }
            if (entry) {
                tile->showPreview(entry->view);
            } else {
                tile->showUnavailable();
            }
        });
}

void GalleryWindow::requestMissingPreviews() {
    if (page_ == nullptr) {
        return;
    }
    for (const GalleryPage::Offer& offer : page_->offers()) {
        if (offer.tile->isUnavailable()) {
            requestPreview(offer);
        }
    }
}

/// Over the gallery itself there is no desktop to drop anything on: that puts the widget back.
void GalleryWindow::drop(const GalleryPage::Offer& offer, QPoint pointer) {
    const std::unique_ptr<WidgetInHand> dropped = std::move(inHand_);
    if (dropped && !frameGeometry().contains(pointer)) {
        offer.tile->confirm();
        emit this->dropped(offer.kind, offer.tile->family(), dropped->pos());
    }
}

/// What there is to see before the extension has ever answered.
QWidget* GalleryWindow::silencePage() const {
    auto* words = new QLabel(QString::fromStdString(parts_.texts.text(
        "The widgets have not answered yet. They appear here as soon as they do.")));
    words->setAlignment(Qt::AlignCenter);
    words->setWordWrap(true);
    words->setMargin(messageMargin);
    words->setForegroundRole(QPalette::PlaceholderText);
    words->setFont(parts_.look.font(messageSize));
    return words;
}

}  // namespace kelmar::desktop
