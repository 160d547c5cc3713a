#include "shell/apply.h"

#include "config/voice_change.h"
#include "platform/platform.h"
#include "shell/message.h"
#include "shell/output.h"
#include "shell/session.h"

namespace shell {

void run_command(const char* command) {
  flush_output();
  platform::run_shell_command(command, platform::Keyboard::interrupts);
}

void save_settings() {
  flush_output();
  platform::run_shell_command("/opt/httpd/sbin/web_server dumpshare", platform::Keyboard::is_ignored);
}

void restart_filter_and_nat() {
  run_command("/etc/init.d/filter.sh start > /dev/null 2>&1");
  run_command("/etc/init.d/nat.sh start > /dev/null 2>&1");
  show_message(message::saved);
}

void raise_voice_change_flag() {
  const platform::Attachment flag = platform::attach_segment(config::voice_change_key, sizeof(std::uint32_t));
  if (flag.memory == nullptr) {
    report_segment_error(flag.error);
    return;
  }
  *static_cast<volatile std::uint32_t*>(flag.memory) = 1;
  platform::detach_segment(flag.memory);
}

void save_and_signal_voice_daemon() {
  save_settings();
  show_message(message::saved);
  raise_voice_change_flag();
}

void commit_and_signal_voice_daemon(Dialogue& ask) {
  if (ask.commit()) {
    save_and_signal_voice_daemon();
  }
}

}  // namespace shell
