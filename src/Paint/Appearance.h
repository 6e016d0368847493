#pragma once

#include <QColor>

#include "Kit/Environment.h"

namespace kelmar::paint {

enum class Scheme { light, dark };

/// What decides a widget's colours beside the widget itself.
struct Appearance {
    Scheme scheme = Scheme::light;
    kit::RenderingMode renderingMode = kit::RenderingMode::fullColor;
    /// The desktop's accent colour. An invalid colour stands for a desktop that names none.
    QColor accent{};

    friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// Whether texts and symbols can be read, or only their places are hinted at.
enum class Redaction { shown, redacted };

/// Whether a widget's card blends with what lies behind it: its corners are round and it may let
/// something shine through. For windows that are cut to the card's shape it fills the picture.
enum class Card { blended, opaque };

/// How a widget is put into pixels.
struct PaintStyle {
    Appearance appearance{};
    double scale = 1;  ///< Device pixels a point.
    Redaction redaction = Redaction::shown;
    Card card = Card::blended;

    friend bool operator==(const PaintStyle&, const PaintStyle&) = default;
};

}  // namespace kelmar::paint
