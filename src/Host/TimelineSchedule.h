#pragma once

#include <cstddef>
#include <optional>

#include "Kit/Timeline.h"
#include "System/Date.h"

/// When which entry of a timeline shows. Pure; every timeline has at least one entry.
namespace kelmar::host {

/// The last entry *in the list's order* whose date is not after `now`, whatever the dates of those
/// before it; the first when there is none. So an entry that is dated after its successor never
/// shows again once the successor's time has come.
[[nodiscard]] std::size_t shownEntryIndex(const kit::Timeline& timeline, system::Date now);

/// The next date at which another entry shows than at `now`, if there is one.
[[nodiscard]] std::optional<system::Date> nextEntryChange(const kit::Timeline& timeline,
                                                          system::Date now);

/// When the timeline itself wishes to be replaced, if ever.
[[nodiscard]] std::optional<system::Date> reloadDate(const kit::Timeline& timeline);

}  // namespace kelmar::host
