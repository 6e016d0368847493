#include "DemoPlanner/WindowPieces.h"

namespace kelmar::demo {

namespace {

constexpr QColor accent(0x4F, 0x46, 0xE5);

}  // namespace

QString toText(const std::string& text) {
    return QString::fromStdString(text);
}

QLabel* makeLabel(const QString& text, int pixelSize, QFont::Weight weight) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QLabel* makeDetail(const QString& text) {
    QLabel* label = makeLabel(text, detailSize);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QLabel* makeHeading(const QString& text) {
    QLabel* label = makeLabel(text, detailSize, QFont::DemiBold);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setContentsMargins(0, 8, 0, 0);
    return label;
}

void tint(QLabel& label) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, accent);
    label.setPalette(palette);
}

QVBoxLayout* makeLines(QLabel* title, QLabel* status) {
    auto* lines = new QVBoxLayout;
    lines->setSpacing(1);
    lines->addWidget(title);
    lines->addWidget(status);
    return lines;
}

Row makeRow() {
    auto* widget = new QWidget;
    auto* layout = new QHBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    return {widget, layout};
}

}  // namespace kelmar::demo
