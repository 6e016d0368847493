#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

/// Draws an icon's SVG into a square PNG of so many pixels: DrawIcon ICON.svg SIZE ICON.png.
int main(int count, char** words) {
    if (count != 4) {
        std::fprintf(stderr, "Usage: %s ICON.svg SIZE ICON.png\n", words[0]);
        return 2;
    }
    QSvgRenderer icon(QString::fromLocal8Bit(words[1]));
    const int size = QByteArray(words[2]).toInt();
    if (!icon.isValid() || size <= 0) {
        std::fprintf(stderr, "%s cannot be drawn in %s pixels\n", words[1], words[2]);
        return 1;
    }
    QImage picture(size, size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    icon.render(&painter);
    painter.end();
    return picture.save(QString::fromLocal8Bit(words[3]), "PNG") ? 0 : 1;
}
