// When a rule is active: always, or in a daily time span on a run of weekdays.
#pragma once

#include <array>
#include <cstdint>
#include <tuple>

#include "config/segment.h"
#include "shell/dialogue.h"

namespace menus::advanced {

// One '0' or '1' per weekday, Sunday first, as the segment holds it.
using WeekMask = decltype(config::Schedule::week_mask);
constexpr std::uint32_t days_of_week = std::tuple_size_v<WeekMask>;

// 0 Sunday to 6 Saturday.
struct DayRun {
  static constexpr std::uint8_t no_day = days_of_week;
  std::uint8_t start_day;
  std::uint8_t end_day;
};

// '1' from the start day to the end day, forward through the week and round its end. A day outside 0..6, as
// it comes from a mask without bounds, marks no day of its own.
constexpr WeekMask build_week_mask(std::uint32_t start_day, std::uint32_t end_day) {
  WeekMask mask;
  mask.fill('0');
  if (end_day < days_of_week) {
    mask[end_day] = '1';
  }
  if (start_day == end_day) {
    return mask;
  }
  for (std::uint32_t day = start_day; day < start_day + days_of_week; ++day) {
    const std::uint32_t weekday = day % days_of_week;
    if (weekday == end_day) {
      break;
    }
    mask[weekday] = '1';
  }
  return mask;
}

// The first and the last day of the mask's run; no_day where a mask of other programs has no such bound.
DayRun week_mask_bounds(const WeekMask& mask);

// "Sun" to "Sat"; "Sun" for any other day.
const char* day_abbreviation(std::uint8_t day);

// The last column of a list row, with the end of the row.
void show_schedule(const config::Schedule& schedule);

void ask_schedule(shell::Dialogue& ask, config::Schedule& schedule);

}  // namespace menus::advanced
