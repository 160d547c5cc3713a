// Ping, and the reset to the factory settings.
#include <array>
#include <span>
#include <string_view>

#include "config/firmware.h"
#include "config/values.h"
#include "menus/tools/items.h"
#include "platform/descriptor.h"
#include "platform/line_reader.h"
#include "platform/platform.h"
#include "shell/line.h"
#include "shell/menu.h"
#include "shell/output.h"
#include "shell/parse.h"
#include "shell/session.h"

namespace menus::tools {
namespace {

void ping_host() {
  shell::put("PING Destination : ");
  if (shell::read_line() == 0) {
    return;
  }
  config::strip_newline(shell::line_buffer());
  const char* const arguments[] = {"ping", "-c", "1", shell::line_buffer().data(), nullptr};
  shell::flush_output();
  const int status = platform::run_program("/bin/ping", arguments, platform::Terminal::kept);
  if (status == 0) {
    shell::put("PING Success.\n");
  } else if (status == 255) {
    shell::put("Error: ping broken!\n");
  } else {
    shell::put("Request timed out.\n");
  }
}

// Returns false.
bool report_failure(const char* path, const char* reason) {
  shell::put(path, ": ", reason, '\n');
  return false;
}

// For a negative errno value. Returns false.
bool report_failure(const char* path, int error) {
  return report_failure(path, platform::error_text(-error));
}

// The next piece to copy, empty behind the last one: version markers are the defaults file's own.
std::string_view next_setting(platform::LineReader& reader, std::span<char> buffer) {
  std::string_view piece;
  do {
    piece = reader.next(buffer);
  } while (piece.find("#ver.") != std::string_view::npos);
  return piece;
}

// The partition is not opened, and so not emptied, before there is something to write to it.
bool copy_lines(int defaults, const char* path) {
  platform::LineReader reader(defaults);
  std::array<char, 510> buffer;
  std::string_view piece = next_setting(reader, buffer);
  if (piece.empty()) {
    return reader.error() != 0 ? report_failure(path, reader.error())
                               : report_failure(path, "There are no settings in it");
  }
  platform::Descriptor partition(platform::open_for_writing(config::settings_partition));
  if (!partition.is_open()) {
    return report_failure(config::settings_partition, partition.number());
  }
  int write_error = 0;
  for (; !piece.empty() && write_error == 0; piece = next_setting(reader, buffer)) {
    write_error = platform::write_all(partition.number(), piece);
  }
  // While another program has the partition open, closing it leaves the last erase block in the kernel's
  // memory, and so does sync().
  if (write_error == 0) {
    write_error = platform::flush_file(partition.number());
  }
  const int close_error = partition.close();
  if (write_error != 0 || close_error != 0) {
    return report_failure(config::settings_partition, write_error != 0 ? write_error : close_error);
  }
  return reader.error() == 0 || report_failure(path, reader.error());
}

// On failure false, and one line has said which file and why.
bool copy_factory_defaults(const char* path) {
  const platform::Descriptor defaults(platform::open_for_reading(path));
  return defaults.is_open() ? copy_lines(defaults.number(), path) : report_failure(path, defaults.number());
}

// Does not return once the defaults are in the partition. The segment still holds the old settings, so
// nothing may save it any more.
void factory_reset() {
  shell::put("Factory Default Setting:\n");
  shell::put("Set defice configuration to Factory default setting? <yes>/<NO>");
  shell::read_line();
  if (!shell::typed_text().starts_with("yes") || !copy_factory_defaults(config::factory_defaults)) {
    return;
  }
  shell::put("System reboot ...\n");
  shell::flush_output();
  platform::sync_storage();
  platform::sleep_seconds(1);
  const char* const arguments[] = {"bbreboot", nullptr};
  platform::run_program("/sbin/bbreboot", arguments, platform::Terminal::left);
  shell::end_console();
}

}  // namespace

void system_tools_menu() {
  shell::put("0:Ping command\n1:Factory Default\n");
  for (;;) {
    shell::put(shell::menu_prompt);
    if (shell::read_line() == 0 || shell::typed_text().starts_with('q')) {
      return;
    }
    const auto item = shell::whole_number(shell::line_text());
    if (item == 0U) {
      ping_host();
    } else if (item == 1U) {
      factory_reset();
    }
  }
}

}  // namespace menus::tools
