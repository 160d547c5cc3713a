// Where the clock gets its time from, the time zone, and setting the clock by hand.
//
// Mode and zone reach the segment as soon as they are chosen, whatever becomes of the rest of the dialogue.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>

#include "menus/tools/items.h"
#include "platform/platform.h"
#include "shell/apply.h"
#include "shell/dialogue.h"
#include "shell/line.h"
#include "shell/output.h"
#include "shell/parse.h"
#include "shell/session.h"

namespace menus::tools {
namespace {

enum Mode : std::uint8_t { manual = 0, ntp = 1 };

// By the zone's number, its hours from GMT + 12.
constexpr char time_zones[][37] = {
    "(GMT-12:00) Enewetak, Kwajalein",
    "(GMT-11:00) Midway Island, Samoa",
    "(GMT-10:00) Hawaii",
    "(GMT-09:00) Alaska",
    "(GMT-08:00) Pacific Time",
    "(GMT-07:00) Arizona, Mountain Time",
    "(GMT-06:00) Central Time,Mexico City",
    "(GMT-05:00) Eastern Time, Indiana",
    "(GMT-04:00) Atlantic Time",
    "(GMT-03:00) Brasilia, Buenos Aires",
    "(GMT-02:00) Mid-Atlantic",
    "(GMT-01:00) Azores, Cape Verde Is.",
    "(GMT) GMT, Dublin, London",
    "(GMT+01:00) Amsterdam, Berlin, Rome",
    "(GMT+02:00) Athens, Cairo, Israel",
    "(GMT+03:00) Baghdad, Kuwait, Moscow",
    "(GMT+04:00) Abu Dhabi, Muscat",
    "(GMT+05:00) Islamabad, Karachi",
    "(GMT+06:00) Dhaka, Colombo",
    "(GMT+07:00) Bangkok,Hanoi,Jakarta",
    "(GMT+08:00) Beijing,Singapore,Taipei",
    "(GMT+09:00) Osaka, Tokyo, Seoul",
    "(GMT+10:00) Melbourne, Sydney, Guam",
    "(GMT+11:00) Magadan, Soloman Is.",
    "(GMT+12:00) Auckland, Wellington",
};

// Anything but a number of a zone leaves the zone as it is, without a word.
void select_time_zone() {
  std::uint8_t& zone = shell::segment().date_time.time_zone;
  shell::put("Time Zone : ", shell::Number(zone), "-", zone < std::size(time_zones) ? time_zones[zone] : "");
  constexpr std::size_t last = std::size(time_zones) - 1;
  for (std::size_t i = 0; i <= last; ++i) {
    // Two to a line.
    const bool first = i % 2 == 0;
    shell::put(first ? '\n' : ' ', shell::Number(i, first ? 1 : 2), '-',
               shell::Cell{time_zones[i], sizeof time_zones[i] - 1});
  }
  shell::put(" \nSelect Time Zone (0-", shell::Number(last), "): ");
  const bool answered = shell::read_line() != 0;
  const auto number = shell::whole_number(shell::line_text());
  if (answered && number && *number <= last) {
    zone = static_cast<std::uint8_t>(*number);
  }
}

// Waits for Enter, which keeps the current value wherever it lies, or for a number in range; other lines are
// passed over without a word.
int ask_number(const char* label, int current, shell::Range range) {
  shell::put(label, '(', shell::Number(current), ")  <", shell::Number(range.low), '-',
             shell::Number(range.high), ">:");
  while (shell::read_line() != 0) {
    const auto number = shell::whole_number(shell::line_text());
    if (number && shell::in_range(*number, range.low, range.high)) {
      return static_cast<int>(*number);
    }
  }
  return current;
}

platform::LocalTime ask_date() {
  platform::LocalTime date = platform::local_time();
  date.year = ask_number("Year  ", date.year, {2006, 2020});
  date.month = ask_number("Month ", date.month, {1, 12});
  date.day = ask_number("Day   ", date.day, {1, 31});
  date.hour = ask_number("Hour  ", date.hour, {0, 23});
  date.minute = ask_number("Minute", date.minute, {0, 59});
  date.second = ask_number("Second", date.second, {0, 59});
  return date;
}

// What date(1) says about a date that it refuses is shown.
void set_clock(const platform::LocalTime& date) {
  std::array<char, 96> command;
  std::snprintf(command.data(), command.size(), "/bin/date %02d%02d%02d%02d%04d.%02d", date.month, date.day,
                date.hour, date.minute, date.year, date.second);
  shell::run_command(command.data());
}

}  // namespace

void day_time_menu() {
  config::DateTimeSettings& settings = shell::segment().date_time;
  shell::Dialogue ask(shell::Dialogue::refuse_by_kind);
  const std::uint8_t mode =
      ask.choice("Date Time Set By <%d>(0: Manual, 1: NTP Time Server):", settings.date_time_set_by, "01",
                 {.rest_ignored = true});
  if (!ask.commit()) {
    return;
  }
  platform::LocalTime date{};
  if (mode == ntp) {
    select_time_zone();
    ask.text("NTP Server Address<%s>:", settings.ntp_server);
  } else if (mode == manual) {
    select_time_zone();
    date = ask_date();
  }
  if (!ask.commit()) {
    return;
  }
  shell::save_settings();
  if (mode == manual || mode == ntp) {
    shell::run_command("/etc/init.d/ntp.sh config > /dev/null 2>&1");
  }
  if (mode == manual) {
    set_clock(date);
  }
  shell::show_message(shell::message::saved);
}

}  // namespace menus::tools
