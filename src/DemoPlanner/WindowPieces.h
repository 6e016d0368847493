#pragma once

#include <QFont>
#include <QHBoxLayout>
#include <QLabel>
#include <QString>
#include <QVBoxLayout>
#include <QWidget>
#include <string>

namespace kelmar::demo {

/// The few shapes of which the planner's window is made. As ever in Qt, what is made here belongs
/// to the layout or widget that it is put into.

/// Sizes of text, in pixels.
inline constexpr int titleSize = 13;
inline constexpr int detailSize = 11;

[[nodiscard]] QString toText(const std::string& text);

/// Text that wraps and is never read as markup.
[[nodiscard]] QLabel* makeLabel(const QString& text, int pixelSize,
                                QFont::Weight weight = QFont::Normal);
/// Small and quiet.
[[nodiscard]] QLabel* makeDetail(const QString& text);
/// Above a section.
[[nodiscard]] QLabel* makeHeading(const QString& text);
/// Gives a label the planner's colour.
void tint(QLabel& label);
/// A title with a quieter line below it.
[[nodiscard]] QVBoxLayout* makeLines(QLabel* title, QLabel* status);

/// A widget that holds others side by side.
struct Row {
    QWidget* widget;
    QHBoxLayout* layout;
};
[[nodiscard]] Row makeRow();

}  // namespace kelmar::demo
