#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Layout/TextMeasurer.h"

namespace kelmar::layout {

/// Finds the lines of a text in a room of some width. Boundaries are looked up once and only where
/// a line must be broken or cut, and widths are searched by halving, because measuring is what
/// layout spends its time on.
class LineBreaking {
public:
    struct Line {
        std::string text;  ///< Without blanks at its end.
        double width = 0;
    };

    static constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

    /// The measurer must outlive the object.
    LineBreaking(std::string text, const kit::Font& font, const TextMeasurer& measurer);

    /// The lines that the text's own line feeds make; none for an empty text.
    [[nodiscard]] const std::vector<Line>& naturalLines() const { return naturalLines_; }
    /// The width of the widest of them.
    [[nodiscard]] double idealWidth() const { return idealWidth_; }

    /// At most `limit` lines in a room of this width, the last one cut off with an ellipsis where
    /// the text goes on. A word that is too long is broken between characters. No lines at all in
    /// a room without width.
    [[nodiscard]] std::vector<Line> lines(double room, std::size_t limit) const;

private:
    [[nodiscard]] double width(std::string_view text) const;
    [[nodiscard]] bool fits(std::string_view text, double room) const;
    [[nodiscard]] std::string_view piece(std::size_t start, std::size_t end) const;
    [[nodiscard]] Line line(std::size_t start, std::size_t end) const;
    [[nodiscard]] std::size_t lineEnd(std::size_t start, std::size_t paragraphEnd,
                                      double room) const;
    [[nodiscard]] Line cut(std::size_t start, std::size_t paragraphEnd, double room) const;
    [[nodiscard]] const std::vector<std::size_t>& breaks() const;
    [[nodiscard]] const std::vector<std::size_t>& characters() const;

    std::string text_;
    kit::Font font_;
    const TextMeasurer& measurer_;
    std::vector<std::size_t> paragraphEnds_;
    std::vector<Line> naturalLines_;
    double idealWidth_ = 0;
    mutable std::optional<std::vector<std::size_t>> breaks_;
    mutable std::optional<std::vector<std::size_t>> characters_;
};

}  // namespace kelmar::layout
