#include "menus/advanced/schedule.h"

#include <cstdint>
#include <tuple>

#include "shell/output.h"

namespace menus::advanced {
namespace {

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
  const std::uint32_t behind = start_day + days_of_week;
  for (std::uint32_t day = start_day; day < behind && day % days_of_week != end_day; ++day) {
    mask[day % days_of_week] = '1';
  }
  return mask;
}

// The first and the last day of the run; no_day where a mask of other programs has no such bound.
DayRun week_mask_bounds(const WeekMask& mask) {
  DayRun run{DayRun::no_day, DayRun::no_day};
  // Backwards, so that of several runs the first bounds remain.
  for (std::uint8_t day = days_of_week; day-- > 0;) {
    const auto next = static_cast<std::uint8_t>((day + 1) % days_of_week);
    if (mask[day] == '0' && mask[next] == '1') {
      run.start_day = next;
    }
    if (mask[day] == '1' && mask[next] == '0') {
      run.end_day = day;
    }
  }
  return run;
}

// What a rule without a schedule holds.
constexpr config::Schedule always{0, 0, 0, 0, 0, build_week_mask(0, 0)};

constexpr shell::Range hours{0, 23};
constexpr shell::Range minutes{0, 55, 5};
constexpr shell::Range weekdays{0, days_of_week - 1};

// "Sun" for a day outside 0..6.
const char* day_abbreviation(std::uint8_t day) {
  static constexpr char days[days_of_week][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  return days[day < days_of_week ? day : 0];
}

void show_time(std::uint8_t hour, std::uint8_t minute) {
  shell::put(shell::Number(hour), ':', shell::Number(minute, 2, '0'));
}

}  // namespace

void show_schedule(const config::Schedule& schedule) {
  if (schedule.schedule_mode == 0) {
    shell::put("Always\n");
    return;
  }
  const DayRun days = week_mask_bounds(schedule.week_mask);
  shell::put("By Schedule,");
  show_time(schedule.start_hour, schedule.start_minute);
  shell::put('-');
  show_time(schedule.end_hour, schedule.end_minute);
  shell::put(',', day_abbreviation(days.start_day), '-', day_abbreviation(days.end_day), '\n');
}

void ask_schedule(shell::Dialogue& ask, config::Schedule& schedule) {
  if (ask.choice("Schedule?<%d>(0:Always, 1:By Schedule):", schedule.schedule_mode, "01") == 0) {
    ask.note(schedule, always);
    return;
  }
  ask.number("Start Time Hour?<%d>(0~23):", schedule.start_hour, hours);
  ask.number("Start Time Minute?<%d>(00,05,10,15,20,25,30,35,40,45,50,55):", schedule.start_minute, minutes);
  ask.number("End Time Hour?<%d>(0~23):", schedule.end_hour, hours);
  ask.number("End Time Minute?<%d>(00,05,10,15,20,25,30,35,40,45,50,55):", schedule.end_minute, minutes);
  const DayRun days = week_mask_bounds(schedule.week_mask);
  const auto start = ask.number_of(
      "Start Day?<%d>(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):", days.start_day, weekdays);
  const auto end =
      ask.number_of("End Day?<%d>(0:Sun, 1:Mon, 2:Tue, 3:Wed, 4:Thu, 5:Fri, 6:Sat):", days.end_day, weekdays);
  ask.note(schedule.week_mask, build_week_mask(start, end));
}

}  // namespace menus::advanced
