#pragma once

#include "System/Calendar.h"

namespace kelmar::testing {

/// A calendar that cannot count days, as no real one is.
class FailingCalendar final : public system::Calendar {
public:
    [[nodiscard]] system::Date startOfDay(system::Date date) const override { return date; }
    [[nodiscard]] std::optional<system::Date> addingDays(system::Date /*date*/,
                                                         int /*days*/) const override {
        return std::nullopt;
    }
    [[nodiscard]] system::DateComponents components(system::Date /*date*/) const override {
        return {};
    }
    [[nodiscard]] system::Date settingTime(system::Date date, int /*hour*/,
                                           int /*minute*/) const override {
        return date;
    }
};

}  // namespace kelmar::testing
