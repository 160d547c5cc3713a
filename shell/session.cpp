#include "shell/session.h"

#include <string_view>

#include "platform/platform.h"
#include "shell/line.h"
#include "shell/output.h"

namespace shell {
namespace {

using platform::Attachment;

config::LoginRecord* login = nullptr;
config::ConfigurationSegment* settings = nullptr;

constexpr config::Ipv4 this_console = {{127, 0, 0, 1}};
constexpr std::int32_t console_tag = -9;

[[noreturn]] void exit_with(int status) {
  flush_output();
  platform::exit_process(status);
}

void attach_login_record() {
  const Attachment record = platform::attach_segment(config::LoginRecord::key, sizeof(config::LoginRecord));
  if (record.outcome != Attachment::Outcome::attached) {
    report_segment_error(record.error);
    exit_with(1);
  }
  login = static_cast<config::LoginRecord*>(record.memory);
}

void attach_settings() {
  const Attachment record =
      platform::attach_segment(config::ConfigurationSegment::key, sizeof(config::ConfigurationSegment));
  if (record.outcome == Attachment::Outcome::not_opened) {
    report_segment_error(record.error);
  }
  if (record.outcome != Attachment::Outcome::attached) {
    exit_with(0);
  }
  settings = static_cast<config::ConfigurationSegment*>(record.memory);
}

// Ends this console while another login holds the record. Its record is left as it is.
void guard_login() {
  const config::Ipv4 holder = login->holder_address;
  if (!holder.is_zero() && login->idle_timeout != 0 && login->expiry_time > now_seconds()) {
    put("Duplex Login with ", holder, "\n");
    exit_with(1);
  }
}

// As many characters are compared as a login's texts have at most, when they end with their NUL.
bool matches(std::string_view stored, std::string_view typed) {
  constexpr std::size_t compared = sizeof(config::AdminLogin::admin_user_name) - 1;
  return stored.substr(0, compared) == typed.substr(0, compared);
}

// Both answers are asked for, whatever the first one is.
bool check_login() {
  decltype(config::AdminLogin::admin_user_name) user_name{};
  put("Username:");
  read_line();
  user_name.assign(typed_text());
  put("Password:");
  read_line();
  return matches(settings->admin.admin_user_name.view(), user_name.view()) &&
         matches(settings->admin.admin_password.view(), typed_text());
}

void claim_login() {
  login->holder_address = this_console;
  login->expiry_time = now_seconds() + login->idle_timeout;
  login->holder_tag = console_tag;
}

}  // namespace

void run_console(const MenuTree& menus) {
  reset_input();
  reset_output();
  platform::settle_signals();
  attach_login_record();
  guard_login();
  attach_settings();
  if (!check_login()) {
    put("Username or Password Error\n");
    end_console();
  }
  guard_login();
  claim_login();
  run_menus(menus);
}

void end_console() {
  put("Bye Bye!!\n");
  flush_output();
  login->holder_address = {};
  platform::detach_segment(login);
  platform::detach_segment(settings);
  platform::exit_process(1);
}

std::uint32_t now_seconds() {
  return static_cast<std::uint32_t>(platform::wall_clock_milliseconds() / 1000);
}

config::ConfigurationSegment& segment() {
  return *settings;
}

bool refresh_login() {
  const std::uint32_t now = now_seconds();
  if (login->expiry_time <= now || login->holder_address != this_console) {
    return false;
  }
  login->expiry_time = now + login->idle_timeout;
  return true;
}

void report_segment_error(int error) {
  flush_output();
  platform::report_error("cfgid", error);
}

}  // namespace shell
