#include "Layout/LineBreaking.h"

#include <algorithm>
#include <span>

#include "Layout/Blanks.h"
#include "Layout/Proposal.h"
#include "System/TextBoundaries.h"

namespace kelmar::layout {
namespace {

constexpr std::string_view ellipsis = "…";

/// Text may exceed its room by so many points, which nobody sees. A text that is offered exactly
/// what it asked for must not be cut off because a sum of lengths came out a rounding error short.
constexpr double tolerance = 0.01;

std::vector<std::size_t> paragraphEnds(std::string_view text) {
    std::vector<std::size_t> ends;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t feed = lineFeedLength(text.substr(at));
        at += std::max<std::size_t>(feed, 1);
        if (feed > 0 || at == text.size()) {
            ends.push_back(at);
        }
    }
    return ends;
}

/// The last of the boundaries after `start` and up to `end` that fits, provided that all before it
/// fit. Strides double first, so that the pieces tried stay about as long as the line that is
/// sought, however long the text goes on.
template <class Fits>
std::optional<std::size_t> lastFitting(const std::vector<std::size_t>& boundaries,
                                       std::size_t start, std::size_t end, const Fits& fits) {
    const auto first = std::ranges::upper_bound(boundaries, start);
    const std::span candidates(first, std::ranges::upper_bound(boundaries, end));
    std::size_t fitting = 0;
    std::size_t failing = 1;
    for (std::size_t stride = 1; failing <= candidates.size() && fits(candidates[failing - 1]);
         stride *= 2) {
        fitting = failing;
        failing = std::min(fitting + 2 * stride, std::max(candidates.size(), fitting + 1));
    }
    while (failing - fitting > 1) {
        const std::size_t middle = fitting + (failing - fitting) / 2;
        (fits(candidates[middle - 1]) ? fitting : failing) = middle;
    }
    return fitting > 0 ? std::optional(candidates[fitting - 1]) : std::nullopt;
}

}  // namespace

LineBreaking::LineBreaking(std::string text, const kit::Font& font, const TextMeasurer& measurer)
    : text_(std::move(text)),
      font_(font),
      measurer_(measurer),
      paragraphEnds_(paragraphEnds(text_)) {
    std::size_t start = 0;
    for (const std::size_t end : paragraphEnds_) {
        naturalLines_.push_back(line(start, end));
        idealWidth_ = std::max(idealWidth_, naturalLines_.back().width);
        start = end;
    }
}

std::vector<LineBreaking::Line> LineBreaking::lines(double room, std::size_t limit) const {
    if (idealWidth_ <= room + tolerance && naturalLines_.size() <= limit) {
        return naturalLines_;
    }
    std::vector<Line> lines;
    if (room <= 0) {
        return lines;
    }
    for (std::size_t start = 0; start < text_.size() && lines.size() < limit;) {
        const std::size_t paragraphEnd = *std::ranges::upper_bound(paragraphEnds_, start);
        const std::size_t end = lineEnd(start, paragraphEnd, room);
        const bool isCut = lines.size() + 1 == limit && end < text_.size();
        lines.push_back(isCut ? cut(start, paragraphEnd, room) : line(start, end));
        start = end;
    }
    return lines;
}

double LineBreaking::width(std::string_view text) const {
    return text.empty() ? 0 : usable(measurer_.width(text, font_));
}

bool LineBreaking::fits(std::string_view text, double room) const {
    return width(text) <= room + tolerance;
}

std::string_view LineBreaking::piece(std::size_t start, std::size_t end) const {
    return withoutTrailingBlanks(std::string_view(text_).substr(start, end - start));
}

LineBreaking::Line LineBreaking::line(std::size_t start, std::size_t end) const {
    const std::string_view text = piece(start, end);
    return {std::string(text), width(text)};
}

std::size_t LineBreaking::lineEnd(std::size_t start, std::size_t paragraphEnd, double room) const {
    const auto fitsUpTo = [&](std::size_t end) { return fits(piece(start, end), room); };
    if (const auto end = lastFitting(breaks(), start, paragraphEnd, fitsUpTo)) {
        return *end;
    }
    if (const auto end = lastFitting(characters(), start, paragraphEnd, fitsUpTo)) {
        return *end;
    }
    // Not one character fits: it sticks out, for a line without any would never come to an end.
    return *std::ranges::upper_bound(characters(), start);
}

LineBreaking::Line LineBreaking::cut(std::size_t start, std::size_t paragraphEnd,
                                     double room) const {
    const auto cutOff = [&](std::size_t end) {
        return std::string(piece(start, end)).append(ellipsis);
    };
    const auto end = lastFitting(characters(), start, paragraphEnd, [&](std::size_t candidate) {
        return fits(cutOff(candidate), room);
    });
    const std::string text = cutOff(end.value_or(start));
    const double width = this->width(text);
    // A room too narrow even for the ellipsis stays empty.
    return width <= room + tolerance ? Line{text, width} : Line{};
}

const std::vector<std::size_t>& LineBreaking::breaks() const {
    if (!breaks_) {
        breaks_ = system::lineBreaks(text_);
    }
    return *breaks_;
}

const std::vector<std::size_t>& LineBreaking::characters() const {
    if (!characters_) {
        characters_ = system::characterBoundaries(text_);
    }
    return *characters_;
}

}  // namespace kelmar::layout
