#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "Layout/Geometry.h"

namespace kelmar::layout {

/// No picture is longer. Longer wishes are cut to it, so that sums of lengths stay finite.
inline constexpr double greatestLength = 1e6;

/// A length out of a view, made safe to compute with: what is no number or negative counts as 0.
[[nodiscard]] inline double usable(double length) {
    return length > 0 ? std::min(length, greatestLength) : 0;
}

/// What a parent offers its child along one axis: so many points, whatever the child likes best, or
/// as much as it could ever take.
class Length {
public:
    enum class Kind { definite, unspecified, infinite };

    [[nodiscard]] static Length definite(double points) { return {Kind::definite, usable(points)}; }
    [[nodiscard]] static constexpr Length unspecified() { return {Kind::unspecified, 0}; }
    [[nodiscard]] static constexpr Length infinite() { return {Kind::infinite, 0}; }

    [[nodiscard]] constexpr Kind kind() const { return kind_; }
    [[nodiscard]] constexpr bool isDefinite() const { return kind_ == Kind::definite; }

    /// The offer in points; `ideal` where the child is to choose.
    [[nodiscard]] constexpr double points(double ideal) const {
        switch (kind_) {
            case Kind::definite:
                return points_;
            case Kind::unspecified:
                return ideal;
            case Kind::infinite:
                return std::numeric_limits<double>::infinity();
        }
        return ideal;
    }
    /// The most that fits the offer.
    [[nodiscard]] constexpr double limit() const {
        return points(std::numeric_limits<double>::infinity());
    }
    /// What is left of the offer once a part of it is taken away.
    [[nodiscard]] Length without(double taken) const {
        return isDefinite() ? definite(points_ - taken) : *this;
    }
    /// The same offer, but never more than `greatest`; a choice is left to the child.
    [[nodiscard]] Length atMost(double greatest) const {
        return kind_ == Kind::unspecified ? *this : definite(std::min(limit(), greatest));
    }

    friend constexpr bool operator==(const Length&, const Length&) = default;

private:
    constexpr Length(Kind kind, double points) : kind_(kind), points_(points) {}

    Kind kind_;
    double points_;
};

/// What a parent offers its child.
struct Proposal {
    Length width = Length::unspecified();
    Length height = Length::unspecified();

    [[nodiscard]] static Proposal exactly(Size size) {
        return {Length::definite(size.width), Length::definite(size.height)};
    }

    friend constexpr bool operator==(const Proposal&, const Proposal&) = default;
};

}  // namespace kelmar::layout
