// What any Qt program costs that keeps four plain windows on the desktop: the least that the widget
// host could cost. Set up as the host is, so that the difference is what the widgets add. With
// texts it writes a word in each of the cuts that the widgets are set in, and nothing else: the
// least that widgets could cost that are written by Qt.

#include <QApplication>
#include <QCommandLineParser>
#include <QPainter>
#include <QWidget>
#include <memory>
#include <vector>

#include "Paint/FontSet.h"

namespace {

using namespace kelmar;

enum class Content { plain, texts };

void writeTexts(QPainter& painter) {
    constexpr int lineHeight = 24;
    int baseline = lineHeight;
    const auto write = [&](const QFont& font, const char* text) {
        painter.setFont(font);
        painter.drawText(lineHeight, baseline, text);
        baseline += lineHeight;
    };
    for (const auto weight :
         {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold, QFont::ExtraBold}) {
        write(paint::textFont("Inter", weight, 12), "Chapter 3 questions");
    }
    write(paint::textFont("Quicksand", QFont::Bold, 24), "25:00");
}

class PlainWindow final : public QWidget {
public:
    PlainWindow(QColor color, Content content) : color_(color), content_(content) {
        setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.fillRect(rect(), color_);
        if (content_ == Content::texts) {
            writeTexts(painter);
        }
    }

private:
    QColor color_;
    Content content_;
};

}  // namespace

/// Takes one colour a window, as "#rrggbb", and --texts.
int main(int argc, char** argv) {
    constexpr int width = 364;
    constexpr int height = 170;
    QApplication::setDesktopSettingsAware(false);
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOption(QCommandLineOption("texts"));
    options.process(application);
    const Content content = options.isSet("texts") ? Content::texts : Content::plain;
    std::vector<std::unique_ptr<PlainWindow>> windows;
    for (const QString& color : options.positionalArguments()) {
        auto& window = windows.emplace_back(std::make_unique<PlainWindow>(QColor(color), content));
        const int number = static_cast<int>(windows.size()) - 1;
        window->setGeometry(20 + number % 2 * (width + 20), 20 + number / 2 * (height + 20), width,
                            height);
        window->show();
    }
    return QApplication::exec();
}
