#pragma once

#include <QAbstractButton>
#include <QImage>
#include <QTimer>
#include <optional>

#include "Desktop/GalleryParts.h"
#include "Desktop/Press.h"
#include "Kit/Timeline.h"

namespace kelmar::desktop {

/// A widget in one size, as the gallery offers it: its preview and the name of the size below.
/// Pressed like a button, or dragged out of the window.
class GalleryTile final : public QAbstractButton {
    Q_OBJECT

public:
    /// The room round the card for the ring that marks what has the keyboard.
    static constexpr int ringRoom = 8;

    /// `parts` must outlive the tile.
    GalleryTile(kit::Family family, const GalleryParts& parts, QWidget* parent);

    [[nodiscard]] kit::Family family() const { return family_; }

    void showPreview(const kit::DrawnEntry& entry);
    /// The extension gave none. The widget can be placed all the same.
    void showUnavailable();
    [[nodiscard]] bool isUnavailable() const { return state_ == State::unavailable; }
    /// Says for a moment that the widget has been put on the desktop.
    void confirm();
    /// Draws everything anew, in other colours or another font.
    void takeLook();

    [[nodiscard]] QSize sizeHint() const override;
    /// The widget as it looks, at the scale of the tile's screen.
    [[nodiscard]] QImage cardImage(paint::Card card) const;

signals:
    /// `grip` is from the card's top left corner to where the pointer holds it. Ended or cancelled
    /// once in any case.
    void dragBegan(QPoint grip);
    void dragMoved(QPoint pointer);
    void dragEnded(QPoint pointer);
    void dragCancelled();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum class State { waiting, shown, unavailable };

    [[nodiscard]] QRect cardRect() const;
    void paintRing(QPainter& painter) const;
    void paintBadge(QPainter& painter) const;
    void paintCaption(QPainter& painter) const;
    void paintRegret(QPainter& painter) const;

    kit::Family family_;
    const GalleryParts& parts_;
    State state_ = State::waiting;
    std::optional<kit::DrawnEntry> entry_;
    QImage image_;  ///< Null until it is needed.
    QTimer confirmation_;
    PressGesture gesture_;
    QPoint grip_;  ///< From the card's top left corner to where it was pressed.
};

}  // namespace kelmar::desktop
