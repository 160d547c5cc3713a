// Stand-in for the device's web server: it owns the stored settings and, at boot, fills the shared records.
#include <arpa/inet.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "config/firmware.h"
#include "config/login_record.h"
#include "shared_record.h"
#include "stored_settings.h"

namespace {

constexpr std::uint32_t idle_timeout_seconds = 300;

bool boot() {
  auto* const segment = desk::attach_record<config::ConfigurationSegment>(config::ConfigurationSegment::key);
  auto* const login = desk::attach_record<config::LoginRecord>(config::LoginRecord::key);
  if (segment == nullptr || login == nullptr) {
    return false;
  }
  *login = {};
  login->idle_timeout = idle_timeout_seconds;

  const auto settings = std::make_unique<config::ConfigurationSegment>();
  if (!desk::load_settings(config::settings_partition, config::factory_defaults, *settings)) {
    std::fputs("There are neither stored settings nor factory defaults\n", stderr);
    return false;
  }
  *segment = *settings;
  return true;
}

// An administrator logs in on the web pages, from the machine with this address.
bool hold_login(std::uint32_t address, std::uint32_t seconds) {
  auto* const login = desk::attach_record<config::LoginRecord>(config::LoginRecord::key);
  if (login == nullptr) {
    return false;
  }
  login->holder_address = config::Ipv4::from_word(address);
  login->expiry_time = static_cast<std::uint32_t>(platform::wall_clock_milliseconds() / 1000) + seconds;
  return true;
}

bool dump_share() {
  const auto* const segment =
      desk::attach_record<config::ConfigurationSegment>(config::ConfigurationSegment::key);
  return segment != nullptr &&
         desk::store_settings(config::settings_partition, config::factory_defaults, *segment);
}

}  // namespace

int main(int count, char* arguments[]) {
  const std::string_view request = count == 2 ? arguments[1] : "";
  if (request == "boot") {
    return boot() ? 0 : 1;
  }
  if (request == "dumpshare") {
    return dump_share() ? 0 : 1;
  }
  in_addr address{};
  if (count == 4 && std::string_view(arguments[1]) == "login" && inet_aton(arguments[2], &address) != 0) {
    return hold_login(address.s_addr, static_cast<std::uint32_t>(std::strtoul(arguments[3], nullptr, 10)))
               ? 0
               : 1;
  }
  std::fputs("usage: web_server dumpshare|boot|login ADDRESS SECONDS\n", stderr);
  return 2;
}
