#include "Desktop/MenuLook.h"

#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>
#include <QToolTip>
#include <algorithm>

#include "Desktop/WindowColors.h"

namespace kelmar::desktop {

namespace {

/// The style's menus are made for texts of the usual size on a light ground. It leaves icons as
/// small as they are with those, and shortens texts of high entries, since it takes more room for
/// the column of marks when it draws them than when it asks how wide they are. Its separators are
/// black.
class MenuStyle final : public QProxyStyle {
public:
    explicit MenuStyle(int textHeight) : textHeight_(textHeight) {}

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_SmallIconSize ? std::max(usual, textHeight_) : usual;
    }

    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (type == CT_MenuItem) {
            size.rwidth() += std::max(0, size.height() - usualHeight);
        }
        return size;
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element == CE_MenuItem && item != nullptr &&
            item->menuItemType == QStyleOptionMenuItem::Separator) {
            drawSeparator(*item, *painter);
        } else {
            QProxyStyle::drawControl(element, option, painter, widget);
        }
    }

private:
    static void drawSeparator(const QStyleOptionMenuItem& item, QPainter& painter) {
        constexpr int margin = 5;
        constexpr float strength = 0.2F;
        QColor line = item.palette.color(QPalette::Text);
        line.setAlphaF(strength);
        painter.fillRect(QRect(item.rect.left() + margin, item.rect.center().y(),
                               item.rect.width() - 2 * margin, 1),
                         line);
    }

    static constexpr int usualHeight = 24;

    int textHeight_;
};

}  // namespace

void dressMenu(QMenu& menu, const Look& look) {
    const QPalette colors = menuColors(look.appearance());
    const QFont font = look.menuFont();
    auto* style = new MenuStyle(QFontMetrics(font).height());
    style->setParent(&menu);
    // A menu is a window, and windows inherit neither from those they open out of.
    QList<QMenu*> menus = menu.findChildren<QMenu*>();
    menus.append(&menu);
    for (QMenu* each : menus) {
        each->setPalette(colors);
        each->setFont(font);
        each->setStyle(style);
    }
}

void dressToolTips(const Look& look) {
    QPalette colors = windowColors(look.appearance());
    colors.setColor(QPalette::ToolTipBase, colors.color(QPalette::Base));
    colors.setColor(QPalette::ToolTipText, colors.color(QPalette::Text));
    QToolTip::setPalette(colors);
    QToolTip::setFont(look.menuFont());
}

}  // namespace kelmar::desktop
