// The system log, newest entry first, from a snapshot that is made once.
#include <array>
#include <string_view>

#include "menus/status/items.h"
#include "platform/descriptor.h"
#include "platform/line_reader.h"
#include "platform/platform.h"
#include "shell/apply.h"
#include "shell/line.h"
#include "shell/output.h"

namespace menus::status {
namespace {

constexpr std::size_t page_length = 20;
constexpr std::string_view dashes = "-----------------------------------------------------------------\n";

constexpr const char* system_log = "/var/tmp/messages";
constexpr const char* snapshot_command =
    "cat /var/tmp/messages | awk {'print $1,$2,$3,$5,$7,$8,$9,$10,$11,$12,$13,$14'} > /tmp/messages.tmp";

int open_existing_snapshot() {
  // /var/tmp and /tmp are the same folder on most devices, but not on all.
  const int file = platform::open_for_reading("/var/tmp/messages.tmp");
  return file >= 0 ? file : platform::open_for_reading("/tmp/messages.tmp");
}

// The snapshot, made if need be; negative when there is neither a snapshot nor a log to make it from.
int open_snapshot() {
  const int existing = open_existing_snapshot();
  if (existing >= 0) {
    return existing;
  }
  // The command would leave an empty snapshot behind, and that would be the log from then on.
  if (!platform::Descriptor(platform::open_for_reading(system_log)).is_open()) {
    return -1;
  }
  shell::run_command(snapshot_command);
  return open_existing_snapshot();
}

// Entries with it are not shown.
constexpr std::string_view debug = "debug";
// A longer line counts as several.
using LineBuffer = std::array<char, 510>;

std::size_t count_entries(int file) {
  platform::LineReader lines(file);
  LineBuffer buffer;
  std::size_t count = 0;
  while (!lines.next_without(debug, buffer).empty()) {
    ++count;
  }
  return count;
}

// Reads from the start up to the entry: the device has no memory to spare for a copy or an index.
void show_entry(int file, std::size_t number) {
  platform::rewind_file(file);
  platform::LineReader lines(file);
  LineBuffer buffer;
  std::string_view entry;
  do {
    entry = lines.next_without(debug, buffer);
  } while (!entry.empty() && --number > 0);
  shell::put(entry);
}

// False when the rest is not wanted.
bool next_page_wanted() {
  shell::put(dashes, "q:Exit , other:Continue:");
  shell::read_line();
  shell::put(dashes);
  return !shell::line_is_q();
}

}  // namespace

void log_viewer() {
  const platform::Descriptor snapshot(open_snapshot());
  if (!snapshot.is_open()) {
    shell::put("can't read log file\n");
    return;
  }
  const std::size_t entries = count_entries(snapshot.number());
  shell::put(dashes);
  for (std::size_t shown = 0; shown < entries; ++shown) {
    if (shown > 0 && shown % page_length == 0 && !next_page_wanted()) {
      shell::put("q:Exit\n");
      return;
    }
    show_entry(snapshot.number(), entries - shown);
  }
  shell::put(dashes, "haven't other log message\n\n\n");
}

}  // namespace menus::status
