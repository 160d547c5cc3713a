// Ping, and the reset to the factory settings.
#include <array>
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
  } else if (status == platform::cannot_start) {
    shell::put("Error: ping broken!\n");
  } else {
    shell::put("Request timed out.\n");
  }
}

// A call's result: a negative errno value is told, with the file's name.
bool succeeded(const char* path, int result) {
  if (result < 0) {
    shell::put(path, ": ", platform::error_text(-result), '\n');
  }
  return result >= 0;
}

// On failure false, and one line has said which file and why.
bool copy_factory_defaults(const char* path) {
  const platform::Descriptor defaults(platform::open_for_reading(path));
  if (!succeeded(path, defaults.number())) {
    return false;
  }
  platform::LineReader reader(defaults.number());
  std::array<char, 510> buffer;
  constexpr std::string_view version = "#ver.";  // of the defaults file itself
  std::string_view piece = reader.next_without(version, buffer);
  if (piece.empty()) {
    if (succeeded(path, reader.error())) {
      shell::put(path, ": There are no settings in it\n");
    }
    return false;
  }
  // Opening empties it, so there has to be something to write by then.
  platform::Descriptor partition(platform::open_for_writing(config::settings_partition));
  int result = partition.number();
  for (; !piece.empty() && result >= 0; piece = reader.next_without(version, buffer)) {
    result = platform::write_all(partition.number(), piece);
  }
  // While another program has the partition open, closing it leaves the last erase block in the kernel's
  // memory, and so does sync().
  if (result >= 0) {
    result = platform::flush_file(partition.number());
  }
  const int closed = partition.close();
  return succeeded(config::settings_partition, result < 0 ? result : closed) &&
         succeeded(path, reader.error());
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
