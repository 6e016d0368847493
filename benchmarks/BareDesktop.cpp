// What any Qt program costs that keeps four plain windows on the desktop: the least that the widget
// host could cost. Set up as the host is, so that the difference is what the widgets add.

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <memory>
#include <vector>

namespace {

class PlainWindow final : public QWidget {
public:
    explicit PlainWindow(QColor color) : color_(color) {
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).fillRect(rect(), color_); }

private:
    QColor color_;
};

}  // namespace

/// Takes one colour a window, as "#rrggbb".
int main(int argc, char** argv) {
    constexpr int width = 364;
    constexpr int height = 170;
    QApplication::setDesktopSettingsAware(false);
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    const QApplication application(argc, argv);
    const QStringList colors = QApplication::arguments().mid(1);
    std::vector<std::unique_ptr<PlainWindow>> windows;
    for (const QString& color : colors) {
        auto& window = windows.emplace_back(std::make_unique<PlainWindow>(QColor(color)));
        const int number = static_cast<int>(windows.size()) - 1;
        window->setGeometry(20 + number % 2 * (width + 20), 20 + number / 2 * (height + 20), width,
                            height);
        window->show();
    }
    return QApplication::exec();
}
